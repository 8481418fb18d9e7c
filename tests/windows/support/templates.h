// Templates as tables: every control with its identifier, text and place in dialog units.
#pragma once

#include "framework/control_names.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <string>
#include <vector>

namespace quorvel::test {

struct ExpectedControl {
  int id;
  std::wstring kind;
  std::wstring text;
  CRect units;  ///< left, top, width, height
};

inline constexpr int kNoId = 0xFFFF;

inline std::wstring FontFace(HWND dialog) {
  LOGFONTW font{};
  ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof font,
               &font);
  return font.lfFaceName;
}

/// The system turns place and size into pixels separately.
inline CRect PixelsOf(HWND dialog, const CRect& units) {
  RECT pixels = units;
  ::MapDialogRect(dialog, &pixels);
  return {CPoint(pixels.left, pixels.top), CSize(pixels.right, pixels.bottom)};
}

/// The next one that the template has: the dialog itself makes labels that only name.
inline HWND ControlOfTemplate(HWND control) {
  while (control != nullptr && ::GetDlgCtrlID(control) == kNameLabelId) {
    control = ::GetWindow(control, GW_HWNDNEXT);
  }
  return control;
}

inline void ExpectTemplate(HWND dialog, const std::wstring& caption, const CSize& clientUnits,
                           const std::wstring& fontFace,
                           const std::vector<ExpectedControl>& controls) {
  EXPECT_EQ(Text(dialog), caption);
  EXPECT_EQ(FontFace(dialog), fontFace);
  CRect client;
  ::GetClientRect(dialog, &client);
  EXPECT_EQ(client.Size(),
            PixelsOf(dialog, CRect(0, 0, clientUnits.cx, clientUnits.cy)).Size());

  HWND child = ControlOfTemplate(::GetWindow(dialog, GW_CHILD));
  for (const ExpectedControl& control : controls) {
    SCOPED_TRACE(control.id);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(::GetDlgCtrlID(child) & 0xFFFF, control.id);
    EXPECT_EQ(ClassName(child), control.kind);
    EXPECT_EQ(Text(child), control.text);
    CRect place(ClientRectOf(child));
    const CRect expected = PixelsOf(dialog, control.units);
    if (control.kind == L"ComboBox" || control.kind == L"ListBox") {
      // The height is that of a closed combo box's text, and of a list's whole rows.
      place.bottom = expected.bottom;
    }
    EXPECT_EQ(place, expected);
    child = ControlOfTemplate(::GetWindow(child, GW_HWNDNEXT));
  }
  EXPECT_EQ(child, nullptr) << "more controls than the table has";
}

}  // namespace quorvel::test
