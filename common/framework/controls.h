// The platform's controls under the platform's names.
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

#include <commctrl.h>

#include <string>

/// An edit field. Its text can be carried in code page 932 whole: a character that the code page
/// lacks is refused with the system's beep when it is typed or pasted. While a kana-kanji conversion
/// is under way, Enter and Escape belong to it and never close the dialog. Every edit field of a
/// CDialog is one, whether the dialog declares it or not.
class FRAME_API CEdit : public CWnd {
protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  /// Whether a kana-kanji conversion is under way.
  bool IsComposing() const { return m_bComposing; }

private:
  bool m_bComposing = false;
};

/// A list view. Texts are in code page 932; indices count from 0.
class FRAME_API CListCtrl : public CWnd {
public:
  void InsertColumn(int column, const char* heading, int width);
  /// Appends a row of empty cells and returns its index.
  int AppendRow();
  /// Lets the control ask for the text of a cell with LVN_GETDISPINFO whenever it wants it.
  void SetItemTextCallback(int row, int column);
  void SetItemText(int row, int column, const char* text);
  CString GetItemText(int row, int column) const;
  std::wstring GetItemTextWide(int row, int column) const;
  void SetItemData(int row, LPARAM data);
  LPARAM GetItemData(int row) const;
  int GetItemCount() const;
};

/// A row of tabs. Texts are in code page 932; indices count from 0.
class FRAME_API CTabCtrl : public CWnd {
public:
  void InsertItem(int index, const char* text);
  int GetCurSel() const;
  /// Selects a tab; nobody is notified.
  void SetCurSel(int index);
  /// What is left for the pages of a tab control that fills `rect`.
  CRect GetDisplayRect(CRect rect) const;
};

/// A drop-down list. Texts are in code page 932; indices count from 0, -1 is none.
class FRAME_API CComboBox : public CWnd {
public:
  void ResetContent();
  int AddString(const char* text);
  int GetCurSel() const;
  /// Selects an entry; nobody is notified.
  void SetCurSel(int index);
};
