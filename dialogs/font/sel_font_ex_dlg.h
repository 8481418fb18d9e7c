// CSelFontExDlg: the font of a cell, with its background colour and the place of the text in it.
//
//   CSelFontExDlg dialog(env, title, fixedColor, enableMask);
//   if (dialog.Run(font, dotsPerMm) == IDOK) { /* *font is what the user chose */ }
#pragma once

#include "dialogs/font/sel_font_dlg.h"
#include "kivdata/kiv_font_ex.h"

/// As CSelFontDlg, but that it never shows the type of strike-out.
class CSelFontExDlg : public CSelFontDlg {
public:
  CSelFontExDlg(CKivSysEnv* env, const char* title, BOOL fixedColor, UINT enableMask,
                const LOGFONTA* initial = nullptr, DWORD flags = CF_EFFECTS | CF_SCREENFONTS,
                HDC printer = nullptr, CWnd* parent = nullptr);

  /// As CSelFontDlg::Run. The font's type of strike-out is neither read nor written.
  INT_PTR Run(CKivFontEx* font, double dotsPerMm);

  CComboBox m_cmbVPos;
  CComboBox m_cmbHPos;
  COLORREF m_colorBack = RGB(255, 255, 255);
  int m_nVPos = 0;  ///< 0 top, 1 centre, 2 bottom
  int m_nHPos = 0;  ///< 0 left, 1 centre, 2 right
  std::unique_ptr<CKivColorButton> m_pBackColorBtn;

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnBackColor();

  DECLARE_MESSAGE_MAP()
};
