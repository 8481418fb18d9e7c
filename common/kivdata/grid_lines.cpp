#include "kivdata/grid_lines.h"

namespace quorvel {

void SetBoundary(GridLines& lines, const BlockMap& blocks, Direction direction, int boundary,
                 int from, int to, bool shown) {
  const int count = lines.Count(direction);
  int place = 0;
  while (place < to) {
    if (blocks.IsInside(direction, boundary, place, count)) {
      ++place;
      continue;
    }
    const int end = blocks.LineEnd(direction, boundary, place, count);
    if (end > from) {
      for (int each = place; each < end; ++each) {
        lines.Set(direction, boundary, each, shown);
      }
    }
    place = end;
  }
}

void UnifyBoundary(GridLines& lines, const BlockMap& blocks, Direction direction, int boundary) {
  const int count = lines.Count(direction);
  const int places = lines.Count(Across(direction));
  int place = 0;
  while (place < places) {
    if (blocks.IsInside(direction, boundary, place, count)) {
      ++place;
      continue;
    }
    const int end = blocks.LineEnd(direction, boundary, place, count);
    bool shown = false;
    for (int each = place; each < end; ++each) {
      shown = shown || lines.Shown(direction, boundary, each);
    }
    SetBoundary(lines, blocks, direction, boundary, place, end, shown);
    place = end;
  }
}

void ShowInside(GridLines& lines, const CellRange& block) {
  for (int row = block.row; row < block.EndRow(); ++row) {
    for (int col = block.col; col < block.EndCol(); ++col) {
      if (row > block.row) {
        lines.Set(Direction::kRows, row, col, true);
      }
      if (col > block.col) {
        lines.Set(Direction::kColumns, col, row, true);
      }
    }
  }
}

GridLines WithLine(const GridLines& old, Direction direction, int at) {
  const bool isRows = direction == Direction::kRows;
  GridLines lines(old.Rows() + (isRows ? 1 : 0), old.Columns() + (isRows ? 0 : 1));
  const int places = old.Count(Across(direction));
  for (int line = 0; line <= old.Count(direction) + 1; ++line) {
    const int from = line > at ? line - 1 : line;
    for (int place = 0; place < places; ++place) {
      lines.Set(direction, line, place, old.Shown(direction, from, place));
    }
  }
  for (int line = 0; line <= old.Count(direction); ++line) {
    const int from = line > at ? line - 1 : line;
    for (int boundary = 0; boundary <= places; ++boundary) {
      lines.Set(Across(direction), boundary, line, old.Shown(Across(direction), boundary, from));
    }
  }
  return lines;
}

GridLines WithoutLine(const GridLines& old, const BlockMap& blocks, Direction direction, int at) {
  const bool isRows = direction == Direction::kRows;
  const int count = old.Count(direction);
  GridLines lines(old.Rows() - (isRows ? 1 : 0), old.Columns() - (isRows ? 0 : 1));
  const int places = old.Count(Across(direction));
  for (int line = 0; line < count; ++line) {
    for (int place = 0; place < places; ++place) {
      bool shown = old.Shown(direction, line > at ? line + 1 : line, place);
      if (line == at) {
        const bool below = old.Shown(direction, at + 1, place);
        if (at + 1 == count || (at > 0 && blocks.IsInside(direction, at, place, count))) {
          shown = below;
        } else if (at > 0 && !blocks.IsInside(direction, at + 1, place, count)) {
          shown = shown || below;
        }
      }
      lines.Set(direction, line, place, shown);
    }
  }
  for (int line = 0; line + 1 < count; ++line) {
    const int from = line < at ? line : line + 1;
    for (int boundary = 0; boundary <= places; ++boundary) {
      lines.Set(Across(direction), boundary, line, old.Shown(Across(direction), boundary, from));
    }
  }
  return lines;
}

}  // namespace quorvel
