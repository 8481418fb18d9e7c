#include "dialogs/input/user_paper_set_dlg.h"

#include "dialogs/input/user_paper_text.h"
#include "framework/data_exchange.h"

namespace {

constexpr INT_PTR kResultClearAll = 20;

}  // namespace

BEGIN_MESSAGE_MAP(CUserPaperSetDlg, CKivDialog)
  ON_EN_CHANGE(IDC_PAPER_WIDTH, &CUserPaperSetDlg::OnSizeChanged)
  ON_EN_CHANGE(IDC_PAPER_HEIGHT, &CUserPaperSetDlg::OnSizeChanged)
  ON_BN_CLICKED(IDC_PAPER_CLEAR_ALL, &CUserPaperSetDlg::OnClearAll)
END_MESSAGE_MAP()

CUserPaperSetDlg::CUserPaperSetDlg(void* /*ignored*/, CWnd* parent)
    : CKivDialog(IDD_USER_PAPER, parent) {}

INT_PTR CUserPaperSetDlg::Run(CString* name, int* width, int* height, int* clearAll) {
  m_strName = *name;
  m_nWidth = *width;
  m_nHeight = *height;
  switch (DoModal()) {
    case IDOK:
      *name = m_strName;
      *width = m_nWidth;
      *height = m_nHeight;
      *clearAll = 0;
      return 1;
    case kResultClearAll:
      *clearAll = 1;
      return 1;
    case IDCANCEL:
      *clearAll = 0;
      return 0;
    default:
      return 0;
  }
}

// The name stays out of it: its field starts empty whatever the caller passed, since the host asks
// for a new paper each time.
void CUserPaperSetDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Text(pDX, IDC_PAPER_WIDTH, m_nWidth);
  DDX_Text(pDX, IDC_PAPER_HEIGHT, m_nHeight);
}

BOOL CUserPaperSetDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  OnSizeChanged();
  return TRUE;
}

void CUserPaperSetDlg::OnSizeChanged() {
  UpdateData(TRUE);  // a refused field keeps its last accepted value, which the label shows
  SetDlgItemText(IDC_PAPER_SIZE_LABEL, quorvel::PaperSizeLabel(m_nWidth, m_nHeight));
}

void CUserPaperSetDlg::OnOK() {
  UpdateData(TRUE);  // for the name; the base class reads again and decides
  m_strName = GetDlgItemText(IDC_PAPER_NAME);
  m_strName += GetDlgItemText(IDC_PAPER_SIZE_LABEL);
  CKivDialog::OnOK();
}

void CUserPaperSetDlg::OnClearAll() { EndDialog(kResultClearAll); }
