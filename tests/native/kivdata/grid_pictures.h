// Grids as a few lines of text, so that a test shows at a glance what it expects.
//
//   EXPECT_EQ(MergePicture(grid), "aa.\n"
//                                 "aa.\n");
#pragma once

#include "kivdata/cell_grid.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace quorvel::test {

/// Each block has a letter of its own, in index order; a single cell is a point; a covered cell
/// that no block covers is a question mark.
inline std::string MergePicture(const CellGrid& grid) {
  std::string cells(static_cast<std::size_t>(grid.Size()), '?');
  char letter = 'a';
  for (int index = 0; index < grid.Size(); ++index) {
    const CLayoutCelData& cell = *grid.At(index);
    const int rows = cell.GetRowMeargeSize();
    const int cols = cell.GetColMeargeSize();
    if (rows == 1 && cols == 1) {
      cells[static_cast<std::size_t>(index)] = '.';
    } else if (rows > 0) {
      for (int at = 0; at < rows * cols; ++at) {
        const int row = index / grid.Columns() + at / cols;
        const int col = index % grid.Columns() + at % cols;
        if (grid.Has(row, col)) {
          cells[static_cast<std::size_t>(grid.IndexOf(row, col))] = letter;
        }
      }
      ++letter;
    }
  }
  std::string picture;
  for (int row = 0; row < grid.Rows(); ++row) {
    picture += cells.substr(static_cast<std::size_t>(grid.IndexOf(row, 0)),
                            static_cast<std::size_t>(grid.Columns())) +
               "\n";
  }
  return picture;
}

/// The texts of the cells, each one character wide ('.' for an empty text).
inline std::string TextPicture(const CellGrid& grid) {
  std::string picture;
  for (int index = 0; index < grid.Size(); ++index) {
    const std::string text(grid.At(index)->TextView());
    picture += text.empty() ? "." : text;
    if ((index + 1) % grid.Columns() == 0) {
      picture += '\n';
    }
  }
  return picture;
}

/// Each cell's own border flags: "LRTB" with a small letter where the line is hidden.
inline std::string Borders(const CellGrid& grid, int row, int col) {
  const CLayoutCelData& cell = *grid.At(grid.IndexOf(row, col));
  std::string borders;
  borders += cell.GetShowLineHL() != 0 ? 'L' : 'l';
  borders += cell.GetShowLineHR() != 0 ? 'R' : 'r';
  borders += cell.GetShowLineVT() != 0 ? 'T' : 't';
  borders += cell.GetShowLineVB() != 0 ? 'B' : 'b';
  return borders;
}

inline void Select(CellGrid& grid, std::initializer_list<std::pair<int, int>> cells) {
  for (const auto& [row, col] : cells) {
    grid.At(grid.IndexOf(row, col))->SetSelected(1);
  }
}

/// Marks the rectangle alone, covered cells included, as a drag of the mouse does.
inline void SelectOnly(CellGrid& grid, const CellRange& range) {
  for (int index = 0; index < grid.Size(); ++index) {
    const bool inside = range.Contains(index / grid.Columns(), index % grid.Columns());
    grid.At(index)->SetSelected(inside ? 1 : 0);
  }
}

/// A grid with these blocks merged, nothing selected.
inline CellGrid GridWith(int rows, int columns, std::initializer_list<CellRange> merges) {
  CellGrid grid(rows, columns);
  for (const CellRange& merge : merges) {
    SelectOnly(grid, merge);
    grid.Merge(merge.row, merge.col, true);
  }
  SelectOnly(grid, {});
  return grid;
}

}  // namespace quorvel::test
