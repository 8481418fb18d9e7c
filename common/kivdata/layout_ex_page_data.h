// CLayoutExPageData: a page laid out as three blocks of cells, one below the other: header, list
// and footer. The columns are common to all three; rows, cells and selection are each block's own.
//
//   CLayoutExPageData page;
//   page.DividePage(CLayoutExPageData::LISTTYPE(1), 5, 4, 11.811);   // the list: 5 rows, 4 columns
#pragma once

#include "framework/geometry.h"
#include "kivdata/kivdata_export.h"
#include "kivdata/layout_cel_data.h"
#include "kivdata/pen_status.h"

#include <cstddef>
#include <memory>

/// Lengths are millimetres in float. What CLayoutPageData says of indices, refused arguments,
/// memory and merging holds here, too; a block that does not exist is refused likewise. There are 1
/// to 255 columns and up to 255 rows in a block, which may have none.
///
/// A page begins with one cell of 10 x 10 mm in each block, all blocks in use and shown on all
/// pages, one repetition, beginning with the first record.
class KIVDATA_API CLayoutExPageData {
public:
  enum LISTTYPE : int { LISTTYPE_HEADER = 0, LISTTYPE_LIST = 1, LISTTYPE_FOOTER = 2 };

  CLayoutExPageData();
  CLayoutExPageData(const CLayoutExPageData& other);
  /// Cells of a block stay where they are if it has the same shape in both pages.
  CLayoutExPageData& operator=(const CLayoutExPageData& other);
  virtual ~CLayoutExPageData();

  // Files of kind *.mtpld2, as CLayoutPageData's.

  int OpenFile(const char* path);
  int OpenFileW(const wchar_t* path);
  int SaveFile(const char* path) const;
  int SaveFileW(const wchar_t* path) const;
  /// The bytes of such a file, in memory. 0, and the page as it was, for any others.
  int OpenBytes(const void* bytes, std::size_t count);
  /// How many bytes the page's file has; they are written if `capacity` is at least that.
  std::size_t SaveBytes(void* bytes, std::size_t capacity) const;

  // The page.

  int GetByEdgeOutLine() const;
  void SetByEdgeOutLine(int on);
  int GetByEdgeInLine() const;
  void SetByEdgeInLine(int on);
  PEN_STATUS GetOutLineStatus() const;
  void SetOutLineStatus(const PEN_STATUS* status);
  PEN_STATUS GetInLineStatus() const;
  void SetInLineStatus(const PEN_STATUS* status);
  /// Whether the layout is shown on the first page (0), the middle pages (1), the last page (2).
  int GetListShowByPage(int page) const;
  void SetListShowByPage(int page, int shown);
  int GetUse(LISTTYPE block) const;
  void SetUse(LISTTYPE block, int used);
  /// How many times the list block repeats.
  BYTE GetRepeatRow() const;
  void SetRepeatRow(BYTE times);
  /// Index of the first data record.
  LONG GetStIndex() const;
  void SetStIndex(LONG index);

  // Rows and columns.

  BYTE GetNumRow(LISTTYPE block) const;
  BYTE GetNumCol() const;
  /// As CLayoutPageData::DividePage for the block; a new number of columns changes all blocks. No
  /// rows are accepted, no columns are not.
  void DividePage(LISTTYPE block, BYTE rows, BYTE columns, double dotsPerMm);
  /// A new row before the given one, as long as that, with its borders and fonts; a merged block
  /// that it cuts through grows. Refused with 255 rows.
  void InsertRow(LISTTYPE block, int row);
  /// A merged block that the row cuts through shrinks; if it loses its first row, its content moves
  /// to the new top-left cell. The last row is not deleted.
  void DeleteRow(LISTTYPE block, int row);
  /// The same for a column of all blocks.
  void InsertCol(int col);
  void DeleteCol(int col);
  float GetAllLengthRow(LISTTYPE block) const;
  void SetAllLengthRow(LISTTYPE block, float total, int equal);
  float GetAllLengthCol() const;
  void SetAllLengthCol(float total, int equal);
  float GetLengthRow(LISTTYPE block, int row) const;
  void SetLengthRow(LISTTYPE block, int row, float length);
  float GetLengthCol(int col) const;
  void SetLengthCol(int col, float length);

  // Cells. The conversions take no block: any row up to 254 counts.

  int GetCelSize(LISTTYPE block) const;
  int GetIndexFromRowCol(int row, int col) const;
  int GetRowColFromIndex(int index, int* row, int* col) const;
  CLayoutCelData* GetCelAt(LISTTYPE block, int index);
  const CLayoutCelData* GetCelAt(LISTTYPE block, int index) const;

  // Selection and merging.

  int IsSelected(LISTTYPE block) const;
  /// The first selected cell, row by row, that is not covered; 0 when there is none.
  int GetFirstSelectCel(LISTTYPE block, int* row, int* col) const;
  /// Whether a row (column) can be inserted before, or deleted at, the first selected cell.
  int IsInsertRow(LISTTYPE block) const;
  int IsDeleteRow(LISTTYPE block) const;
  int IsInsertCol(LISTTYPE block) const;
  int IsDeleteCol(LISTTYPE block) const;
  /// Whether selected cells lie in two or more rows (columns).
  int IsSelRowEq(LISTTYPE block) const;
  int IsSelColEq(LISTTYPE block) const;
  /// Makes the rows (columns) in which selected cells lie equally long, but for the last bit of
  /// their sum, which stays.
  void SelRowEq(LISTTYPE block);
  void SelColEq(LISTTYPE block);
  /// Whether a run of two or more selected cells can be merged.
  int IsMeargePossibleCel(LISTTYPE block) const;
  int IsDividePossibleCel(LISTTYPE block) const;
  /// As CLayoutPageData's, but for each run by itself: a solid rectangle of selected cells that no
  /// other selected cell touches at an edge.
  int GetSerialSelCelCount(LISTTYPE block, int row, int col, BYTE* rows, BYTE* cols) const;
  int MeargeCel(LISTTYPE block, int row, int col);
  int DivideCel(LISTTYPE block, int row, int col);
  /// Shows (not 0) or hides the lines of every run that GetSerialSelCelCount tells: its outer edges
  /// and the lines between its cells. The facing edges of the neighbours go with them; a line along
  /// a merged block is shown or hidden over that block's whole edge.
  void SetShowLine(LISTTYPE block, int top, int innerHorizontal, int bottom, int left,
                   int innerVertical, int right);

  // Pixels, as CLayoutPageData's.

  void InitCelRect(LISTTYPE block, const CRect* area, CRect* table) const;
  int GetCelRect(LISTTYPE block, CRect* rect, const CRect* table, int index, int* row,
                 int* col) const;

private:
  struct Model;
  std::unique_ptr<Model> m_model;
};
