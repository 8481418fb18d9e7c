#include "kivfcl/kiv_color_button.h"

#include "framework/device_context.h"
#include "kivfcl/control_paint.h"
#include "kivfcl/spoken_text.h"

namespace {

constexpr int kDisabledMargin = 3;
constexpr int kFocusWidth = 2;

}  // namespace

void CKivColorButton::Recolor(COLORREF color) {
  m_color = color;
  ::SendMessageW(m_hWnd, BM_SETSTYLE, LOWORD(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)), TRUE);
  ::UpdateWindow(m_hWnd);
}

LRESULT CKivColorButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
    case WM_GETTEXT:
      return quorvel::AnswerWithText(
          message, wParam, lParam,
          quorvel::Named(m_name.empty() ? GivenText() : m_name, quorvel::SpokenColor(m_color)));
    case WM_SETTEXT:
      m_name.clear();
      return CWnd::WindowProc(message, wParam, lParam);
    case WM_ERASEBKGND:
      return TRUE;  // drawn whole, so nothing flickers
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}

BOOL CKivColorButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_DRAWITEM) {
    Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    *result = TRUE;
    return TRUE;
  }
  return CWnd::OnChildNotify(message, wParam, lParam, result);
}

void CKivColorButton::Draw(const DRAWITEMSTRUCT& draw) const {
  const CRect all(draw.rcItem);
  if ((draw.itemState & (ODS_DISABLED | ODS_FOCUS | ODS_SELECTED)) == 0) {
    quorvel::FillSolid(draw.hDC, all, m_color);  // what is filled once does not flicker
    return;
  }
  const quorvel::PaintBuffer buffer(draw.hDC, all);
  const HDC deviceContext = buffer.Handle();
  if ((draw.itemState & ODS_DISABLED) != 0) {
    quorvel::FillSolid(deviceContext, all, ::GetSysColor(COLOR_BTNFACE));
    quorvel::FillSolid(deviceContext, all.Grown(-kDisabledMargin, -kDisabledMargin), m_color);
    return;
  }
  quorvel::FillSolid(deviceContext, all, m_color);
  const bool focused = (draw.itemState & ODS_FOCUS) != 0;
  if ((draw.itemState & ODS_SELECTED) != 0) {
    // Inside the focus mark: a button that is pressed has the focus.
    RECT edge = focused ? all.Grown(-kFocusWidth, -kFocusWidth) : all;
    ::DrawEdge(deviceContext, &edge, EDGE_SUNKEN, BF_RECT);
  }
  if (focused) {
    quorvel::DrawFrames(deviceContext, all, {quorvel::kBlack, quorvel::kWhite});
  }
}
