#include "framework/dpi_awareness.h"

#include "framework/placing.h"

namespace {

using SetContext = QuorvelDpiContext*(WINAPI*)(QuorvelDpiContext*);

/// Null on a Windows that has none.
SetContext FindSetContext() {
  // By way of void*, since the type found there is another's.
  return reinterpret_cast<SetContext>(reinterpret_cast<void*>(::GetProcAddress(
      ::GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext")));
}

QuorvelDpiContext* SetThreadContext(QuorvelDpiContext* context) {
  static const SetContext set = FindSetContext();
  return set != nullptr ? set(context) : nullptr;
}

/// DPI_AWARENESS_CONTEXT_SYSTEM_AWARE.
QuorvelDpiContext* SystemAware() {
  constexpr INT_PTR kSystemAware = -2;
  return reinterpret_cast<QuorvelDpiContext*>(kSystemAware);
}

CRect AreaOf(HMONITOR monitor) {
  MONITORINFO information{};
  information.cbSize = sizeof information;
  ::GetMonitorInfoW(monitor, &information);
  return information.rcMonitor;
}

}  // namespace

namespace quorvel {

SystemDpiAwareness::SystemDpiAwareness() : m_pPrevious(SetThreadContext(SystemAware())) {}

SystemDpiAwareness::~SystemDpiAwareness() {
  if (m_pPrevious != nullptr) {
    SetThreadContext(m_pPrevious);
  }
}

CallersPoint::CallersPoint(const CPoint* point) : m_pPoint(point) {
  if (m_pPoint != nullptr) {
    m_hMonitor = ::MonitorFromPoint(*m_pPoint, MONITOR_DEFAULTTONEAREST);
    m_callersArea = AreaOf(m_hMonitor);
  }
}

CPoint* CallersPoint::Here() {
  if (m_pPoint == nullptr) {
    return nullptr;
  }
  m_here = Rescaled(*m_pPoint, m_callersArea, AreaOf(m_hMonitor));
  return &m_here;
}

}  // namespace quorvel
