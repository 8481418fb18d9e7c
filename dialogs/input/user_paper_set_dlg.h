// CUserPaperSetDlg: asks for the name and the size of a paper of the user's own, or for all of them
// to be deleted.
#pragma once

#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

class CUserPaperSetDlg : public CKivDialog {
public:
  explicit CUserPaperSetDlg(void* ignored, CWnd* parent = nullptr);

  /// Runs the dialog with the caller's values. Returns 1 when confirmed: the name, ending with the
  /// size, and the size are written and `*clearAll` is 0; or when all papers are to be deleted:
  /// `*clearAll` is 1 and nothing else is written. Returns 0 otherwise: `*clearAll` is 0 after a
  /// cancel and untouched after a failure.
  virtual INT_PTR Run(CString* name, int* width, int* height, int* clearAll);

  CString m_strName;
  int m_nWidth = 0;   ///< in millimetres
  int m_nHeight = 0;  ///< in millimetres

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnSizeChanged();
  void OnClearAll();

  DECLARE_MESSAGE_MAP()
};
