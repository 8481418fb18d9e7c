#include "kivfcl/kiv_color_button.h"

#include "framework/device_context.h"

#include <algorithm>
#include <string>

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr int kDisabledMargin = 3;

void Frame(HDC deviceContext, const CRect& rect, COLORREF color) {
  ::SetDCBrushColor(deviceContext, color);
  ::FrameRect(deviceContext, &rect, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

std::wstring SpokenText(COLORREF color) {
  return L"赤 " + std::to_wstring(GetRValue(color)) + L" 緑 " + std::to_wstring(GetGValue(color)) +
         L" 青 " + std::to_wstring(GetBValue(color));
}

}  // namespace

void CKivColorButton::Recolor(COLORREF color) {
  m_color = color;
  ::SendMessageW(m_hWnd, BM_SETSTYLE, LOWORD(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)), TRUE);
}

LRESULT CKivColorButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(SpokenText(m_color).size());
    case WM_GETTEXT:
      return CopySpokenText(wParam, reinterpret_cast<wchar_t*>(lParam));
    case WM_ERASEBKGND:
      return TRUE;  // drawn whole, so nothing flickers
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}

LRESULT CKivColorButton::CopySpokenText(WPARAM capacity, wchar_t* text) const {
  if (capacity == 0 || text == nullptr) {
    return 0;
  }
  const std::wstring spoken = SpokenText(m_color);
  const std::size_t length = std::min<std::size_t>(spoken.size(), capacity - 1);
  std::copy_n(spoken.begin(), length, text);
  text[length] = L'\0';
  return static_cast<LRESULT>(length);
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
  if ((draw.itemState & ODS_DISABLED) != 0) {
    quorvel::FillSolid(draw.hDC, all, ::GetSysColor(COLOR_BTNFACE));
    quorvel::FillSolid(draw.hDC, all.Grown(-kDisabledMargin, -kDisabledMargin), m_color);
    return;
  }
  quorvel::FillSolid(draw.hDC, all, m_color);
  if ((draw.itemState & ODS_SELECTED) != 0) {
    RECT edge = all;
    ::DrawEdge(draw.hDC, &edge, EDGE_SUNKEN, BF_RECT);
  }
  if ((draw.itemState & ODS_FOCUS) != 0) {
    Frame(draw.hDC, all, kBlack);
    Frame(draw.hDC, all.Grown(-1, -1), kWhite);
  }
}
