#include "dialogs/layout/line_button.h"

#include "framework/code_page.h"
#include "kivfcl/spoken_text.h"

void CLineButton::ShowOn(bool on) {
  m_bOn = on;
  if (GetState() != on) {
    SetState(on);
  }
}

LRESULT CLineButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
    case WM_GETTEXT:
      return quorvel::AnswerWithText(
          message, wParam, lParam,
          quorvel::WideFromCodePage(m_pszName) + (m_bOn ? L" オン" : L" オフ"));
    case WM_LBUTTONUP:
    case WM_KEYUP:
    case WM_CAPTURECHANGED: {
      // The press is over, perhaps without a click: the button goes back to what it has to show.
      const LRESULT result = CButton::WindowProc(message, wParam, lParam);
      if (m_hWnd != nullptr && ::GetCapture() != m_hWnd) {
        ShowOn(m_bOn);
      }
      return result;
    }
    default:
      return CButton::WindowProc(message, wParam, lParam);
  }
}

LRESULT CButtonCaption::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  // As a text it would take the access key and hand the focus on, without a press.
  return message == WM_GETDLGCODE ? DLGC_WANTCHARS : CStatic::WindowProc(message, wParam, lParam);
}
