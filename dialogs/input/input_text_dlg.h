// CInputTextDlg: asks for one line of text under a title and a comment.
#pragma once

#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

class CInputTextDlg : public CKivDialog {
public:
  /// The texts are copied; null reads as empty. `position` may be null and is not owned.
  CInputTextDlg(const char* title, const char* comment, const char* text, CPoint* position,
                CWnd* parent = nullptr);

  CString m_strComment;
  CString m_strText;  ///< in and out
  CString m_strTitle;
  CPoint* m_pPosition;

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
};
