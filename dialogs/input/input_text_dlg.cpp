#include "dialogs/input/input_text_dlg.h"

#include "framework/code_page.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"

CInputTextDlg::CInputTextDlg(const char* title, const char* comment, const char* text,
                             CPoint* position, CWnd* parent)
    : CKivDialog(IDD_INPUT_TEXT, parent),
      m_strComment(comment),
      m_strText(text),
      m_strTitle(title),
      m_pPosition(position) {}

void CInputTextDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Text(pDX, IDC_INPUT_COMMENT, m_strComment);
  DDX_Text(pDX, IDC_INPUT_VALUE, m_strText);
}

BOOL CInputTextDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  SetWindowText(m_strTitle);
  if (m_strComment.IsEmpty()) {
    // Otherwise the comment is the name.
    quorvel::NameControls(
        m_hWnd, {{IDC_INPUT_VALUE, quorvel::WideFromCodePage(m_strTitle.View()).c_str()}});
  }
  MoveToCallersPosition(m_pPosition);
  constexpr WPARAM kNoLimit = 0;
  ::SendDlgItemMessageW(m_hWnd, IDC_INPUT_VALUE, EM_SETLIMITTEXT, kNoLimit, 0);
  // The system would give the focus to the OK button, which comes first: the user is here to type.
  GotoDlgCtrl(GetDlgItem(IDC_INPUT_VALUE));
  return FALSE;
}
