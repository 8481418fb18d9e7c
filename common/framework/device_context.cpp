#include "framework/device_context.h"

#include "framework/code_page.h"

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
