// CKivColorPaletteList: a palette of colours in rows, of which one can be selected.
//
//   m_palette.SetItemSize(24, 16);
//   m_palette.SetItemColumnCount(6);
//   m_palette.SetPalletData(colors);
//   m_palette.Create(WS_VISIBLE | WS_TABSTOP | 0x810, rect, this, 2001);
//   ...
//   ON_CONTROL(KIVPALETTE_SELECTED, 2001, &CPage::OnSelected)
//   ON_CONTROL(KIVPALETTE_DOUBLECLICKED, 2001, &CPage::OnDoubleClicked)
#pragma once

#include "framework/collections.h"
#include "framework/wnd.h"
#include "kivfcl/kivfcl_export.h"
#include "kivfcl/palette_rules.h"
#include "kivfcl/wheel_steps.h"

/// How the list behaves, in the style word of Create beside the window's styles.
enum : DWORD {
  KIVPALETTE_SCROLL = 0x010,  ///< a scroll bar as soon as the rows do not fit
  KIVPALETTE_NOTIFY = 0x800,  ///< the owner is told
};

/// Notification codes, by WM_COMMAND as those of a list box.
enum : UINT {
  KIVPALETTE_SELECTED = 1,       ///< the user has selected an entry
  KIVPALETTE_DOUBLECLICKED = 2,  ///< a double click on an entry, after it was selected
};

/// Entry i stands in row i / columns, column i % columns, from the top-left corner of the client
/// area; rows are scrolled whole. Selected by a click, and with the focus by the arrow keys, page
/// keys, Home and End; the space bar takes the selected entry once more, as a click on it does. The
/// wheel scrolls by as many rows as the user has set lines. The owner may destroy the list when it
/// is told. Its text, which a screen reader speaks, is the one that it was given and the selected
/// colour: "色の一覧 赤 255 緑 0 青 0". Indices count from 0.
class KIVFCL_API CKivColorPaletteList : public CWnd {
public:
  CKivColorPaletteList() = default;
  ~CKivColorPaletteList() override = default;

  /// `style` holds window styles and KIVPALETTE_*; WS_CHILD is added, and a scroll bar only by
  /// KIVPALETTE_SCROLL. `rect` is in `parent`'s client pixels. FALSE when it cannot be created.
  BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);

  /// In pixels, each 1 to 32,767; others count as the nearest. At first 24 x 16.
  void SetItemSize(int width, int height);
  /// Entries in a row, at least 1. At first 6.
  void SetItemColumnCount(int columns);

  /// Replaces the entries; none is selected then.
  void SetPalletData(const CArray<COLORREF, COLORREF>& colors);
  const CArray<COLORREF, COLORREF>& GetPaletteData() const { return m_colors; }

  int GetColorCount() const { return static_cast<int>(m_colors.GetSize()); }
  /// Black where there is no such entry.
  COLORREF GetColor(int index) const;
  /// Nothing happens where there is no such entry; nor by RemoveColor.
  void SetColor(int index, COLORREF color);
  /// Appends an entry and returns its index.
  int AddColor(COLORREF color);
  /// The entries behind move up. The selected entry stays selected, unless it is removed.
  void RemoveColor(int index);

  /// -1 while none is selected.
  int GetCurSel() const { return m_nCurSel; }
  /// Selects an entry and scrolls it into sight; what is no index selects none. The owner is not
  /// told.
  void SetCurSel(int index);
  /// Black while none is selected.
  COLORREF GetSelectColor() const { return GetColor(m_nCurSel); }

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  DECLARE_MESSAGE_MAP()

private:
  static constexpr CSize kItemSizeAtFirst{24, 16};
  static constexpr int kColumnsAtFirst = 6;

  void OnPaint();
  void OnLButtonDown(UINT keys, CPoint point);
  void OnLButtonDblClk(UINT keys, CPoint point);
  void OnVScroll(UINT code, UINT position, HWND scrollBar);
  LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
  LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
  LRESULT OnSize(WPARAM wParam, LPARAM lParam);
  LRESULT OnLookChanged(WPARAM wParam, LPARAM lParam);

  bool HasStyle(DWORD style) const;
  quorvel::PaletteGrid Grid() const;
  /// After a change of the entries, their arrangement or the window's size.
  void Rearrange();
  void UpdateScrollBar() const;
  void ScrollTo(long long firstRow);
  void InvalidateEntry(int index) const;
  /// Without scrolling or telling.
  void Select(int index);
  // After these two the object may be gone: the owner has been told.
  void SelectByUser(int index);
  void Notify(UINT code) const;

  void Draw(HDC deviceContext, const CRect& area) const;
  void DrawEntry(HDC deviceContext, const CRect& cell, int index) const;

  CArray<COLORREF, COLORREF> m_colors;
  CSize m_itemSize = kItemSizeAtFirst;
  int m_nColumns = kColumnsAtFirst;
  int m_nCurSel = -1;
  int m_nFirstRow = 0;
  quorvel::WheelSteps m_wheel;
};
