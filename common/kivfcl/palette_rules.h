// The arithmetic of a palette of colours in rows: where an entry stands, which entry a point means,
// which rows are shown, what a key selects. Nothing here needs a window.
//
//   const PaletteGrid grid{CSize(145, 100), CSize(24, 16), 6, 41};
//   const int index = grid.EntryAt({30, 20});   // 7
#pragma once

#include "framework/geometry.h"

#include <optional>

namespace quorvel {

/// What a key does to the selection.
enum class PaletteStep { kLeft, kRight, kUp, kDown, kPageUp, kPageDown, kFirst, kLast };

/// Entry i stands in row i / columns, column i % columns. Rows are shown from `firstRow` on at the
/// top. Item sizes and columns are at least 1, item sizes at most kLargestItem.
struct PaletteGrid {
  static constexpr int kLargestItem = 32'767;

  CSize client;
  CSize item{1, 1};
  int columns = 1;
  int count = 0;
  int firstRow = 0;

  bool HasEntry(int index) const { return 0 <= index && index < count; }
  int Rows() const;
  /// Rows that are seen whole, at least 1: so much is a page.
  int WholeRows() const;
  /// Rows of which anything is seen, were there enough of them.
  int RowsInSight() const;
  /// The first row when the last one is seen; also the highest first row there is.
  int HighestFirstRow() const;
  bool FitsWhole() const { return HighestFirstRow() == 0; }

  /// The cell in a row and a column of those in sight, counted from the top-left corner.
  CRect Cell(int rowInSight, int column) const;
  /// The cell of an entry; empty where no part of it is in sight.
  std::optional<CRect> CellOf(int index) const;
  /// The entry at a point in client pixels; -1 where there is none.
  int EntryAt(const CPoint& point) const;

  /// The first row, changed by the least that shows the entry's row whole.
  int FirstRowShowing(int index) const;
  /// A first row that there is.
  int KeptFirstRow(long long row) const;

  /// The entry that a step leads to. Left and right go on over the rows' ends; up, down and the
  /// pages keep the column, or take the last entry where the last row is shorter. With no entry
  /// selected, `index` is -1, any step but kLast leads to the first. -1 where there is no entry.
  int Stepped(int index, PaletteStep step) const;

private:
  int SteppedByRows(int index, long long rows) const;
};

}  // namespace quorvel
