// CKivFontEx: the font of a cell, with its background colour and the place of the text in the cell.
//
//   CKivFontEx font = *page.GetCelAt(0)->GetFont();
//   font.SetHPos(1);                     // centred
//   page.GetCelAt(0)->SetFont(&font);    // the cell copies it
#pragma once

#include "kivdata/kiv_font.h"

#include <utility>

/// Without further ado: as CKivFont, at the top left on white.
class KIVDATA_API CKivFontEx : public CKivFont {
public:
  /// Character width and height in millimetres, in this order; width 0 is the natural width.
  std::pair<double, double> GetMM() const { return {GetH(), GetV()}; }

  COLORREF GetBackColor() const { return m_backColor; }
  /// Background colour of the cell; null is ignored.
  void SetBackColor(const COLORREF* color);

  /// 0 left, 1 centre, 2 right.
  BYTE GetHPos() const { return m_hPos; }
  /// Values above 2 are ignored.
  void SetHPos(BYTE position);

  /// 0 top, 1 centre, 2 bottom.
  BYTE GetVPos() const { return m_vPos; }
  /// Values above 2 are ignored.
  void SetVPos(BYTE position);

private:
  // In this order they fit behind the base's last byte; a page has tens of thousands of them.
  BYTE m_hPos = 0;
  BYTE m_vPos = 0;
  COLORREF m_backColor = RGB(255, 255, 255);
};
