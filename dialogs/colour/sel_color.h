// CSelColor: a colour out of 48 basic ones and 16 of the user's own making.
//
//   CSelColor dialog(env, color, position, nullptr);
//   if (dialog.DoModal() == IDOK) color = dialog.m_colorSel;
#pragma once

#include "dialogs/colour/colour_grid.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_color_button.h"
#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

#include <array>
#include <memory>

/// The focus on a colour button selects its colour, as a click does. "その他の色", or F2 from
/// anywhere, opens the colour picker; what comes back replaces the selected made colour, if one is
/// selected, and is stored at once.
class CSelColor : public CKivDialog {
public:
  /// `env` (made colours are neither loaded nor stored without it) and `position` may be null and
  /// stay the caller's.
  CSelColor(CKivSysEnv* env, COLORREF color, CPoint* position, CWnd* parent);

  static constexpr int kNoIndex = 99;

  /// Grid index of the selected colour; kNoIndex where it belongs to no grid button.
  int m_nSelIndex = kNoIndex;
  quorvel::GridColors m_colorTable{};
  /// The selected colour: the result.
  COLORREF m_colorSel;
  CKivSysEnv* m_pSysEnv;
  std::array<std::unique_ptr<CKivColorButton>, quorvel::kGridButtonCount> m_pColorBtn;
  std::unique_ptr<CKivColorButton> m_pSelColorBtn;
  CPoint* m_pPosition;

  BOOL PreTranslateMessage(MSG* message) override;

protected:
  BOOL OnInitDialog() override;
  void PostNcDestroy() override;
  LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
  LRESULT OnDrawItem(WPARAM wParam, LPARAM lParam);
  void OnGridClicked(UINT id);
  void OnGridDoubleClicked(UINT id);
  void OnSelectedClicked();
  void OnOther();

  DECLARE_MESSAGE_MAP()

private:
  using MadeColors = std::array<COLORREF, quorvel::kMadeColorButtonCount>;

  /// Place of 13441 among the buttons whose marks are watched.
  static constexpr int kSelectedButton = quorvel::kGridButtonCount;

  COLORREF& TableEntry(int index) { return m_colorTable[static_cast<std::size_t>(index)]; }
  MadeColors ReadMadeColors();
  /// What a click on a watched button selects.
  void SelectButton(int button);
  void FocusSelection();
  bool MovesUpOrDown(const MSG& message) const;

  /// Which buttons were drawn with the focus or pressed when they were drawn last.
  std::array<bool, quorvel::kGridButtonCount + 1> m_marked{};
  /// The focus comes and goes by the system's hand: it selects nothing.
  bool m_bFocusReturns = false;
};
