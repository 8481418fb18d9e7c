#include "dialogs/input/input_scale_dlg.h"

#include "dialogs/input/scale_field.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"

CInputScaleDlg::CInputScaleDlg(CWnd* parent) : CKivDialog(IDD_INPUT_SCALE, parent) {}

INT_PTR CInputScaleDlg::Run(const char* title, const char* comment, double* scale,
                            CPoint* position) {
  m_strTitle = title;
  m_strComment = comment;
  m_strScale = quorvel::ScaleText(*scale);
  m_pPosition = position;
  const INT_PTR result = DoModal();
  if (result == IDOK) {
    *scale = quorvel::ScaleOfText(m_strScale);
  }
  return result;
}

void CInputScaleDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Text(pDX, IDC_INPUT_COMMENT, m_strComment);
  DDX_Text(pDX, IDC_INPUT_VALUE, m_strScale);
}

BOOL CInputScaleDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  SetWindowText(m_strTitle);
  quorvel::NameControls(m_hWnd, {{IDC_INPUT_VALUE, L"縮尺 1 /"}});
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}
