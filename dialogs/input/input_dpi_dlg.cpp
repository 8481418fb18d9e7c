#include "dialogs/input/input_dpi_dlg.h"

#include "framework/data_exchange.h"

CInputDpiDlg::CInputDpiDlg(CWnd* parent) : CKivDialog(IDD_INPUT_DPI, parent) {}

INT_PTR CInputDpiDlg::Run(int* dpi, CPoint* position) {
  m_nDpi = *dpi;
  m_pPosition = position;
  const INT_PTR result = DoModal();
  if (result == IDOK) {
    *dpi = m_nDpi;
  }
  return result;
}

void CInputDpiDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Text(pDX, IDC_DPI_VALUE, m_nDpi);
}

BOOL CInputDpiDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}
