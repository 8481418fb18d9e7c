#include "kivfcl/kiv_dialog.h"

#include "framework/placing.h"

BEGIN_MESSAGE_MAP(CKivDialog, CDialog)
END_MESSAGE_MAP()

CKivDialog::CKivDialog(UINT templateId, CWnd* parent) : CDialog(templateId, parent) {}

void CKivDialog::MovePosition(CPoint pt, CWnd* wnd, BOOL flag) {
  if (wnd != nullptr) {
    ::ClientToScreen(wnd->m_hWnd, &pt);
  }
  if (flag != FALSE) {
    const CSize size = GetWindowRect().Size();
    const CRect wanted(pt, size);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), &monitor);
    pt = quorvel::KeptVisible(monitor.rcWork, pt, size);
  }
  MoveTo(pt);
  SetPlaced();
}

void CKivDialog::MoveToCallersPosition(const CPoint* position) {
  if (position != nullptr) {
    MovePosition(*position, nullptr, TRUE);
  }
}
