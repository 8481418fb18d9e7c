// CLayoutPageData: a page laid out as one grid of cells.
//
//   CLayoutPageData page;
//   page.DividePage(3, 4, 11.811);                 // 3 rows, 4 columns, for 300 dots per inch
//   page.GetCelAt(page.GetIndexFromRowCol(0, 0))->SetText("氏名");
//   page.SaveFile("form.mtpld");
#pragma once

#include "framework/geometry.h"
#include "kivdata/kivdata_export.h"
#include "kivdata/layout_cel_data.h"
#include "kivdata/pen_status.h"

#include <cstddef>
#include <memory>

/// Lengths are millimetres. Rows, columns and cell indices count from 0; a cell's index is
/// row x columns + column. There are 1 to 255 rows and columns. An argument that names nothing (a
/// bad index, a null pointer) or is no length (negative, not finite, above 1e12) is refused:
/// nothing changes, the result is 0, -1 or null. A pointer for a result may be null, where that is
/// not wanted. Only the lack of memory throws, std::bad_alloc, and changes nothing.
///
/// A page begins as one cell of 10 x 10 mm.
class KIVDATA_API CLayoutPageData {
public:
  CLayoutPageData();
  CLayoutPageData(const CLayoutPageData& other);
  /// Cells stay where they are if both pages have the same number of rows and of columns.
  CLayoutPageData& operator=(const CLayoutPageData& other);
  virtual ~CLayoutPageData();

  // Files, see docs/layout-files.md.

  /// Reads a whole page, kind *.mtpld. 0, and the page as it was, for a file that cannot be read,
  /// is damaged or of another kind. The path is in code page 932. No cell is selected afterwards.
  int OpenFile(const char* path);
  /// The same for a path of any characters.
  int OpenFileW(const wchar_t* path);
  /// Writes the page and replaces an old file in one step. 0, and the old file as it was, on any
  /// failure. What is selected is not written.
  int SaveFile(const char* path) const;
  int SaveFileW(const wchar_t* path) const;
  /// The bytes of such a file, in memory. 0, and the page as it was, for any others.
  int OpenBytes(const void* bytes, std::size_t count);
  /// How many bytes the page's file has; they are written if `capacity` is at least that.
  std::size_t SaveBytes(void* bytes, std::size_t capacity) const;

  // The page.

  /// 1 for a page with ruled lines, 0 for one with margin and frame.
  short GetType() const;
  void SetType(short type);
  float GetMargin() const;
  void SetMargin(float margin);
  int GetShowFrame() const;
  void SetShowFrame(int shown);
  /// Whether the outer line and the inner lines are on, 0 or 1, and their styles. A style whose
  /// width is no length is refused.
  int GetByEdgeOutLine() const;
  void SetByEdgeOutLine(int on);
  int GetByEdgeInLine() const;
  void SetByEdgeInLine(int on);
  PEN_STATUS GetOutLineStatus() const;
  void SetOutLineStatus(const PEN_STATUS* status);
  PEN_STATUS GetInLineStatus() const;
  void SetInLineStatus(const PEN_STATUS* status);

  // Rows and columns.

  BYTE GetNumRow() const;
  BYTE GetNumCol() const;
  /// Cells that lie in the old and the new grid stay, with text, font and flags; merges are clipped
  /// to the new grid. New rows and columns get the average length of those that stood; the fonts of
  /// new cells are made for `dotsPerMm` (300 dots per inch if that is 0). Counts of 0 are refused;
  /// the present counts change nothing at all.
  void DividePage(BYTE rows, BYTE columns, double dotsPerMm);
  double GetAllLengthRow() const;
  double GetAllLengthCol() const;
  /// Spreads a total height (width) over the rows (columns): equally if `equal` is not 0 or they
  /// sum to 0, else in proportion to what they are. They sum to exactly the total then.
  void SetAllLengthRow(double total, int equal);
  void SetAllLengthCol(double total, int equal);
  double GetLengthRow(int row) const;
  double GetLengthCol(int col) const;
  void SetLengthRow(int row, double length);
  void SetLengthCol(int col, double length);

  // Cells.

  int GetCelSize() const;
  /// -1 where there is no such cell.
  int GetIndexFromRowCol(int row, int col) const;
  /// Non-zero, and both numbers written, for a cell of the page.
  int GetRowColFromIndex(int index, int* row, int* col) const;
  /// Owned by the page.
  CLayoutCelData* GetCelAt(int index);
  const CLayoutCelData* GetCelAt(int index) const;

  // Selection and merging. Covered cells may carry the mark of selection; no operation acts on
  // them.

  int IsSelected() const;
  /// Whether the selection is a solid rectangle of two or more cells: one that cuts through a
  /// merged block is not.
  int IsMeargePossibleCel() const;
  /// Whether a merged cell is selected.
  int IsDividePossibleCel() const;
  /// Non-zero when the whole selection is a solid rectangle with (row, col) as its top-left cell;
  /// gives its height and width in grid positions, 1 and 1 for a single cell, merged or not.
  /// Otherwise both are 0.
  int GetSerialSelCelCount(int row, int col, BYTE* rows, BYTE* cols) const;
  /// Merges the rectangle that GetSerialSelCelCount tells for (row, col), if it has two cells or
  /// more; its other cells keep their texts, covered, and are deselected.
  int MeargeCel(int row, int col);
  /// Deselects the merged cell at (row, col) and makes single cells of its block.
  int DivideCel(int row, int col);

  // Pixels.

  /// Fills `table`, which has rows x columns entries, with the rectangle of every grid position,
  /// the page being mapped onto `area` without gap or overlap: each edge is its cumulated length,
  /// rounded. An area whose right lies before its left, or bottom before top, counts as empty
  /// there.
  void InitCelRect(const CRect* area, CRect* table) const;
  /// The rectangle of a cell over its merged block, from a table filled by InitCelRect; 0 for a
  /// covered cell and a bad index. Row and column of the cell go to the last two where not null.
  int GetCelRect(CRect* rect, const CRect* table, int index, int* row, int* col) const;

private:
  struct Model;
  std::unique_ptr<Model> m_model;
};
