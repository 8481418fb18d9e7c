#include "dialogs/layout/finding_combo_box.h"

LRESULT CFindingComboBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KILLFOCUS) {
    m_search.Reset();
  }
  if (message == WM_CHAR) {
    const auto letter = static_cast<wchar_t>(wParam);
    const auto time = static_cast<unsigned>(::GetMessageTime());
    // Control characters, and a blank that begins no name, have a meaning of their own.
    if (letter > L' ' || (letter == L' ' && m_search.IsUnderWay(time))) {
      Find(letter, time);
      return 0;
    }
  }
  return CComboBox::WindowProc(message, wParam, lParam);
}

void CFindingComboBox::Find(wchar_t letter, unsigned time) {
  const quorvel::TypedSearch::Wanted wanted = m_search.Add(letter, time);
  const int selected = GetCurSel();
  // The search begins behind the entry told and comes back to it at last.
  const int behind = wanted.fromSelected ? selected - 1 : selected;
  const auto found = static_cast<int>(
      ::SendMessageW(m_hWnd, CB_FINDSTRING, static_cast<WPARAM>(behind < 0 ? -1 : behind),
                     reinterpret_cast<LPARAM>(wanted.beginning.c_str())));
  if (found < 0 || found == selected) {
    return;
  }
  SetCurSel(found);
  ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND,
                 MAKEWPARAM(::GetDlgCtrlID(m_hWnd), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(m_hWnd));
}
