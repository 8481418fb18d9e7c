// The scale at which a call's dialogs are measured, whatever the host's program says of itself.
//
//   quorvel::CallersPoint callers(position);    // while the thread is still as the host has it
//   const quorvel::SystemDpiAwareness crisp;
//   dialog.MovePosition(*callers.Here(), nullptr, TRUE);
#pragma once

#include "framework/frame_export.h"
#include "framework/geometry.h"

/// One more name for a handle, so that no host needs the headers of Windows 10.
struct QuorvelDpiContext;

namespace quorvel {

/// While it lives, this thread sees the display at the system's own scale: windows made then are
/// drawn at that scale and never stretched as pictures. The host's own windows stay as they are. On
/// a Windows that knows no scale of a thread (before 10, 1607) it does nothing.
class FRAME_API SystemDpiAwareness {
public:
  SystemDpiAwareness();
  ~SystemDpiAwareness();
  SystemDpiAwareness(const SystemDpiAwareness&) = delete;
  SystemDpiAwareness& operator=(const SystemDpiAwareness&) = delete;

private:
  QuorvelDpiContext* m_pPrevious;  ///< null where the thread was left alone
};

/// A point on the screen in the caller's pixels, to be asked for in those of the thread as it is then.
class FRAME_API CallersPoint {
public:
  /// `point` may be null.
  explicit CallersPoint(const CPoint* point);

  /// The same place on the same monitor, in this object; null if there is no point.
  CPoint* Here();

private:
  const CPoint* m_pPoint;
  HMONITOR m_hMonitor = nullptr;
  CRect m_callersArea;
  CPoint m_here;
};

}  // namespace quorvel
