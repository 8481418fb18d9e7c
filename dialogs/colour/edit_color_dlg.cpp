#include "dialogs/colour/edit_color_dlg.h"

#include "kivfcl/display_rate.h"

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
  // With a low font the place is not as tall as the page's rows, which do not follow the font. What
  // is missing is free below it; where even that is too little, the buttons give way.
  CRect place = GetDlgItemRect(IDC_COLOUR_PLACE);
  place.bottom = std::max<LONG>(place.bottom, place.top + m_pPage->GetNeededHeight());
  m_pPage->MoveWindow(place);
  MoveButtonsBelow(place.bottom);
  ::ShowWindow(m_pPage->m_hWnd, SW_SHOWNA);
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}

void CEditColorDlg::MoveButtonsBelow(int bottom) {
  const CRect ok = GetDlgItemRect(IDOK);
  const CRect cancel = GetDlgItemRect(IDCANCEL);
  const int shift = bottom - static_cast<int>(ok.top);
  // At 100 % the dialog keeps its template's size: what overlaps there is a row's lower edge at most.
  if (shift <= 0 || __KivFcl_GetDispRate() == 1.0) {
    return;
  }
  MoveDlgItem(IDOK, {ok.left, ok.top + shift});
  MoveDlgItem(IDCANCEL, {cancel.left, cancel.top + shift});
  const CSize size = GetWindowRect().Size();
  ResizeTo({size.cx, size.cy + shift});
}

void CEditColorDlg::OnOK() {
  m_pPage->TakeTyped();
  m_color = m_pPage->GetColor();
  CDialog::OnOK();
}
