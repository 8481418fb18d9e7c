// CKivColorButton: a button that shows a colour.
//
//   m_pColorBtn = std::make_unique<CKivColorButton>();
//   m_pColorBtn->SubclassDlgItem(IDC_TEXT_COLOR, this);   // a button with the style BS_OWNERDRAW
//   m_pColorBtn->Recolor(RGB(255, 0, 0));
#pragma once

#include "framework/wnd.h"
#include "kivfcl/kivfcl_export.h"

#include <string>

/// Fills itself with its colour. The focus is marked by a black and a white frame, of which one
/// stands out on any colour; a pressed button is sunken; a disabled one shows less of its colour.
/// Its text, which a screen reader speaks, is the one that it was given and the colour: "文字の色 赤 255
/// 緑 0 青 0".
class KIVFCL_API CKivColorButton : public CWnd {
public:
  CKivColorButton() = default;
  ~CKivColorButton() override = default;

  /// 0x00BBGGRR. A button that is attached shows it at the next Recolor or BM_SETSTYLE.
  COLORREF m_color = RGB(255, 255, 255);

  /// What a screen reader says before the colour, in place of the button's own text. The text that
  /// the button is given afterwards takes its place.
  std::wstring m_name;

  /// Sets the colour and has the button painted.
  void Recolor(COLORREF color);

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
  void Draw(const DRAWITEMSTRUCT& draw) const;
};
