#include "dialogs/font/sel_font_ex_dlg.h"

#include "dialogs/font/font_rules.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "framework/device_context.h"

#include <initializer_list>

namespace {

void Fill(CComboBox& combo, std::initializer_list<const char*> entries, int selected) {
  for (const char* entry : entries) {
    combo.AddString(entry);
  }
  combo.SetCurSel(selected);
}

}  // namespace

BEGIN_MESSAGE_MAP(CSelFontExDlg, CSelFontDlg)
ON_BN_CLICKED(IDC_FONT_BACK_COLOUR, &CSelFontExDlg::OnBackColor)
END_MESSAGE_MAP()

CSelFontExDlg::CSelFontExDlg(CKivSysEnv* env, const char* title, BOOL fixedColor, UINT enableMask,
                             const LOGFONTA* initial, DWORD flags, HDC printer, CWnd* parent)
    : CSelFontDlg(env, title, FALSE, fixedColor, enableMask, initial, flags, printer, parent) {}

INT_PTR CSelFontExDlg::Run(CKivFontEx* font, double dotsPerMm) {
  const double rate = quorvel::EffectiveDotsPerMm(dotsPerMm);
  Show(*font, rate, IDD_SEL_FONT_EX);
  m_colorBack = quorvel::PlainColor(font->GetBackColor());
  m_nVPos = font->GetVPos();
  m_nHPos = font->GetHPos();
  const INT_PTR result = DoModal();
  if (result == IDOK) {
    const LOGFONTA logFont = ChosenLogFont();
    font->SetColor(&m_cf.rgbColors);
    font->SetLogFont(&logFont);
    font->SetV(m_dV);
    font->SetH(m_dH);
    font->SetBackColor(&m_colorBack);
    font->SetVPos(static_cast<BYTE>(m_nVPos));
    font->SetHPos(static_cast<BYTE>(m_nHPos));
    font->CalcMmToLogFont(rate);
  }
  return result;
}

void CSelFontExDlg::DoDataExchange(CDataExchange* pDX) {
  CSelFontDlg::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_FONT_VERTICAL, m_cmbVPos);
  DDX_CBIndex(pDX, IDC_FONT_VERTICAL, m_nVPos);
  DDX_Control(pDX, IDC_FONT_HORIZONTAL, m_cmbHPos);
  DDX_CBIndex(pDX, IDC_FONT_HORIZONTAL, m_nHPos);
}

BOOL CSelFontExDlg::OnInitDialog() {
  const BOOL letSystemSetFocus = CSelFontDlg::OnInitDialog();
  m_pBackColorBtn = MakeColorButton(IDC_FONT_BACK_COLOUR, m_colorBack);
  quorvel::NameControls(m_hWnd, {{IDC_FONT_BACK_COLOUR, L"背景の色"}});
  Fill(m_cmbVPos, {"上寄せ", "中央", "下寄せ"}, m_nVPos);
  Fill(m_cmbHPos, {"左寄せ", "中央", "右寄せ"}, m_nHPos);
  DisableMasked(quorvel::kExFontControls);
  return letSystemSetFocus;
}

// Neither the platform's list of colours nor the sample knows a background.
void CSelFontExDlg::OnBackColor() {
  if (AskColor(m_colorBack)) {
    m_pBackColorBtn->Recolor(m_colorBack);
  }
}
