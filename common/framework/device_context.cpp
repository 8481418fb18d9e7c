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

HDC PaintMemory::DeviceContextFor(HDC target, const CSize& size) {
  if (!m_bitmap || size.cx > m_size.cx || size.cy > m_size.cy) {
    m_size = {std::max(size.cx, m_size.cx), std::max(size.cy, m_size.cy)};
    // Before the new one is made: both at once would be twice the memory.
    m_selected.reset();
    m_bitmap.reset();
    m_deviceContext.emplace(target);
    if (m_deviceContext->Handle() != nullptr) {
      m_bitmap = BufferBitmap(m_size);
      m_selected.emplace(m_deviceContext->Handle(), m_bitmap.get());
    }
  }
  return m_bitmap ? m_deviceContext->Handle() : nullptr;
}

PaintBuffer::PaintBuffer(HDC target, const CRect& area, PaintMemory* memory)
    : m_target(target),
      m_area(area),
      m_hDC((memory != nullptr ? *memory : m_ownMemory).DeviceContextFor(target, area.Size())) {
  if (m_hDC != nullptr) {
    m_stateBefore = ::SaveDC(m_hDC);
    if (m_stateBefore == 0) {
      m_hDC = nullptr;  // what is set now would stay for the next painting
      return;
    }
    ::SetViewportOrgEx(m_hDC, -area.left, -area.top, nullptr);
    ::SetBrushOrgEx(m_hDC, -area.left, -area.top, nullptr);
    // The bitmap may be much larger, and what is drawn beside the area takes as long.
    ::IntersectClipRect(m_hDC, area.left, area.top, area.right, area.bottom);
  }
}

PaintBuffer::~PaintBuffer() {
  if (m_hDC != nullptr) {
    ::BitBlt(m_target, m_area.left, m_area.top, m_area.Width(), m_area.Height(), m_hDC, m_area.left,
             m_area.top, SRCCOPY);
    ::RestoreDC(m_hDC, m_stateBefore);
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

void FillAsBehind(HDC deviceContext, HWND control) {
  // The parent knows.
  auto* const brush = reinterpret_cast<HBRUSH>(
      ::SendMessageW(::GetParent(control), WM_CTLCOLORSTATIC,
                     reinterpret_cast<WPARAM>(deviceContext), reinterpret_cast<LPARAM>(control)));
  RECT client{};
  ::GetClientRect(control, &client);
  ::FillRect(deviceContext, &client, brush != nullptr ? brush : ::GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace quorvel
