// Looks at dialogs and works their controls with the messages that a user's hands produce.
//
//   ReplaceText(GetDlgItem(dialog, 10001), L"新しい文字列");
//   Click(GetDlgItem(dialog, IDOK));
//
// What types, clicks or presses keys is posted, so it arrives after the caller returned to the
// message loop, in the order of the calls. What reads is answered at once. All windows belong to
// the calling thread.
#pragma once

#include "driver/platform.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::driver {

/// The field for the name in the platform's dialog for files.
inline constexpr int kFileNameField = 1148;

/// The visible, enabled dialog windows of this thread, topmost first.
std::vector<HWND> VisibleDialogs();

/// The visible popup menu window of this thread, the deepest one; null if there is none.
HWND VisibleMenu();

/// The window's class name.
std::wstring ClassName(HWND window);

/// The window's whole text, through WM_GETTEXT.
std::wstring Text(HWND window);

/// The text of one control; throws std::runtime_error if the dialog has no such control.
std::wstring Text(HWND dialog, int id);

/// The dialog's control; throws std::runtime_error if there is none, unlike GetDlgItem.
HWND Control(HWND dialog, int id);

/// The page that a dialog shows: its visible child that is a dialog itself. Throws
/// std::runtime_error if there is none.
HWND ShownPage(HWND dialog);

bool IsEnabled(HWND dialog, int id);
/// Whether the control and all its parents are shown.
bool IsShown(HWND dialog, int id);

/// The control with the keyboard focus, 0 if the focus is not in the dialog. For a part of a
/// control, such as the field of a combo box, this is the control itself.
int FocusedControlId(HWND dialog);

/// The controls that the tabulator key visits, in its order, from the dialog's first; those of its
/// pages, too.
std::vector<HWND> TabOrder(HWND dialog);

/// The window with its frame, on the screen.
RECT WindowRect(HWND window);
/// A child window with its frame, in its parent's client coordinates.
RECT ClientRectOf(HWND child);

/// Moves the keyboard focus as the dialog manager does, default button included.
void Focus(HWND control);

/// Types at the field's caret, one character message for each UTF-16 unit.
void TypeText(HWND edit, std::wstring_view text);
/// Moves the focus to the field, selects all of it and types over the selection. The field is
/// never empty in between, unless `text` is empty: then the delete key removes the selection.
void ReplaceText(HWND edit, std::wstring_view text);

/// `keys` of the mouse functions: MK_SHIFT, MK_CONTROL or both. Points are client coordinates in
/// pixels and may lie outside the window.
void ClickAt(HWND window, POINT point, WPARAM keys = 0);
void DoubleClickAt(HWND window, POINT point, WPARAM keys = 0);
void RightClickAt(HWND window, POINT point, WPARAM keys = 0);
/// Presses at `from`, moves in `steps` (at least 1) equal parts and releases at `to`.
void Drag(HWND window, POINT from, POINT to, int steps = 4, WPARAM keys = 0);

/// A click at the control's centre.
void Click(HWND control);
void Click(HWND dialog, int id);

/// One key press as a pair of messages for `focused`. Dialog keys (Return, Escape, Tab) work when
/// `focused` is the dialog or one of its controls. Modifiers cannot be given this way: see SendKey.
void PressKey(HWND focused, UINT virtualKey);
/// The tabulator key, at whatever control of the dialog has the focus.
void PressTab(HWND dialog);

/// One key press through the system's own input queue, for keyboard hooks and modifiers (VK_SHIFT,
/// VK_CONTROL, VK_MENU). It goes to the desktop's foreground window, whichever that is.
void SendKey(UINT virtualKey, std::initializer_list<UINT> modifiers = {});

}  // namespace quorvel::driver
