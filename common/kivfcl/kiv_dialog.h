// CKivDialog: the base of the dialogs; a dialog that can be placed at a point of the screen.
//
//   BOOL CInputDpiDlg::OnInitDialog() {
//     CKivDialog::OnInitDialog();
//     MoveToCallersPosition(m_pPosition);
#pragma once

#include "framework/dialog.h"
#include "kivfcl/kivfcl_export.h"

class KIVFCL_API CKivDialog : public CDialog {
public:
  explicit CKivDialog(UINT templateId, CWnd* parent = nullptr);
  ~CKivDialog() override = default;

protected:
  /// Moves the dialog's top-left corner to `pt`: client pixels of `wnd`, or screen pixels where that
  /// is null. With `flag` a point at which the dialog fits on its monitor, beside the task bar, is
  /// taken exactly and any other is moved by the least that makes the whole dialog visible; without
  /// it every point is taken as it is.
  void MovePosition(CPoint pt, CWnd* wnd, BOOL flag);

  /// How a dialog ends its OnInitDialog: MovePosition(*position, nullptr, TRUE), or nothing where
  /// the caller gave no position.
  void MoveToCallersPosition(const CPoint* position);

  DECLARE_MESSAGE_MAP()
};
