#include "dialogs/font/sel_font_dlg.h"

#include "dialogs/colour/sel_color.h"
#include "dialogs/font/font_rules.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "framework/device_context.h"
#include "framework/module_state.h"

#include <algorithm>
#include <string>

namespace {

constexpr DWORD kFlags = CF_SCREENFONTS | CF_ENABLEHOOK | CF_ENABLETEMPLATE |
                         CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_FORCEFONTEXIST | CF_TTONLY;

/// Where the caller's colour stands in the platform's list: behind its 16.
constexpr WPARAM kOwnColor = 16;
/// Where the sample's size stands in the platform's list.
constexpr WPARAM kOwnSize = 1;
/// The least that Windows takes for a size.
constexpr int kLeastPoints = 1;
constexpr int kMostDrawnPoints = 1000;
/// No size, so that one is seen to come.
constexpr INT kNotTaken = -1;

constexpr double kLeastMillimetres = 0.0;
constexpr double kMostMillimetres = 9999.0;

/// `shown` is the value that the field showed first: while it shows that, the value is exactly
/// that.
void DDX_Millimetres(CDataExchange* pDX, int id, double& value, double shown) {
  pDX->PrepareEditCtrl(id);
  if (pDX->m_bSaveAndValidate == FALSE) {
    pDX->m_pDlgWnd->SetDlgItemText(id, quorvel::MillimetreText(value));
  } else if (pDX->m_pDlgWnd->GetDlgItemText(id) == quorvel::MillimetreText(shown)) {
    value = shown;
  } else {
    DDX_Text(pDX, id, value);
  }
  DDV_MinMaxDouble(pDX, value, kLeastMillimetres, kMostMillimetres);
}

}  // namespace

BEGIN_MESSAGE_MAP(CSelFontDlg, CFontDialog)
ON_BN_CLICKED(IDC_FONT_STRIKEOUT, &CSelFontDlg::OnStrikeOut)
ON_BN_CLICKED(IDC_FONT_COLOUR, &CSelFontDlg::OnColor)
ON_EN_CHANGE(IDC_FONT_HEIGHT, &CSelFontDlg::OnHeightChanged)
END_MESSAGE_MAP()

CSelFontDlg::CSelFontDlg(CKivSysEnv* env, const char* title, BOOL showStrikeType, BOOL fixedColor,
                         UINT enableMask, const LOGFONTA* initial, DWORD flags, HDC printer,
                         CWnd* parent)
    : CFontDialog(initial, flags, printer, parent),
      m_pSysEnv(env),
      m_pszTitle(title),
      m_bShowStrikeType(showStrikeType),
      m_bFixedColor(fixedColor),
      m_nEnableMask(enableMask) {}

INT_PTR CSelFontDlg::Run(CKivFont* font, double dotsPerMm) {
  const double rate = quorvel::EffectiveDotsPerMm(dotsPerMm);
  Show(*font, rate, IDD_SEL_FONT);
  m_nStrikeType = font->GetStrikeOutType();
  const INT_PTR result = DoModal();
  if (result == IDOK) {
    const LOGFONTA logFont = ChosenLogFont();
    font->SetLogFont(&logFont);
    font->SetStrikeOutType(static_cast<BYTE>(m_nStrikeType));
    font->SetColor(&m_cf.rgbColors);
    font->SetV(m_dV);
    font->SetH(m_dH);
    font->CalcMmToLogFont(rate);
  }
  return result;
}

void CSelFontDlg::Show(const CKivFont& font, double dotsPerMm, UINT templateId) {
  const LOGFONTA logFont = font.GetLogFont(1);
  SetCurrentFont(logFont);
  m_nHeight = logFont.lfHeight;
  m_cf.Flags = kFlags;
  m_cf.nFontType = SCREEN_FONTTYPE;
  m_cf.rgbColors = quorvel::PlainColor(font.GetColor());
  m_cf.lpTemplateName = MAKEINTRESOURCEW(templateId);
  m_cf.hInstance = AfxGetResourceHandle();

  CKivFont sizes = font;  // the host keeps its own until the user confirms
  sizes.CalcLogFontToMm(dotsPerMm);
  m_dV = m_dShownV = sizes.GetV();
  m_dH = m_dShownH = sizes.GetH();
}

LOGFONTA CSelFontDlg::ChosenLogFont() const {
  LOGFONTA logFont = GetCurrentFont();
  // The platform's height is that of the sample; only the millimetres count. The sign of the one
  // that went in tells character from cell height.
  logFont.lfHeight = m_nHeight;
  return logFont;
}

void CSelFontDlg::DoDataExchange(CDataExchange* pDX) {
  CFontDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_FONT_STRIKE_TYPE, m_cmbStrikeType);
  DDX_CBIndex(pDX, IDC_FONT_STRIKE_TYPE, m_nStrikeType);
  DDX_Millimetres(pDX, IDC_FONT_HEIGHT, m_dV, m_dShownV);
  DDX_Millimetres(pDX, IDC_FONT_WIDTH, m_dH, m_dShownH);
}

BOOL CSelFontDlg::OnInitDialog() {
  CFontDialog::OnInitDialog();
  m_cmbStrikeType.ResetContent();
  m_cmbStrikeType.AddString("1本");
  m_cmbStrikeType.AddString("2本");
  m_cmbStrikeType.SetCurSel(m_nStrikeType);
  EnableStrikeType();
  if (m_bShowStrikeType == FALSE) {
    ::ShowWindow(m_cmbStrikeType.m_hWnd, SW_HIDE);
  }
  FeedSample();
  PutColorIntoList();
  if (m_pszTitle != nullptr) {
    SetWindowText(m_pszTitle);
  }
  m_pColorBtn = MakeColorButton(IDC_FONT_COLOUR, m_cf.rgbColors);
  quorvel::NameControls(
      m_hWnd, {{IDC_FONT_STRIKE_TYPE, L"取り消し線の種類"}, {IDC_FONT_COLOUR, L"文字の色"}});
  DisableMasked(quorvel::kFontControls);
  return BeginAtHeight() ? FALSE : TRUE;
}

/// The size is what the platform's own dialog does not ask for, and what feeds its sample. False
/// where the host has disabled it: the first control has the focus then.
bool CSelFontDlg::BeginAtHeight() {
  const HWND height = GetDlgItem(IDC_FONT_HEIGHT);
  if (::IsWindowEnabled(height) == FALSE) {
    return false;
  }
  GotoDlgCtrl(height);
  return true;
}

void CSelFontDlg::DisableMasked(std::span<const quorvel::MaskedControl> controls) {
  for (const quorvel::MaskedControl& control : controls) {
    if ((m_nEnableMask & control.bit) == 0) {
      ::EnableWindow(GetDlgItem(control.id), FALSE);
    }
  }
}

void CSelFontDlg::EnableStrikeType() {
  const bool checked =
      ::SendMessageW(GetDlgItem(IDC_FONT_STRIKEOUT), BM_GETCHECK, 0, 0) == BST_CHECKED;
  ::EnableWindow(m_cmbStrikeType.m_hWnd, checked && m_bFixedColor == FALSE ? TRUE : FALSE);
}

void CSelFontDlg::OnStrikeOut() {
  if (UpdateData(TRUE) != FALSE && m_bShowStrikeType != FALSE) {
    EnableStrikeType();
  }
}

void CSelFontDlg::OnColor() {
  if (!AskColor(m_cf.rgbColors)) {
    return;
  }
  m_pColorBtn->Recolor(m_cf.rgbColors);
  ::SendMessageW(GetDlgItem(IDC_FONT_COLOURS), CB_DELETESTRING, kOwnColor, 0);
  PutColorIntoList();
  OnHeightChanged();
}

bool CSelFontDlg::AskColor(COLORREF& color) {
  if (m_bFixedColor != FALSE) {
    return false;
  }
  CSelColor dialog(m_pSysEnv, color, nullptr, this);
  if (dialog.DoModal() != IDOK) {
    return false;
  }
  color = dialog.m_colorSel;
  return true;
}

std::unique_ptr<CKivColorButton> CSelFontDlg::MakeColorButton(UINT id, COLORREF color) {
  auto button = std::make_unique<CKivColorButton>();
  button->m_color = color;  // nothing of it has been painted yet
  button->SubclassDlgItem(id, this);
  return button;
}

void CSelFontDlg::PutColorIntoList() {
  const HWND colors = GetDlgItem(IDC_FONT_COLOURS);
  ::SendMessageW(colors, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L""));
  ::SendMessageW(colors, CB_SETITEMDATA, kOwnColor, static_cast<LPARAM>(m_cf.rgbColors));
  ::SendMessageW(colors, CB_SETCURSEL, kOwnColor, 0);
  // Wine looks at the selection only when it is told of it; Windows also when the user confirms.
  TellPlatform(IDC_FONT_COLOURS, CBN_SELCHANGE);
}

void CSelFontDlg::OnHeightChanged() {
  m_dV = quorvel::MillimetresOfText(GetDlgItemText(IDC_FONT_HEIGHT), m_dShownV);
  FeedSample();
  ::SendMessageW(GetDlgItem(IDC_FONT_SIZE), CB_SETTOPINDEX, kOwnSize, 0);
  FocusHeight();
}

void CSelFontDlg::FeedSample() {
  PutSize(quorvel::SamplePoints(m_dV));
}

void CSelFontDlg::PutSize(int points) {
  const HWND sizes = GetDlgItem(IDC_FONT_SIZE);
  const std::wstring text = std::to_wstring(points);
  ::SendMessageW(sizes, CB_DELETESTRING, kOwnSize, 0);
  ::SendMessageW(sizes, CB_INSERTSTRING, kOwnSize, reinterpret_cast<LPARAM>(text.c_str()));
  // Wine takes the size of a selected entry from its data, Windows from its text. Wine would also
  // be busy for minutes with letters of the size of a house, of which the sample shows a corner.
  ::SendMessageW(sizes, CB_SETITEMDATA, kOwnSize, std::clamp(points, 0, kMostDrawnPoints));
  ::SendMessageW(sizes, CB_SETCURSEL, kOwnSize, 0);
  // Wine takes the size into its sample when it is told of a selection, Windows when the list loses
  // the focus. Which it is shows in the record: the one writes into it at once, the other at the
  // end.
  m_cf.iPointSize = kNotTaken;
  TellPlatform(IDC_FONT_SIZE, CBN_SELCHANGE);
  if (m_cf.iPointSize == kNotTaken) {
    MoveFocusThroughSizes();
  }
}

void CSelFontDlg::MoveFocusThroughSizes() {
  const HWND focused = ::GetFocus();
  ::SetFocus(GetDlgItem(IDC_FONT_SIZE));
  ::SetFocus(focused);
}

void CSelFontDlg::FocusHeight() {
  const HWND height = GetDlgItem(IDC_FONT_HEIGHT);
  // A field that the host has disabled cannot have it.
  if (::IsWindowEnabled(height) != FALSE) {
    ::SetFocus(height);
  }
}

void CSelFontDlg::OnAccepted() {
  // Windows would refuse the size of 0 that a height of next to nothing gives.
  if (quorvel::SamplePoints(m_dV) == 0) {
    PutSize(kLeastPoints);
  }
}
