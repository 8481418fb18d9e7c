#include "kivfcl/drawing_objects.h"

#include "framework/wide_font.h"

namespace {

constexpr COLORREF kHighestBits = RGB(0x80, 0x80, 0x80);

quorvel::OwnedFont MakeFont(const LOGFONTA& font) {
  const LOGFONTW wide = quorvel::WideLogFont(font);
  return quorvel::OwnedFont(::CreateFontIndirectW(&wide));
}

}  // namespace

CPenEx::CPenEx(HDC deviceContext, int style, int width, COLORREF color)
    : m_pen(::CreatePen(style, width, color)), m_selected(deviceContext, m_pen.get()) {}

CXorPenEx::CXorPenEx(HDC deviceContext, int style, int width, COLORREF color)
    : m_pen(deviceContext, style, width, color | kHighestBits),
      m_hDC(deviceContext),
      m_nPreviousOperation(::SetROP2(deviceContext, R2_XORPEN)),
      m_nPreviousBackground(::SetBkMode(deviceContext, TRANSPARENT)) {}

CXorPenEx::~CXorPenEx() {
  ::SetBkMode(m_hDC, m_nPreviousBackground);
  ::SetROP2(m_hDC, m_nPreviousOperation);
}

CBrushEx::CBrushEx(HDC deviceContext, COLORREF color)
    : m_brush(::CreateSolidBrush(color)), m_selected(deviceContext, m_brush.get()) {}

CFontEx::CFontEx(HDC deviceContext, const LOGFONTA& font)
    : m_font(MakeFont(font)), m_selected(deviceContext, m_font.get()) {}
