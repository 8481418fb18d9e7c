// What a screen reader calls a control that nothing on the dialog names.
//
//   quorvel::NameControls(m_hWnd, {{IDC_OUTER_LINE_TYPE, L"外側の線の種類"},
//                                  {IDC_OUTER_LINE_WIDTH, L"外側の線の幅"}});
//
// A screen reader takes the window text for a control's name, or, where that is what the user has put
// in, as in a field or a list, the text of the label right before it in the order of the tabulator
// key, shown or not. So the one kind gets its text, the other a label that nobody sees.
#pragma once

#include "framework/base_types.h"
#include "framework/frame_export.h"

#include <initializer_list>

namespace quorvel {

struct ControlName {
  int id;
  const wchar_t* name;  ///< without an access key
};

/// The identifier of every label that nobody sees.
inline constexpr int kNameLabelId = 0xFFFE;

/// Names a control, or names it anew. The tabulator key, access keys and what is seen stay as they
/// are. Nothing happens without a window.
FRAME_API void NameControl(HWND control, const wchar_t* name);

/// Takes away the label of a control that goes while its dialog stays.
FRAME_API void DropName(HWND control);

/// Names controls of a dialog. Its template's own labels do as long as they stand right before what
/// they name.
FRAME_API void NameControls(HWND dialog, std::initializer_list<ControlName> names);

}  // namespace quorvel
