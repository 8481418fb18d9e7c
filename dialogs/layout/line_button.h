// CLineButton: a button of the ruled-line editor that shows whether its line is on.
//
//   CLineButton m_top{"上の罫線"};
//   m_top.SubclassDlgItem(IDC_LINE_TOP, this);
//   m_top.ShowOn(true);
#pragma once

#include "framework/controls.h"

/// Looks pressed while it is on. Its text, which only a screen reader gets, is the line's name and
/// "オン" or "オフ".
class CLineButton : public CButton {
public:
  /// `name` is a constant text.
  explicit CLineButton(const char* name) : m_pszName(name) {}

  void ShowOn(bool on);

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
  const char* m_pszName;
  bool m_bOn = false;
};

/// The text below a picture button: it shows the button's access key and leaves the key to it.
class CButtonCaption : public CStatic {
protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};
