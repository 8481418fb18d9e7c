#include "kivfcl/palette_rules.h"

#include <algorithm>

namespace quorvel {

int PaletteGrid::Rows() const {
  return count == 0 ? 0 : (count - 1) / columns + 1;
}

int PaletteGrid::WholeRows() const {
  return std::max<int>(client.cy / item.cy, 1);
}

int PaletteGrid::RowsInSight() const {
  return client.cy <= 0 ? 0 : static_cast<int>((client.cy - 1) / item.cy + 1);
}

int PaletteGrid::HighestFirstRow() const {
  return std::max(Rows() - WholeRows(), 0);
}

CRect PaletteGrid::Cell(int rowInSight, int column) const {
  return {CPoint(column * item.cx, rowInSight * item.cy), item};
}

std::optional<CRect> PaletteGrid::CellOf(int index) const {
  if (!HasEntry(index)) {
    return std::nullopt;
  }
  const int rowInSight = index / columns - firstRow;
  const int column = index % columns;
  const bool isInSight = 0 <= rowInSight && rowInSight < RowsInSight() &&
                         static_cast<long long>(column) * item.cx < client.cx;
  return isInSight ? std::optional(Cell(rowInSight, column)) : std::nullopt;
}

int PaletteGrid::EntryAt(const CPoint& point) const {
  if (!CRect(CPoint(0, 0), client).Contains(point)) {
    return -1;
  }
  const long long column = point.x / item.cx;
  const long long row = static_cast<long long>(firstRow) + point.y / item.cy;
  const long long index = row * columns + column;
  return column < columns && index < count ? static_cast<int>(index) : -1;
}

int PaletteGrid::FirstRowShowing(int index) const {
  if (!HasEntry(index)) {
    return firstRow;
  }
  const int row = index / columns;
  return std::clamp(firstRow, std::max(row - WholeRows() + 1, 0), row);
}

int PaletteGrid::KeptFirstRow(long long row) const {
  return static_cast<int>(std::clamp<long long>(row, 0, HighestFirstRow()));
}

int PaletteGrid::Stepped(int index, PaletteStep step) const {
  if (count == 0) {
    return -1;
  }
  if (step == PaletteStep::kLast) {
    return count - 1;
  }
  if (!HasEntry(index)) {
    return 0;
  }
  switch (step) {
    case PaletteStep::kLeft:
      return std::max(index - 1, 0);
    case PaletteStep::kRight:
      return std::min(index, count - 2) + 1;
    case PaletteStep::kUp:
      return SteppedByRows(index, -1);
    case PaletteStep::kDown:
      return SteppedByRows(index, 1);
    case PaletteStep::kPageUp:
      return SteppedByRows(index, -WholeRows());
    case PaletteStep::kPageDown:
      return SteppedByRows(index, WholeRows());
    case PaletteStep::kFirst:
    case PaletteStep::kLast:
      break;
  }
  return 0;
}

int PaletteGrid::SteppedByRows(int index, long long rows) const {
  const long long row = std::clamp<long long>(index / columns + rows, 0, Rows() - 1);
  return static_cast<int>(std::min<long long>(row * columns + index % columns, count - 1));
}

}  // namespace quorvel
