// CellGrid: the cells of one grid, how they are merged, selected and ruled. It serves the grid page
// and each block of the extended page.
//
//   CellGrid grid(2, 3);
//   grid.At(0)->SetSelected(1);
//   grid.At(1)->SetSelected(1);
//   grid.Merge(0, 0);             // cell 0 is 1 x 2 now and covers cell 1
#pragma once

#include "framework/geometry.h"
#include "kivdata/cell_range.h"
#include "kivdata/grid_lines.h"
#include "kivdata/layout_cel_data.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace quorvel {

/// The merge sizes of one cell.
struct MergeSize {
  BYTE rows = 1;
  BYTE cols = 1;
};

/// The switches of a run of cells: its outer edges and the lines between its cells.
struct RunLines {
  bool top = false;
  bool innerHorizontal = false;
  bool bottom = false;
  bool left = false;
  bool innerVertical = false;
  bool right = false;
};

/// Cells lie row by row; a cell's index is row x columns + column. A bad index or position
/// addresses no cell and is refused without effect.
///
/// Callers may set merge sizes cell by cell and so leave merges that are not sound. What changes
/// the shape, merges or splits counts only the sound ones and dissolves the others; ruling lines
/// counts only the sound ones, too, and leaves the sizes alone; what only looks takes the sizes as
/// they are, cut at the grid's edge, and finds no run in blocks that overlap.
class CellGrid {
public:
  static constexpr int kMostLines = 255;  ///< rows, and columns

  CellGrid(int rows, int columns);
  /// Takes over rows x columns cells.
  CellGrid(int rows, int columns, std::vector<CLayoutCelData> cells);
  CellGrid(const CellGrid&) = default;
  CellGrid& operator=(const CellGrid&) = default;
  CellGrid(CellGrid&&) = default;
  /// Cells stay where they are if both grids have the same shape.
  CellGrid& operator=(CellGrid&& other) noexcept;
  ~CellGrid() = default;

  int Rows() const { return m_rows; }
  int Columns() const { return m_columns; }
  int Size() const { return m_rows * m_columns; }
  bool Has(int row, int col) const {
    return row >= 0 && row < m_rows && col >= 0 && col < m_columns;
  }
  int IndexOf(int row, int col) const { return row * m_columns + col; }

  /// Null where there is no such cell.
  CLayoutCelData* At(int index) { return HasIndex(index) ? m_cells.data() + index : nullptr; }
  const CLayoutCelData* At(int index) const {
    return HasIndex(index) ? m_cells.data() + index : nullptr;
  }

  // Shape. Texts, fonts and flags stay with their cells.

  /// Keeps every cell that lies in both shapes and clips merges to the new one; `fresh` is what new
  /// cells look like.
  void Reshape(int rows, int columns, const CLayoutCelData& fresh);
  /// A new line of cells before `at`, with the borders of the one that it displaces. A merge that
  /// it cuts through grows by it.
  void Insert(Direction direction, int at);
  /// A merge that loses its first line moves its content to what is its top-left cell then.
  void Delete(Direction direction, int at);

  // Merges.

  /// The sound merged blocks, by their top-left cells in index order.
  std::vector<CellRange> Merges() const;
  /// The merge sizes that the cells have when only sound merges count, by index.
  std::vector<MergeSize> SoundSizes() const;
  /// Whether all cells have those.
  bool IsSound() const;
  /// Merges the selected run whose top-left cell is (row, col); that cell stays selected. False
  /// where no run of two or more cells is.
  bool Merge(int row, int col, bool wholeSelection);
  /// Deselects the cell and splits its block. False where the cell is not merged.
  bool Split(int row, int col);

  // Selection.

  bool IsSelected() const;
  /// The first selected cell that is not covered.
  std::optional<CellRange> FirstSelected() const;
  /// The solid rectangle of selected cells with this top-left cell, that touches no other selected
  /// cell; in grid positions, but a single cell, merged or not, is 1 x 1. With `wholeSelection`
  /// nothing else may be selected.
  std::optional<CellRange> RunAt(int row, int col, bool wholeSelection) const;
  bool IsMergePossible(bool wholeSelection) const;
  bool IsSplitPossible() const;
  /// For each row (column) whether a selected cell lies in it.
  std::vector<bool> SelectedLines(Direction direction) const;

  // Ruled lines.

  /// Gives every selected run these lines, and the neighbours' facing edges with them.
  void SetShowLine(const RunLines& shown);

  // Rectangles.

  /// Stores the rectangle of a cell over its merged block, from the `table` of all positions'
  /// rectangles. False, and nothing stored, for a covered cell and a bad index.
  bool RectOf(int index, const CRect* table, CRect& rect) const {
    const CLayoutCelData* const cell = At(index);
    FetchSizesAhead(cell);
    if (cell != nullptr && cell->GetRowMeargeSize() == 1 && cell->GetColMeargeSize() == 1) {
      rect = table[index];  // most cells; a page is painted by asking for each of them
      return true;
    }
    return BlockRectOf(index, table, rect);
  }

private:
  struct Run {
    CellRange range;  ///< in grid positions
    int cells = 0;
  };

  bool HasIndex(int index) const { return index >= 0 && index < Size(); }
  const CLayoutCelData& Cell(int row, int col) const {
    return m_cells[static_cast<std::size_t>(IndexOf(row, col))];
  }
  CLayoutCelData& Cell(int row, int col) {
    return m_cells[static_cast<std::size_t>(IndexOf(row, col))];
  }
  /// Who paints asks for one cell after another, and each has cache lines of its own: those with
  /// the merge sizes, at a cell's end, are asked for some cells ahead. Where there is no cell any
  /// more that does nothing.
  static void FetchSizesAhead(const CLayoutCelData* cell) {
    constexpr std::uintptr_t kAhead = 17 * sizeof(CLayoutCelData) - 1;
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(cell) + kAhead;
    // As a number: there need not be a cell. NOLINTNEXTLINE(performance-no-int-to-ptr)
    __builtin_prefetch(reinterpret_cast<const void*>(address));
  }
  bool BlockRectOf(int index, const CRect* table, CRect& rect) const;
  bool IsCovered(int row, int col) const { return Cell(row, col).GetRowMeargeSize() < 1; }
  CellRange BlockAt(int row, int col) const;
  std::optional<CellRange> OwnerOf(int row, int col) const;
  bool IsInSelection(int row, int col) const;
  std::optional<Run> FindRun(int row, int col) const;
  bool FillsSelected(Run& run) const;
  bool TouchesSelection(const CellRange& range) const;
  bool IsWholeSelection(const CellRange& range) const;

  void SetMerges(const std::vector<CellRange>& merges);
  GridLines Lines() const;
  void SetLines(const GridLines& lines, const std::vector<CellRange>& merges);

  int m_rows;
  int m_columns;
  std::vector<CLayoutCelData> m_cells;
};

}  // namespace quorvel
