#include "framework/device_context.h"

#include "framework/code_page.h"

#include <algorithm>

CClientDC::CClientDC(const CWnd* window)
    : m_hWnd(window->m_hWnd), m_hDC(::GetDC(window->m_hWnd)) {}

CClientDC::~CClientDC() { ::ReleaseDC(m_hWnd, m_hDC); }

CSize CClientDC::GetTextExtent(const CString& text) const {
  const std::wstring wide = quorvel::WideFromCodePage(text.View());
  CSize size;
  ::GetTextExtentPoint32W(m_hDC, wide.data(), static_cast<int>(wide.size()), &size);
  return size;
}

TEXTMETRICW CClientDC::GetTextMetrics() const {
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(m_hDC, &metrics);
  return metrics;
}

CPaintDC::CPaintDC(const CWnd* window)
    : m_hWnd(window->m_hWnd), m_hDC(::BeginPaint(window->m_hWnd, &m_paint)) {}

CPaintDC::~CPaintDC() { ::EndPaint(m_hWnd, &m_paint); }

namespace quorvel {

MemoryDC::MemoryDC(HDC deviceContext) : m_hDC(::CreateCompatibleDC(deviceContext)) {}

MemoryDC::~MemoryDC() { ::DeleteDC(m_hDC); }

namespace {

/// Not a bitmap like the target's: for its depth the display would be asked anew each time, which
/// takes longer than a small control's painting.
OwnedBitmap BufferBitmap(const CSize& size) {
  constexpr WORD kBitsOfPixel = 32;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = size.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = kBitsOfPixel;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  return OwnedBitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
}

}  // namespace

HBITMAP PaintMemory::BitmapFor(const CSize& size) {
  if (m_bitmap == nullptr || size.cx > m_size.cx || size.cy > m_size.cy) {
    m_size = {std::max(size.cx, m_size.cx), std::max(size.cy, m_size.cy)};
    m_bitmap.reset();  // both at once would be twice the memory
    m_bitmap = BufferBitmap(m_size);
  }
  return m_bitmap.get();
}

PaintBuffer::PaintBuffer(HDC target, const CRect& area, PaintMemory* memory)
    : m_target(target),
      m_area(area),
      m_memory(target),
      m_bitmap((memory != nullptr ? *memory : m_ownMemory).BitmapFor(area.Size())) {
  if (m_bitmap != nullptr) {
    m_previous = ::SelectObject(m_memory.Handle(), m_bitmap);
    ::SetViewportOrgEx(m_memory.Handle(), -area.left, -area.top, nullptr);
    ::SetBrushOrgEx(m_memory.Handle(), -area.left, -area.top, nullptr);
  }
}

PaintBuffer::~PaintBuffer() {
  if (m_bitmap != nullptr) {
    ::BitBlt(m_target, m_area.left, m_area.top, m_area.Width(), m_area.Height(),
             m_memory.Handle(), m_area.left, m_area.top, SRCCOPY);
    ::SelectObject(m_memory.Handle(), m_previous);
  }
}

void FillSolid(HDC deviceContext, const CRect& rect, COLORREF color) {
  // The stock brush takes any colour: nothing is made, so nothing can fail.
  ::SetDCBrushColor(deviceContext, PlainColor(color));
  ::FillRect(deviceContext, &rect, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

void FrameSolid(HDC deviceContext, const CRect& rect, COLORREF color) {
  ::SetDCBrushColor(deviceContext, PlainColor(color));
  ::FrameRect(deviceContext, &rect, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

void FillFramed(HDC deviceContext, const CRect& rect, COLORREF color) {
  FillSolid(deviceContext, rect, color);
  ::FrameRect(deviceContext, &rect, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
}

}  // namespace quorvel
