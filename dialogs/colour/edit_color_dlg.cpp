#include "dialogs/colour/edit_color_dlg.h"

#include <algorithm>

CEditColorDlg::CEditColorDlg(CKivSysEnv* env, COLORREF color, CPoint* position, CWnd* parent)
    : CKivDialog(IDD_COLOUR_EDIT, parent),
      m_pSysEnv(env),
      m_pPosition(position),
      m_color(color),
      m_pPage(std::make_unique<CEditColor>(env, color, this)) {}

BOOL CEditColorDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  if (m_pPage->Create(IDD_COLOUR_EDIT_PAGE, this) == FALSE) {
    EndDialog(-1);
    return FALSE;
  }
  // With a low font the place is not as tall as the page's rows, which do not follow the font; what
  // is missing is free below it.
  CRect place = GetDlgItemRect(IDC_COLOUR_PLACE);
  place.bottom = std::max<LONG>(place.bottom, place.top + m_pPage->GetNeededHeight());
  m_pPage->MoveWindow(place);
  ::ShowWindow(m_pPage->m_hWnd, SW_SHOWNA);
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}

void CEditColorDlg::OnOK() {
  m_pPage->TakeTyped();
  m_color = m_pPage->GetColor();
  CDialog::OnOK();
}
