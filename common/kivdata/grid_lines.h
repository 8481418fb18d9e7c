// GridLines: which of a grid's ruled lines are shown, told once for each line and not once for each
// of the two cells beside it.
//
//   GridLines lines(2, 3);                                // all shown
//   lines.Set(Direction::kRows, 1, 0, false);             // between rows 0 and 1, above column 0
#pragma once

#include "kivdata/cell_range.h"

#include <cstddef>
#include <vector>

namespace quorvel {

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

/// Shows or hides whole lines of a boundary: those that have a segment in from..to - 1.
void SetBoundary(GridLines& lines, const BlockMap& blocks, Direction direction, int boundary,
                 int from, int to, bool shown);

/// Gives each line of a boundary one state: shown where any of its segments is.
void UnifyBoundary(GridLines& lines, const BlockMap& blocks, Direction direction, int boundary);

/// There is no line inside a block; its segments read as shown, which is how they are after a
/// split.
void ShowInside(GridLines& lines, const CellRange& block);

/// The lines of a grid with a line of cells more: both its borders are as the one where it went.
GridLines WithLine(const GridLines& old, Direction direction, int at);

/// The lines of a grid with a line of cells less. Of its two borders the page's edge stays, or the
/// edge of a block that it was cut from, or else any that is shown.
GridLines WithoutLine(const GridLines& old, const BlockMap& blocks, Direction direction, int at);

}  // namespace quorvel
