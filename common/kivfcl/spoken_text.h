// What a control that shows no text tells a screen reader.
//
//   if (message == WM_GETTEXT || message == WM_GETTEXTLENGTH) {
//     const std::wstring value = quorvel::SpokenColor(m_color);
//     return quorvel::AnswerWithText(message, wParam, lParam, quorvel::Named(GivenText(), value));
//   }
#pragma once

#include "framework/base_types.h"
#include "kivfcl/kivfcl_export.h"

#include <string>

namespace quorvel {

/// "赤 255 緑 0 青 0".
std::wstring SpokenColor(COLORREF color);

/// "文字の色 赤 255 緑 0 青 0"; one of them where the other is empty.
std::wstring Named(const std::wstring& name, const std::wstring& value);

/// The answer to WM_GETTEXTLENGTH or WM_GETTEXT; of the text, what the asker has room for.
KIVFCL_API LRESULT AnswerWithText(UINT message, WPARAM wParam, LPARAM lParam,
                                  const std::wstring& text);

}  // namespace quorvel
