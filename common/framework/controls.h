// The platform's controls under the platform's names.
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"
#include "framework/wnd.h"

#include <commctrl.h>

#include <string>
#include <vector>

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

/// A button: it is pressed, or it is on or off.
class FRAME_API CButton : public CWnd {
public:
  /// Shows a picture on a button with the style BS_BITMAP. It stays the caller's and must live as
  /// long as the button shows it.
  void SetBitmap(HBITMAP bitmap);
  /// Whether the button looks pressed; nobody is notified.
  bool GetState() const;
  void SetState(bool pressed);
};

/// A text, a picture or a rectangle.
class FRAME_API CStatic : public CWnd {};

/// A list of texts, in code page 932; indices count from 0.
class FRAME_API CListBox : public CWnd {
public:
  void ResetContent();
  int AddString(const char* text);
  /// Selects an entry; nobody is notified.
  void SetCurSel(int index);
};

/// A drop-down list. Texts are in code page 932; indices count from 0, -1 is none.
class FRAME_API CComboBox : public CWnd {
public:
  void ResetContent();
  int AddString(const char* text);
  /// Appends very many texts at once, in UTF-16: the list makes room for all of them and is painted
  /// when the last has come.
  void AddStrings(const std::vector<std::wstring>& texts);
  /// The first entry that has this text, in letters of any case; -1 where there is none.
  int FindStringExact(const char* text) const;
  int GetCurSel() const;
  /// Selects an entry, or none where there is no such entry; nobody is notified.
  void SetCurSel(int index);
};
