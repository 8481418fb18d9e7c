#include "kivfcl/kiv_key_ctrl_edit.h"

BOOL CKivKeyCtrlEdit::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id, UINT keys) {
  m_nKeys = keys;
  return CreateChild(L"EDIT", 0, style, rect, parent, id);
}

bool CKivKeyCtrlEdit::IsOwnersKey(WPARAM key) const {
  switch (key) {
    case VK_RETURN:
      return (m_nKeys & KIVKEY_ENTER) != 0;
    case VK_ESCAPE:
      return (m_nKeys & KIVKEY_ESCAPE) != 0;
    case VK_LEFT:
    case VK_RIGHT:
      return (m_nKeys & KIVKEY_ARROWS) != 0;
    default:
      return false;
  }
}

LRESULT CKivKeyCtrlEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETDLGCODE: {
      // Otherwise the dialog takes Enter and Escape for its buttons.
      const LRESULT wanted = CEdit::WindowProc(message, wParam, lParam);
      return IsOwnersKey(wParam) ? wanted | DLGC_WANTALLKEYS : wanted;
    }
    case WM_KEYDOWN:
      if (IsOwnersKey(wParam) && !IsComposing()) {
        // The last thing done here: the owner may destroy this object.
        return ::SendMessageW(::GetParent(m_hWnd), message, wParam, lParam);
      }
      break;
    case WM_CHAR:
      // Of keys whose press went to the owner: the field would beep. VK_RETURN and VK_ESCAPE are
      // their characters.
      if ((wParam == VK_RETURN || wParam == VK_ESCAPE) && IsOwnersKey(wParam)) {
        return 0;
      }
      break;
    default:
      break;
  }
  return CEdit::WindowProc(message, wParam, lParam);
}
