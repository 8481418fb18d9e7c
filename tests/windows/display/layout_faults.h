// What a user would see at once in a dialog that came out too small or too large.
#pragma once

#include "driver/platform.h"

#include <string>
#include <vector>

namespace quorvel::test {

/// One line, in UTF-8, for each text that does not fit, each control that reaches out of its dialog
/// and each two controls of which one covers the other.
std::vector<std::string> LayoutFaults(HWND dialog);

}  // namespace quorvel::test
