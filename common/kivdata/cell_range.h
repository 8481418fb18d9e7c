// Places in a grid: positions, ranges of them, and the blocks that merging has made.
//
//   const BlockMap blocks(3, 4, {{1, 1, 2, 2}});   // one merged block in a grid of 3 x 4
//   blocks.At({2, 2});                              // {1, 1, 2, 2}
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quorvel {

/// Rows follow each other downwards, columns to the right. What holds for both is written once, for
/// lines `along` the direction and places `across` it.
enum class Direction { kRows, kColumns };

/// A rectangle of grid positions.
struct CellRange {
  int row = 0;
  int col = 0;
  int rows = 0;
  int cols = 0;

  int EndRow() const { return row + rows; }
  int EndCol() const { return col + cols; }
  bool Contains(int atRow, int atCol) const {
    return atRow >= row && atRow < EndRow() && atCol >= col && atCol < EndCol();
  }
};

struct Position {
  int row;
  int col;
};

/// The position on line `along` of a direction, at place `across` it.
inline Position PositionOf(Direction direction, int along, int across) {
  return direction == Direction::kRows ? Position{along, across} : Position{across, along};
}

inline Direction Across(Direction direction) {
  return direction == Direction::kRows ? Direction::kColumns : Direction::kRows;
}

/// A range as first line and number of lines in a direction.
inline int& Start(CellRange& range, Direction direction) {
  return direction == Direction::kRows ? range.row : range.col;
}
inline int& Length(CellRange& range, Direction direction) {
  return direction == Direction::kRows ? range.rows : range.cols;
}
inline int End(const CellRange& range, Direction direction) {
  return direction == Direction::kRows ? range.EndRow() : range.EndCol();
}

/// For each position of a grid the block in which it lies, a single cell being its own.
class BlockMap {
public:
  BlockMap(int rows, int columns, const std::vector<CellRange>& merges)
      : m_columns(columns),
        m_blocks(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {
    for (int row = 0; row < rows; ++row) {
      for (int col = 0; col < columns; ++col) {
        At({row, col}) = {row, col, 1, 1};
      }
    }
    for (const CellRange& merge : merges) {
      for (int row = merge.row; row < merge.EndRow(); ++row) {
        for (int col = merge.col; col < merge.EndCol(); ++col) {
          At({row, col}) = merge;
        }
      }
    }
  }

  const CellRange& At(Position position) const {
    return m_blocks[static_cast<std::size_t>(position.row) * static_cast<std::size_t>(m_columns) +
                    static_cast<std::size_t>(position.col)];
  }

  /// Whether the segment lies inside a block, where there is no line.
  bool IsInside(Direction direction, int boundary, int across, int count) const {
    return boundary > 0 && boundary < count &&
           End(At(PositionOf(direction, boundary - 1, across)), direction) > boundary;
  }

  /// Where the line that has this segment ends: the edge of a block is one line over its whole
  /// width, and so is what lies opposite.
  int LineEnd(Direction direction, int boundary, int across, int count) const {
    const Direction other = Across(direction);
    int end = across + 1;
    for (int place = across; place < end; ++place) {
      if (boundary > 0) {
        end = std::max(end, End(At(PositionOf(direction, boundary - 1, place)), other));
      }
      if (boundary < count) {
        end = std::max(end, End(At(PositionOf(direction, boundary, place)), other));
      }
    }
    return end;
  }

private:
  CellRange& At(Position position) {
    return m_blocks[static_cast<std::size_t>(position.row) * static_cast<std::size_t>(m_columns) +
                    static_cast<std::size_t>(position.col)];
  }

  int m_columns;
  std::vector<CellRange> m_blocks;
};

}  // namespace quorvel
