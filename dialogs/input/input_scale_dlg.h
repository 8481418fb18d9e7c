// CInputScaleDlg: asks for a drawing scale written as "1 /" n.
#pragma once

#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

class CInputScaleDlg : public CKivDialog {
public:
  explicit CInputScaleDlg(CWnd* parent = nullptr);

  /// Runs the dialog with the caller's values and returns DoModal's result. `*scale` is written on
  /// IDOK only. `position` may be null.
  INT_PTR Run(const char* title, const char* comment, double* scale, CPoint* position);

  CString m_strComment;
  CString m_strScale;
  CString m_strTitle;
  CPoint* m_pPosition = nullptr;

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
};
