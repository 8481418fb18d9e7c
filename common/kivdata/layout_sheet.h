// LayoutSheet: one or more grids, called blocks, one below the other, with columns in common. The
// grid page is a sheet of one block, the extended page one of three.
//
//   LayoutSheet sheet(GridLengths::Precision::kDouble, 1, 1);
//   sheet.Divide(0, 3, 4, 11.8);
//   sheet.Cell(0, 5)->SetText("合計");
#pragma once

#include "framework/geometry.h"
#include "kivdata/cell_grid.h"
#include "kivdata/grid_lengths.h"

#include <optional>
#include <vector>

namespace quorvel {

/// Block numbers, rows, columns and indices may be anything: what does not exist is refused, with
/// false, 0, -1 or null, and changes nothing. Each operation either completes or, when memory runs
/// out (std::bad_alloc), changes nothing.
class LayoutSheet {
public:
  struct Block {
    GridLengths rows;
    CellGrid cells;
  };

  /// A sheet of `blocks` blocks of one 10 mm row and column each. No block ever gets fewer than
  /// `fewestRows` rows (0 or 1).
  LayoutSheet(GridLengths::Precision precision, int blocks, int fewestRows);
  /// A sheet of parts that fit each other: each block's cells have its rows and the columns.
  LayoutSheet(GridLengths columns, std::vector<Block> blocks, int fewestRows);
  LayoutSheet(const LayoutSheet&) = default;
  LayoutSheet& operator=(const LayoutSheet&) = default;
  LayoutSheet(LayoutSheet&&) = default;
  /// Cells stay where they are in every block that has the same shape in both sheets.
  LayoutSheet& operator=(LayoutSheet&& other) noexcept;
  ~LayoutSheet() = default;

  const GridLengths& Columns() const { return m_columns; }
  const std::vector<Block>& Blocks() const { return m_blocks; }
  int FewestRows() const { return m_fewestRows; }

  // Lengths in millimetres.

  BYTE NumRow(int block) const;
  BYTE NumCol() const { return static_cast<BYTE>(m_columns.Count()); }
  double LengthRow(int block, int row) const;
  double LengthCol(int col) const { return m_columns.At(col); }
  double AllLengthRow(int block) const;
  double AllLengthCol() const { return m_columns.Total(); }
  bool SetLengthRow(int block, int row, double length);
  bool SetLengthCol(int col, double length) { return m_columns.Set(col, length); }
  bool SetAllLengthRow(int block, double total, bool equal);
  bool SetAllLengthCol(double total, bool equal) { return m_columns.SetTotal(total, equal); }

  // Shape.

  /// Gives a block `rows` rows and all blocks `columns` columns. What lies in the old and the new
  /// grid stays; merges are clipped; new lines get the average length of those that stood, new
  /// cells a font made for `dotsPerMm`. The present counts change nothing at all.
  bool Divide(int block, int rows, int columns, double dotsPerMm);
  bool InsertRow(int block, int row);
  bool DeleteRow(int block, int row);
  bool InsertCol(int col);
  bool DeleteCol(int col);

  // What the selection of a block allows. A run of selected cells is a solid rectangle of them; in
  // a sheet of one block it must be the whole selection, a block of several may have many.

  bool CanInsertRow(int block) const;
  bool CanDeleteRow(int block) const;
  bool CanInsertCol(int block) const;
  bool CanDeleteCol(int block) const;
  bool CanEqualise(int block, Direction direction) const;
  /// Makes the rows (columns) in which selected cells lie equally long.
  void Equalise(int block, Direction direction);
  bool IsSelected(int block) const;
  bool IsMergePossible(int block) const;
  bool IsSplitPossible(int block) const;
  std::optional<CellRange> FirstSelected(int block) const;
  std::optional<CellRange> RunAt(int block, int row, int col) const;
  bool Merge(int block, int row, int col);
  bool Split(int block, int row, int col);
  void SetShowLine(int block, const RunLines& lines);

  // Cells and rectangles.

  int CellCount(int block) const;
  /// The index of a position in a block of `rows` rows, and back.
  int IndexOf(int row, int col, int rows) const;
  std::optional<CellRange> PositionOf(int index, int rows) const;
  CLayoutCelData* Cell(int block, int index);
  const CLayoutCelData* Cell(int block, int index) const;
  /// Fills `table` (rows x columns entries) with the rectangle of every position, the block being
  /// mapped onto `area`.
  void InitRects(int block, const CRect* area, CRect* table) const;
  /// Stores the rectangle of a cell over its merged block; false where it has none.
  bool CellRect(int block, const CRect* table, int index, CRect& rect) const {
    const Block* const found = Find(block);
    return found != nullptr && table != nullptr && found->cells.RectOf(index, table, rect);
  }
  bool HasCellRect(int block, const CRect* table, int index) const {
    CRect notWanted;
    return CellRect(block, table, index, notWanted);
  }

private:
  /// Null where there is no such block.
  Block* Find(int block) {
    return block >= 0 && block < static_cast<int>(m_blocks.size()) ? m_blocks.data() + block
                                                                   : nullptr;
  }
  const Block* Find(int block) const {
    return block >= 0 && block < static_cast<int>(m_blocks.size()) ? m_blocks.data() + block
                                                                   : nullptr;
  }
  bool HasOneRun() const { return m_blocks.size() == 1; }
  template <class Change>
  void ChangeColumns(GridLengths columns, const Change& change);

  GridLengths m_columns;
  std::vector<Block> m_blocks;
  int m_fewestRows;
};

}  // namespace quorvel
