// CLayoutCelData: one cell of a layout page: text, font, borders, selection, merge sizes.
//
//   CLayoutCelData* cell = page.GetCelAt(page.GetIndexFromRowCol(0, 0));
//   cell->SetText("氏名");
#pragma once

#include "framework/cstring.h"
#include "kivdata/kiv_font_ex.h"
#include "kivdata/kivdata_export.h"

#include <string_view>

/// Cells belong to their page. A pointer to a cell is valid while the grid in which it lies keeps its
/// shape: until the page is divided anew, rows or columns are inserted or deleted, a page of another
/// shape is opened or assigned, or the page is destroyed.
class KIVDATA_API CLayoutCelData {
public:
  /// The text, code page 932.
  CString GetText() const { return m_text; }
  /// The same without a copy; valid until the text is set.
  std::string_view TextView() const { return m_text.View(); }
  /// Null is the empty text.
  void SetText(const char* text) { m_text = text; }
  /// The text up to its first zero byte.
  void SetText(CString text);

  /// The cell's own font; valid as long as the cell.
  CKivFontEx* GetFont() { return &m_font; }
  const CKivFontEx* GetFont() const { return &m_font; }
  /// Copies the font; null is ignored.
  void SetFont(const CKivFontEx* font);

  int GetSelected() const { return m_selected ? 1 : 0; }
  /// Non-zero selects. A covered cell takes the mark, too; commands pass it over.
  void SetSelected(int selected) { m_selected = selected != 0; }

  /// Rows and columns of the merged block whose top-left cell this is; 1 and 1 for an ordinary
  /// cell, 0 and 0 for a cell that a block covers.
  BYTE GetRowMeargeSize() const { return m_rowMeargeSize; }
  BYTE GetColMeargeSize() const { return m_colMeargeSize; }
  /// A block is sound when its top-left cell has its size, it lies within the grid, and all its
  /// other cells have 0 and 0: who merges cell by cell sets them all (the page's MeargeCel does).
  /// What is not sound is treated as not merged, and becomes so, by the page's next change of
  /// shape.
  void SetRowMeargeSize(BYTE rows) { m_rowMeargeSize = rows; }
  void SetColMeargeSize(BYTE columns) { m_colMeargeSize = columns; }

  /// Whether the left, right, top and bottom border lines are shown: 0 or 1; shown at first.
  int GetShowLineHL() const { return m_showLeft ? 1 : 0; }
  int GetShowLineHR() const { return m_showRight ? 1 : 0; }
  int GetShowLineVT() const { return m_showTop ? 1 : 0; }
  int GetShowLineVB() const { return m_showBottom ? 1 : 0; }
  /// This cell's side of the line only; the page's SetShowLine keeps the neighbours in step.
  void SetShowLineHL(int shown) { m_showLeft = shown != 0; }
  void SetShowLineHR(int shown) { m_showRight = shown != 0; }
  void SetShowLineVT(int shown) { m_showTop = shown != 0; }
  void SetShowLineVB(int shown) { m_showBottom = shown != 0; }

private:
  CString m_text;
  CKivFontEx m_font;
  BYTE m_rowMeargeSize = 1;
  BYTE m_colMeargeSize = 1;
  bool m_selected = false;
  bool m_showLeft = true;
  bool m_showRight = true;
  bool m_showTop = true;
  bool m_showBottom = true;
};
