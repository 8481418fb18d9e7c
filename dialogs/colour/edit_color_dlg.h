// CEditColorDlg: edits a colour in RGB, CMYK or HSB.
//
//   CEditColorDlg dialog(env, color, position, nullptr);
//   if (dialog.DoModal() == IDOK) color = dialog.m_color;
#pragma once

#include "dialogs/colour/edit_color.h"
#include "kivfcl/kiv_dialog.h"

#include <memory>

class CEditColorDlg : public CKivDialog {
public:
  /// `env` and `position` may be null and stay the caller's.
  CEditColorDlg(CKivSysEnv* env, COLORREF color, CPoint* position, CWnd* parent);

  CKivSysEnv* m_pSysEnv;
  CPoint* m_pPosition;
  /// The colour given, and the result after IDOK.
  COLORREF m_color;

protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

private:
  void MoveButtonsBelow(int bottom);

  std::unique_ptr<CEditColor> m_pPage;
};
