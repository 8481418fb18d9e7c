#include "dialogs/layout/layout_cel_size_edit_dlg.h"

#include "framework/control_names.h"
#include "framework/message_box.h"

#include <optional>

BEGIN_MESSAGE_MAP(CLayoutCelSizeEditDlg, CKivDialog)
  ON_EN_KILLFOCUS(IDC_CEL_SIZE_FIRST, &CLayoutCelSizeEditDlg::OnFirstLeft)
  ON_EN_KILLFOCUS(IDC_CEL_SIZE_SECOND, &CLayoutCelSizeEditDlg::OnSecondLeft)
END_MESSAGE_MAP()

CLayoutCelSizeEditDlg::CLayoutCelSizeEditDlg(float* first, float* second, CWnd* parent)
    : CKivDialog(IDD_LAYOUT_CEL_SIZE, parent),
      m_pFirst(first),
      m_pSecond(second),
      m_sizes(*first, *second) {}

BOOL CLayoutCelSizeEditDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  SetDlgItemText(IDC_CEL_SIZE_FIRST, quorvel::CelSizeText(*m_pFirst));
  SetDlgItemText(IDC_CEL_SIZE_SECOND, quorvel::CelSizeText(*m_pSecond));
  // Of a column's border, or of a row's.
  quorvel::NameControls(m_hWnd, {{IDC_CEL_SIZE_FIRST, L"左または上の長さ"},
                                 {IDC_CEL_SIZE_SECOND, L"右または下の長さ"}});
  return TRUE;
}

void CLayoutCelSizeEditDlg::OnFirstLeft() { OnLeft(IDC_CEL_SIZE_FIRST, IDC_CEL_SIZE_SECOND); }

void CLayoutCelSizeEditDlg::OnSecondLeft() { OnLeft(IDC_CEL_SIZE_SECOND, IDC_CEL_SIZE_FIRST); }

void CLayoutCelSizeEditDlg::OnLeft(int left, int other) {
  // Windows change places around a message, so a refused field may lose the focus once more after it.
  const bool inDialog = ::IsChild(m_hWnd, ::GetFocus()) != FALSE;
  if (m_bLeadingBack || (m_bRefused && !inDialog)) {
    return;
  }
  m_bRefused = false;
  const quorvel::CelSizes::Texts texts = m_sizes.AfterLeaving(GetDlgItemText(left));
  SetDlgItemText(left, texts.left);
  SetDlgItemText(other, texts.other);
}

// The second field needs no reading: both always make up the sum.
void CLayoutCelSizeEditDlg::OnOK() {
  const std::optional<quorvel::CelSizes::Lengths> lengths =
      m_sizes.Confirmed(GetDlgItemText(IDC_CEL_SIZE_FIRST));
  if (!lengths) {
    m_bRefused = true;
    m_bLeadingBack = true;
    AfxMessageBox("値が不正です。＋値を設定してください。", MB_OK | MB_ICONEXCLAMATION);
    GotoDlgCtrl(GetDlgItem(IDC_CEL_SIZE_FIRST));
    m_bLeadingBack = false;
    return;
  }
  *m_pFirst = lengths->first;
  *m_pSecond = lengths->second;
  CKivDialog::OnOK();
}
