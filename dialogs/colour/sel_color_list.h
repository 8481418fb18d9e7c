// CSelColorList: the page with the palette of stored colours.
#pragma once

#include "framework/dialog.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_color_palette_list.h"
#include "res/ids.h"

/// A page: made with Create(IDD_COLOUR_LIST_PAGE, parent). What the user changes in the palette is
/// stored by SavePalette only.
class CSelColorList : public CDialog {
public:
  /// Without an environment, `env` being null, the palette starts empty and is never stored.
  CSelColorList(CKivSysEnv* env, COLORREF color, CWnd* parent);

  /// Selects the first palette entry of this colour; none where the palette lacks it.
  void SetColor(COLORREF color);
  COLORREF GetColor() const { return m_color; }
  /// -1 where the palette lacks it.
  int FindColor(COLORREF color) const;
  void SavePalette();

  /// The control that the page's keys begin at.
  HWND GetPaletteWindow() const { return m_palette.m_hWnd; }

protected:
  BOOL OnInitDialog() override;
  void OnPaint();
  void OnSelected();
  void OnDoubleClicked();
  void OnAdd();
  void OnDelete();
  void OnEdit();

  DECLARE_MESSAGE_MAP()

private:
  bool IsEntrySelected() const { return m_palette.GetCurSel() >= 0; }
  void TakeColor(COLORREF color);
  void UpdateButtons();
  void EnableButton(int id, bool enable);

  CKivColorPaletteList m_palette;
  CKivSysEnv* m_pSysEnv;
  COLORREF m_color;
  /// A palette that could not be read must not be replaced.
  bool m_bPaletteRead = false;
};
