// CKivListCtrl: a list in columns, some of them columns of check boxes.
//
//   KIVLISTCTRLHEAD heads[] = {{"項目名", 0, 120, KIVLISTCOL_TEXT, 0},
//                              {"", 0, 21, KIVLISTCOL_CHECK, 0}};
//   m_list.InitListCtrl(IDC_LIST, heads, 2, KIVLISTCTRL_FULLROW, 0);
//   m_list.AddRow(2, "用紙枠", 1);
//   if (m_list.GetCelItemData(0, 1).m_nCheck != 0) ...
#pragma once

#include "framework/controls.h"
#include "kivfcl/kivfcl_export.h"

/// What a column holds, in the style word of its head record; the word's other bits are ignored.
enum : DWORD {
  KIVLISTCOL_TEXT = 0x00000800,
  KIVLISTCOL_CHECK = 0x00002000,
};

/// How the list behaves, in the style of InitListCtrl; its other bits are ignored.
enum : DWORD {
  KIVLISTCTRL_FULLROW = 0x00000002,  ///< a selected row is marked over its whole width
};

struct KIVLISTCTRLHEAD {
  // NOLINTNEXTLINE(modernize-avoid-c-arrays,readability-magic-numbers): the record is given so
  char szText[40];  ///< heading, code page 932, zero-padded
  DWORD dwReserved1;
  int nWidth;  ///< in pixels
  DWORD dwStyle;
  DWORD dwReserved2;
};

/// One cell as it stands.
struct CKivCelItem {
  CString m_strText;  ///< empty in a column of check boxes
  int m_nCheck = 0;   ///< 1 where the cell's check box is ticked
};

/// The headings of a CKivListCtrl: as tall as its rows, and flat, since a themed heading has no room
/// at that height.
class KIVFCL_API CKivListHeader : public CWnd {
public:
  /// 0 keeps the system's height.
  int m_nHeight = 0;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
  void Paint() const;
};

/// Rows are drawn here, for the check boxes and for their height: the control needs the style
/// LVS_OWNERDRAWFIXED. A check box is toggled by a click into its cell; the space key toggles those
/// of the focused row and gives every other selected row the same state. A screen reader reads the
/// cell as "オン" or "オフ".
class KIVFCL_API CKivListCtrl : public CListCtrl {
public:
  /// Makes the columns. The control must be attached already; `id` is its identifier, `flag` is
  /// ignored. At most 32 columns.
  void InitListCtrl(UINT id, const KIVLISTCTRLHEAD* heads, int count, DWORD style, int flag);

  /// Makes the headings and every row exactly so many pixels tall, so that they can fill the control
  /// without scroll bars whatever the system's own heights are. The control asks for it when its size
  /// is set next.
  void SetRowHeight(int height);

  /// Appends a row of as many cells as columns: after the count a `const char*` for each text column
  /// and an `int`, ticked where not 0, for each column of check boxes. Returns the row's index.
  int AddRow(int columns, ...);

  /// Stops or resumes drawing while many rows are added.
  void SetRedraw(bool redraw) { ::SendMessageW(m_hWnd, WM_SETREDRAW, redraw ? TRUE : FALSE, 0); }

  CKivCelItem GetCelItemData(int row, int column) const;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
  bool IsCheckColumn(int column) const { return (m_nCheckColumns >> column & 1U) != 0; }
  bool IsTicked(int row, int column) const;
  void SetTicked(int row, int column, bool ticked);
  bool ToggleAt(LPARAM clientPoint);
  bool ToggleSelectedRows();
  void AnswerText(NMLVDISPINFOW& question) const;
  void DrawRow(const DRAWITEMSTRUCT& draw) const;

  CKivListHeader m_header;
  int m_nRowHeight = 0;
  /// A bit for each column; in the same places a row's item data has its ticks.
  unsigned m_nCheckColumns = 0;
  int m_nColumns = 0;
};
