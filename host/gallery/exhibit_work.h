// What the exhibits have in common: the wording of their outcomes, and checks of what a dialog
// shows while the tour works it.
//
//   ExpectText(dialog, 1939, L"300");   // throws if the field shows something else
#pragma once

#include "gallery/exhibit.h"

#include <string>

namespace quorvel::gallery {

Outcome ConfirmedIf(bool confirmed);

/// Throws std::runtime_error with the complaint, in UTF-8, unless `holds`.
void Expect(bool holds, const std::string& complaint);

/// Throws std::runtime_error unless the control shows this text.
void ExpectText(HWND dialog, int id, const std::wstring& expected);

}  // namespace quorvel::gallery
