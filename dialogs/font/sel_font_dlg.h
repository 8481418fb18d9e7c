// CSelFontDlg: a font whose size is told in millimetres, with its colour and strike-out lines.
//
//   CSelFontDlg dialog(env, title, showStrikeType, fixedColor, enableMask);
//   if (dialog.Run(font, dotsPerMm) == IDOK) { /* *font is what the user chose */ }
#pragma once

#include "dialogs/font/font_rules.h"
#include "framework/controls.h"
#include "framework/font_dialog.h"
#include "kivdata/kiv_font.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_color_button.h"
#include "res/ids.h"

#include <memory>
#include <span>

/// The platform's font dialog with a template of our own. The platform's lists of sizes and colours
/// are in it, hidden: through them the sample gets its size and colour.
class CSelFontDlg : public CFontDialog {
public:
  /// `env`, which goes to the colour dialog, and `title`, which replaces the template's, may be
  /// null and stay the caller's. `enableMask` tells what the user may change: see kFontControls.
  CSelFontDlg(CKivSysEnv* env, const char* title, BOOL showStrikeType, BOOL fixedColor,
              UINT enableMask, const LOGFONTA* initial = nullptr,
              DWORD flags = CF_EFFECTS | CF_SCREENFONTS, HDC printer = nullptr,
              CWnd* parent = nullptr);

  /// Runs the dialog with the caller's font and returns DoModal's result. `*font` is written on
  /// IDOK only. `dotsPerMm` relates its record to its millimetres; see EffectiveDotsPerMm.
  INT_PTR Run(CKivFont* font, double dotsPerMm);

  static constexpr double kUsualHeight = 10.0;

  CComboBox m_cmbStrikeType;
  int m_nStrikeType = 0;  ///< 0 one line, 1 two lines
  double m_dV = kUsualHeight;  ///< character height in millimetres
  double m_dH = 0.0;      ///< character width in millimetres, 0 for the natural one
  CKivSysEnv* m_pSysEnv;
  const char* m_pszTitle;
  std::unique_ptr<CKivColorButton> m_pColorBtn;
  BOOL m_bShowStrikeType;
  BOOL m_bFixedColor;
  UINT m_nEnableMask;

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnAccepted() override;
  void OnStrikeOut();
  void OnColor();
  void OnHeightChanged();

  /// Takes what the dialog shows from a font, its sizes from the record at `dotsPerMm`. The font
  /// itself stays as it is.
  void Show(const CKivFont& font, double dotsPerMm, UINT templateId);
  /// The record as it goes back to the font, before its sizes are made from the millimetres.
  LOGFONTA ChosenLogFont() const;
  std::unique_ptr<CKivColorButton> MakeColorButton(UINT id, COLORREF color);
  /// Lets the user choose a colour, if the host lets the user; true when `color` is a new one.
  bool AskColor(COLORREF& color);
  /// Disables the controls whose bits are clear in the mask.
  void DisableMasked(std::span<const quorvel::MaskedControl> controls);

  DECLARE_MESSAGE_MAP()

private:
  void EnableStrikeType();
  void PutColorIntoList();
  /// Gives the sample the size that belongs to the height in hand.
  void FeedSample();
  void PutSize(int points);
  void MoveFocusThroughSizes();
  bool BeginAtHeight();
  void FocusHeight();

  LONG m_nHeight = 0;  ///< of the record that went in
  double m_dShownV = 0.0;
  double m_dShownH = 0.0;
};
