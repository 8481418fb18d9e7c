#include "dialogs/input/input_point_dlg.h"

#include "framework/data_exchange.h"
#include "kivfcl/display_rate.h"

BEGIN_MESSAGE_MAP(CInputPointDlg, CKivDialog)
  ON_BN_CLICKED(IDC_POINT_MOUSE, &CInputPointDlg::OnMousePick)
END_MESSAGE_MAP()

CInputPointDlg::CInputPointDlg(CWnd* parent) : CKivDialog(IDD_INPUT_POINT, parent) {}

INT_PTR CInputPointDlg::Run(double* point, Coordinates coordinates, BOOL allowMousePick,
                            CPoint* position) {
  const bool hasZ = coordinates == Coordinates::kXYZ;
  m_nMode = (hasZ ? kModeXYZ : 0) | (allowMousePick != FALSE ? kModeMousePick : 0);
  m_pPosition = position;
  m_texts = quorvel::TextsOfPoint(point, hasZ);
  const INT_PTR result = DoModal();
  if (result == IDOK) {
    quorvel::ReadPoint(m_texts, hasZ, point);
  }
  return result;
}

void CInputPointDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Text(pDX, IDC_POINT_X, m_texts.x);
  DDX_Text(pDX, IDC_POINT_Y, m_texts.y);
  DDX_Text(pDX, IDC_POINT_Z, m_texts.z);
}

BOOL CInputPointDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  if ((m_nMode & kModeXYZ) == 0) {
    CloseUpToTwoCoordinates();
  }
  if ((m_nMode & kModeMousePick) == 0) {
    ::ShowWindow(GetDlgItem(IDC_POINT_MOUSE), SW_HIDE);
  }
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}

void CInputPointDlg::CloseUpToTwoCoordinates() {
  const int shift =
      quorvel::ButtonShift(GetDlgItemRect(IDC_POINT_Y).bottom, GetDlgItemRect(IDOK).top,
                           __KivFcl_GetDispRate());
  for (const int id : {IDOK, IDCANCEL, IDC_POINT_MOUSE}) {
    const CRect rect = GetDlgItemRect(id);
    ::MoveWindow(GetDlgItem(id), rect.left, rect.top + shift, rect.Width(), rect.Height(), TRUE);
  }
  const CSize size = GetWindowRect().Size();
  ResizeTo({static_cast<int>(size.cx), static_cast<int>(size.cy) + shift});
  ::ShowWindow(GetDlgItem(IDC_POINT_Z_LABEL), SW_HIDE);
  ::ShowWindow(GetDlgItem(IDC_POINT_Z), SW_HIDE);
}

void CInputPointDlg::OnMousePick() { EndDialog(IDC_POINT_MOUSE); }
