// GridLines: which of a grid's ruled lines are shown, told once for each line and not once for each
// of the two cells beside it.
//
//   GridLines lines(2, 3);                                // all shown
//   lines.Set(Direction::kRows, 1, 0, false);             // between rows 0 and 1, above column 0
#pragma once

#include <cstddef>
#include <vector>

namespace quorvel {

/// Rows follow each other downwards, columns to the right. What holds for both is written once, for
/// lines `along` the direction and places `across` it.
enum class Direction { kRows, kColumns };

/// The segments of a grid. Boundary b of a direction lies before its line b, so there is one more
/// boundary than lines; it has a segment for each line of the other direction.
class GridLines {
public:
  GridLines(int rows, int columns)
      : m_rows(rows),
        m_columns(columns),
        m_betweenRows(static_cast<std::size_t>(rows + 1) * static_cast<std::size_t>(columns)),
        m_betweenColumns(static_cast<std::size_t>(columns + 1) * static_cast<std::size_t>(rows)) {}

  int Rows() const { return m_rows; }
  int Columns() const { return m_columns; }
  int Count(Direction direction) const {
    return direction == Direction::kRows ? m_rows : m_columns;
  }

  bool Shown(Direction direction, int boundary, int across) const {
    return Segments(direction)[At(direction, boundary, across)].shown;
  }
  /// Whether the segment was set, and not only read from the cells.
  bool IsSet(Direction direction, int boundary, int across) const {
    return Segments(direction)[At(direction, boundary, across)].isSet;
  }
  void Set(Direction direction, int boundary, int across, bool shown) {
    Segments(direction)[At(direction, boundary, across)] = {shown, true};
  }
  void Read(Direction direction, int boundary, int across, bool shown) {
    Segments(direction)[At(direction, boundary, across)] = {shown, false};
  }

private:
  struct Segment {
    bool shown = true;
    bool isSet = false;
  };

  std::vector<Segment>& Segments(Direction direction) {
    return direction == Direction::kRows ? m_betweenRows : m_betweenColumns;
  }
  const std::vector<Segment>& Segments(Direction direction) const {
    return direction == Direction::kRows ? m_betweenRows : m_betweenColumns;
  }
  std::size_t At(Direction direction, int boundary, int across) const {
    const int stride = direction == Direction::kRows ? m_columns : m_rows;
    return static_cast<std::size_t>(boundary) * static_cast<std::size_t>(stride) +
           static_cast<std::size_t>(across);
  }

  int m_rows;
  int m_columns;
  std::vector<Segment> m_betweenRows;
  std::vector<Segment> m_betweenColumns;
};

}  // namespace quorvel
