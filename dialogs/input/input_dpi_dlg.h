// CInputDpiDlg: asks for an image resolution in whole dots per inch.
#pragma once

#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

class CInputDpiDlg : public CKivDialog {
public:
  explicit CInputDpiDlg(CWnd* parent = nullptr);

  /// Runs the dialog with the caller's value and returns DoModal's result. `*dpi` is written on IDOK
  /// only. `position` may be null.
  INT_PTR Run(int* dpi, CPoint* position);

  int m_nDpi = 0;
  CPoint* m_pPosition = nullptr;

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
};
