#include "kivdata/cell_grid.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorvel {

CellGrid::CellGrid(int rows, int columns)
    : m_rows(rows),
      m_columns(columns),
      m_cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}

CellGrid::CellGrid(int rows, int columns, std::vector<CLayoutCelData> cells)
    : m_rows(rows), m_columns(columns), m_cells(std::move(cells)) {}

CellGrid& CellGrid::operator=(CellGrid&& other) noexcept {
  if (this == &other) {
    return *this;
  }
  if (m_rows == other.m_rows && m_columns == other.m_columns) {
    std::move(other.m_cells.begin(), other.m_cells.end(), m_cells.begin());
  } else {
    m_cells = std::move(other.m_cells);
  }
  m_rows = other.m_rows;
  m_columns = other.m_columns;
  other.m_rows = 0;
  other.m_cells.clear();
  return *this;
}

// Shape.

void CellGrid::Reshape(int rows, int columns, const CLayoutCelData& fresh) {
  const int keptRows = std::min(rows, m_rows);
  const int keptColumns = std::min(columns, m_columns);

  const GridLines old = Lines();
  GridLines lines(rows, columns);
  for (int row = 0; row < keptRows; ++row) {
    for (int col = 0; col < keptColumns; ++col) {
      lines.Set(Direction::kRows, row, col, old.Shown(Direction::kRows, row, col));
      lines.Set(Direction::kRows, row + 1, col, old.Shown(Direction::kRows, row + 1, col));
      lines.Set(Direction::kColumns, col, row, old.Shown(Direction::kColumns, col, row));
      lines.Set(Direction::kColumns, col + 1, row, old.Shown(Direction::kColumns, col + 1, row));
    }
  }

  std::vector<CellRange> merges;
  for (CellRange merge : Merges()) {
    if (merge.row >= rows || merge.col >= columns) {
      continue;
    }
    const bool bottom = old.Shown(Direction::kRows, merge.EndRow(), merge.col);
    const bool right = old.Shown(Direction::kColumns, merge.EndCol(), merge.row);
    merge.rows = std::min(merge.rows, rows - merge.row);
    merge.cols = std::min(merge.cols, columns - merge.col);
    for (int col = merge.col; col < merge.EndCol(); ++col) {
      lines.Set(Direction::kRows, merge.EndRow(), col, bottom);
    }
    for (int row = merge.row; row < merge.EndRow(); ++row) {
      lines.Set(Direction::kColumns, merge.EndCol(), row, right);
    }
    if (merge.rows > 1 || merge.cols > 1) {
      merges.push_back(merge);
    }
  }

  std::vector<CLayoutCelData> cells;
  cells.reserve(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < columns; ++col) {
      if (row < keptRows && col < keptColumns) {
        cells.push_back(std::move(Cell(row, col)));
      } else {
        cells.push_back(fresh);
      }
    }
  }
  m_cells = std::move(cells);
  m_rows = rows;
  m_columns = columns;
  SetMerges(merges);
  SetLines(lines, merges);
}

void CellGrid::Insert(Direction direction, int at) {
  std::vector<CellRange> merges = Merges();
  const BlockMap oldBlocks(m_rows, m_columns, merges);
  for (CellRange& merge : merges) {
    if (Start(merge, direction) >= at) {
      ++Start(merge, direction);
    } else if (End(merge, direction) > at) {
      ++Length(merge, direction);
    }
  }
  const GridLines lines = WithLine(Lines(), direction, at);

  std::vector<CLayoutCelData> cells;
  cells.reserve(static_cast<std::size_t>(lines.Rows()) * static_cast<std::size_t>(lines.Columns()));
  const bool isRows = direction == Direction::kRows;
  for (int row = 0; row < lines.Rows(); ++row) {
    for (int col = 0; col < lines.Columns(); ++col) {
      const int along = isRows ? row : col;
      const int from = along > at ? along - 1 : along;
      const Position source = isRows ? Position{from, col} : Position{row, from};
      if (along == at) {
        // The displaced cell's font, so that a new line is written like its neighbours.
        const CellRange& block = oldBlocks.At(source);
        CLayoutCelData cell;
        cell.SetFont(Cell(block.row, block.col).GetFont());
        cells.push_back(std::move(cell));
      } else {
        cells.push_back(Cell(source.row, source.col));
      }
    }
  }
  m_cells = std::move(cells);
  m_rows = lines.Rows();
  m_columns = lines.Columns();
  SetMerges(merges);
  SetLines(lines, merges);
}

void CellGrid::Delete(Direction direction, int at) {
  const std::vector<CellRange> old = Merges();
  GridLines lines = WithoutLine(Lines(), BlockMap(m_rows, m_columns, old), direction, at);

  std::vector<CellRange> merges;
  for (CellRange merge : old) {
    if (Start(merge, direction) > at) {
      --Start(merge, direction);
    } else if (End(merge, direction) > at) {
      --Length(merge, direction);
    }
    if (merge.rows * merge.cols > 1) {
      merges.push_back(merge);
    }
  }
  UnifyBoundary(lines, BlockMap(lines.Rows(), lines.Columns(), merges), direction, at);

  std::vector<CLayoutCelData> cells;
  cells.reserve(static_cast<std::size_t>(lines.Rows()) * static_cast<std::size_t>(lines.Columns()));
  for (CellRange merge : old) {
    if (Start(merge, direction) == at && Length(merge, direction) > 1) {
      const Position second = direction == Direction::kRows ? Position{merge.row + 1, merge.col}
                                                            : Position{merge.row, merge.col + 1};
      std::swap(Cell(merge.row, merge.col), Cell(second.row, second.col));
    }
  }
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      if ((direction == Direction::kRows ? row : col) != at) {
        cells.push_back(std::move(Cell(row, col)));
      }
    }
  }
  m_cells = std::move(cells);
  m_rows = lines.Rows();
  m_columns = lines.Columns();
  SetMerges(merges);
  SetLines(lines, merges);
}

// Merges.

CellRange CellGrid::BlockAt(int row, int col) const {
  const CLayoutCelData& cell = Cell(row, col);
  return {row, col, std::min<int>(cell.GetRowMeargeSize(), m_rows - row),
          std::clamp<int>(cell.GetColMeargeSize(), 1, m_columns - col)};
}

std::vector<CellRange> CellGrid::Merges() const {
  std::vector<CellRange> merges;
  std::vector<bool> taken(m_cells.size(), false);
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      const CLayoutCelData& cell = Cell(row, col);
      const CellRange block{row, col, cell.GetRowMeargeSize(), cell.GetColMeargeSize()};
      if (block.rows * block.cols <= 1 || block.EndRow() > m_rows || block.EndCol() > m_columns) {
        continue;
      }
      bool sound = true;
      for (int index = 0; sound && index < block.rows * block.cols; ++index) {
        const int atRow = row + index / block.cols;
        const int atCol = col + index % block.cols;
        const CLayoutCelData& other = Cell(atRow, atCol);
        sound = !taken[static_cast<std::size_t>(IndexOf(atRow, atCol))] &&
                (index == 0 || (other.GetRowMeargeSize() == 0 && other.GetColMeargeSize() == 0));
      }
      if (!sound) {
        continue;
      }
      for (int index = 0; index < block.rows * block.cols; ++index) {
        taken[static_cast<std::size_t>(
            IndexOf(row + index / block.cols, col + index % block.cols))] = true;
      }
      merges.push_back(block);
    }
  }
  return merges;
}

std::vector<MergeSize> CellGrid::SoundSizes() const {
  std::vector<MergeSize> sizes(m_cells.size());
  for (const CellRange& merge : Merges()) {
    for (int index = 0; index < merge.rows * merge.cols; ++index) {
      sizes[static_cast<std::size_t>(
          IndexOf(merge.row + index / merge.cols, merge.col + index % merge.cols))] = {0, 0};
    }
    sizes[static_cast<std::size_t>(IndexOf(merge.row, merge.col))] = {
        static_cast<BYTE>(merge.rows), static_cast<BYTE>(merge.cols)};
  }
  return sizes;
}

bool CellGrid::IsSound() const {
  return std::equal(m_cells.begin(), m_cells.end(), SoundSizes().begin(),
                    [](const CLayoutCelData& cell, const MergeSize& size) {
                      return cell.GetRowMeargeSize() == size.rows &&
                             cell.GetColMeargeSize() == size.cols;
                    });
}

/// Makes these, which must be sound, the merges.
void CellGrid::SetMerges(const std::vector<CellRange>& merges) {
  for (CLayoutCelData& cell : m_cells) {
    cell.SetRowMeargeSize(1);
    cell.SetColMeargeSize(1);
  }
  for (const CellRange& merge : merges) {
    for (int index = 0; index < merge.rows * merge.cols; ++index) {
      CLayoutCelData& cell = Cell(merge.row + index / merge.cols, merge.col + index % merge.cols);
      cell.SetRowMeargeSize(0);
      cell.SetColMeargeSize(0);
    }
    Cell(merge.row, merge.col).SetRowMeargeSize(static_cast<BYTE>(merge.rows));
    Cell(merge.row, merge.col).SetColMeargeSize(static_cast<BYTE>(merge.cols));
  }
}

bool CellGrid::Merge(int row, int col, bool wholeSelection) {
  const std::optional<Run> run = FindRun(row, col);
  if (!run || run->cells < 2 || (wholeSelection && !IsWholeSelection(run->range))) {
    return false;
  }
  const CellRange range = run->range;
  GridLines lines = Lines();
  std::vector<CellRange> merges = Merges();
  std::erase_if(merges,
                [&](const CellRange& merge) { return range.Contains(merge.row, merge.col); });
  merges.push_back(range);

  ShowInside(lines, range);
  const BlockMap blocks(m_rows, m_columns, merges);
  for (const Direction direction : {Direction::kRows, Direction::kColumns}) {
    const Direction other = Across(direction);
    CellRange block = range;
    const int from = Start(block, other);
    for (const int boundary : {Start(block, direction), End(block, direction)}) {
      SetBoundary(lines, blocks, direction, boundary, from, End(block, other),
                  lines.Shown(direction, boundary, from));
    }
  }

  for (int index = 1; index < range.rows * range.cols; ++index) {
    Cell(row + index / range.cols, col + index % range.cols).SetSelected(0);
  }
  SetMerges(merges);
  SetLines(lines, merges);
  return true;
}

bool CellGrid::Split(int row, int col) {
  std::vector<CellRange> merges = Merges();
  const auto isThis = [&](const CellRange& merge) { return merge.row == row && merge.col == col; };
  const auto found = std::find_if(merges.begin(), merges.end(), isThis);
  if (found == merges.end()) {
    return false;
  }
  GridLines lines = Lines();
  ShowInside(lines, *found);
  merges.erase(found);
  Cell(row, col).SetSelected(0);
  SetMerges(merges);
  SetLines(lines, merges);
  return true;
}

// Selection.

bool CellGrid::IsSelected() const {
  return std::any_of(m_cells.begin(), m_cells.end(),
                     [](const CLayoutCelData& cell) { return cell.GetSelected() != 0; });
}

std::optional<CellRange> CellGrid::FirstSelected() const {
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      if (Cell(row, col).GetSelected() != 0 && !IsCovered(row, col)) {
        return CellRange{row, col, 1, 1};
      }
    }
  }
  return std::nullopt;
}

/// The nearest block to the left or above that reaches a covered position.
std::optional<CellRange> CellGrid::OwnerOf(int row, int col) const {
  for (int above = row; above >= 0; --above) {
    int left = col;
    while (left > 0 && IsCovered(above, left)) {
      --left;
    }
    if (!IsCovered(above, left)) {
      const CellRange block = BlockAt(above, left);
      if (block.Contains(row, col)) {
        return block;
      }
    }
  }
  return std::nullopt;
}

/// Whether the position is marked itself or lies in the block of a marked cell.
bool CellGrid::IsInSelection(int row, int col) const {
  if (!Has(row, col)) {
    return false;
  }
  if (Cell(row, col).GetSelected() != 0) {
    return true;
  }
  if (!IsCovered(row, col)) {
    return false;
  }
  const std::optional<CellRange> owner = OwnerOf(row, col);
  return owner && Cell(owner->row, owner->col).GetSelected() != 0;
}

std::optional<CellGrid::Run> CellGrid::FindRun(int row, int col) const {
  const auto isSelectedCell = [this](int atRow, int atCol) {
    return Has(atRow, atCol) && !IsCovered(atRow, atCol) && Cell(atRow, atCol).GetSelected() != 0;
  };
  if (!isSelectedCell(row, col) || IsInSelection(row - 1, col) || IsInSelection(row, col - 1)) {
    return std::nullopt;
  }
  int endRow = row;
  while (isSelectedCell(endRow, col)) {
    endRow = BlockAt(endRow, col).EndRow();
  }
  int endCol = col;
  while (isSelectedCell(row, endCol)) {
    endCol = BlockAt(row, endCol).EndCol();
  }
  Run run{{row, col, endRow - row, endCol - col}, 0};
  if (!FillsSelected(run) || TouchesSelection(run.range)) {
    return std::nullopt;
  }
  return run;
}

/// Whether whole selected cells fill the run's rectangle; counts them.
bool CellGrid::FillsSelected(Run& run) const {
  const CellRange& range = run.range;
  std::vector<bool> filled(static_cast<std::size_t>(range.rows) *
                           static_cast<std::size_t>(range.cols));
  const auto at = [&](int row, int col) {
    return static_cast<std::size_t>((row - range.row) * range.cols + col - range.col);
  };
  for (int row = range.row; row < range.EndRow(); ++row) {
    for (int col = range.col; col < range.EndCol(); ++col) {
      if (IsCovered(row, col)) {
        if (!filled[at(row, col)]) {
          return false;
        }
        continue;
      }
      const CellRange block = BlockAt(row, col);
      if (filled[at(row, col)] || Cell(row, col).GetSelected() == 0 ||
          block.EndRow() > range.EndRow() || block.EndCol() > range.EndCol()) {
        return false;
      }
      for (int index = 0; index < block.rows * block.cols; ++index) {
        filled[at(row + index / block.cols, col + index % block.cols)] = true;
      }
      ++run.cells;
    }
  }
  return true;
}

/// Whether a selected position lies directly beside the range.
bool CellGrid::TouchesSelection(const CellRange& range) const {
  for (int row = range.row; row < range.EndRow(); ++row) {
    if (IsInSelection(row, range.col - 1) || IsInSelection(row, range.EndCol())) {
      return true;
    }
  }
  for (int col = range.col; col < range.EndCol(); ++col) {
    if (IsInSelection(range.row - 1, col) || IsInSelection(range.EndRow(), col)) {
      return true;
    }
  }
  return false;
}

bool CellGrid::IsWholeSelection(const CellRange& range) const {
  for (int index = 0; index < Size(); ++index) {
    if (m_cells[static_cast<std::size_t>(index)].GetSelected() != 0 &&
        !range.Contains(index / m_columns, index % m_columns)) {
      return false;
    }
  }
  return true;
}

std::optional<CellRange> CellGrid::RunAt(int row, int col, bool wholeSelection) const {
  const std::optional<Run> run = FindRun(row, col);
  if (!run || (wholeSelection && !IsWholeSelection(run->range))) {
    return std::nullopt;
  }
  return run->cells == 1 ? CellRange{row, col, 1, 1} : run->range;
}

bool CellGrid::IsMergePossible(bool wholeSelection) const {
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      const std::optional<Run> run = FindRun(row, col);
      if (run && run->cells > 1 && (!wholeSelection || IsWholeSelection(run->range))) {
        return true;
      }
    }
  }
  return false;
}

bool CellGrid::IsSplitPossible() const {
  const std::vector<CellRange> merges = Merges();
  return std::any_of(merges.begin(), merges.end(), [this](const CellRange& merge) {
    return Cell(merge.row, merge.col).GetSelected() != 0;
  });
}

std::vector<bool> CellGrid::SelectedLines(Direction direction) const {
  std::vector<bool> selected(
      static_cast<std::size_t>(direction == Direction::kRows ? m_rows : m_columns), false);
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      if (Cell(row, col).GetSelected() == 0 || IsCovered(row, col)) {
        continue;
      }
      CellRange block = BlockAt(row, col);
      const auto first = selected.begin() + Start(block, direction);
      std::fill(first, first + Length(block, direction), true);
    }
  }
  return selected;
}

// Ruled lines.

/// Each boundary is read from the cells after it, the last one from those before it. The cells of a
/// block keep their own flags, so those at its edges can be read; what lies inside reads as shown.
GridLines CellGrid::Lines() const {
  GridLines lines(m_rows, m_columns);
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      const CLayoutCelData& cell = Cell(row, col);
      lines.Read(Direction::kRows, row, col, cell.GetShowLineVT() != 0);
      lines.Read(Direction::kColumns, col, row, cell.GetShowLineHL() != 0);
      if (row + 1 == m_rows) {
        lines.Read(Direction::kRows, m_rows, col, cell.GetShowLineVB() != 0);
      }
      if (col + 1 == m_columns) {
        lines.Read(Direction::kColumns, m_columns, row, cell.GetShowLineHR() != 0);
      }
    }
  }
  return lines;
}

/// Every position gets the lines around it that were set; the top-left cell of a block those around
/// the block. Lines that were only read stay as each of the two cells beside them has them.
void CellGrid::SetLines(const GridLines& lines, const std::vector<CellRange>& merges) {
  const auto tell = [&](CLayoutCelData& cell, void (CLayoutCelData::*setter)(int),
                        Direction direction, int boundary, int across) {
    if (lines.IsSet(direction, boundary, across)) {
      (cell.*setter)(lines.Shown(direction, boundary, across) ? 1 : 0);
    }
  };
  for (int row = 0; row < m_rows; ++row) {
    for (int col = 0; col < m_columns; ++col) {
      CLayoutCelData& cell = Cell(row, col);
      tell(cell, &CLayoutCelData::SetShowLineVT, Direction::kRows, row, col);
      tell(cell, &CLayoutCelData::SetShowLineVB, Direction::kRows, row + 1, col);
      tell(cell, &CLayoutCelData::SetShowLineHL, Direction::kColumns, col, row);
      tell(cell, &CLayoutCelData::SetShowLineHR, Direction::kColumns, col + 1, row);
    }
  }
  for (const CellRange& merge : merges) {
    CLayoutCelData& cell = Cell(merge.row, merge.col);
    tell(cell, &CLayoutCelData::SetShowLineVB, Direction::kRows, merge.EndRow(), merge.col);
    tell(cell, &CLayoutCelData::SetShowLineHR, Direction::kColumns, merge.EndCol(), merge.row);
  }
}

void CellGrid::SetShowLine(const RunLines& shown) {
  const std::vector<CellRange> merges = Merges();
  const BlockMap blocks(m_rows, m_columns, merges);
  GridLines lines = Lines();
  bool any = false;
  for (int index = 0; index < Size(); ++index) {
    const std::optional<Run> run = FindRun(index / m_columns, index % m_columns);
    if (!run) {
      continue;
    }
    any = true;
    const CellRange& range = run->range;
    for (int row = range.row; row <= range.EndRow(); ++row) {
      const bool on = row == range.row        ? shown.top
                      : row == range.EndRow() ? shown.bottom
                                              : shown.innerHorizontal;
      SetBoundary(lines, blocks, Direction::kRows, row, range.col, range.EndCol(), on);
    }
    for (int col = range.col; col <= range.EndCol(); ++col) {
      const bool on = col == range.col        ? shown.left
                      : col == range.EndCol() ? shown.right
                                              : shown.innerVertical;
      SetBoundary(lines, blocks, Direction::kColumns, col, range.row, range.EndRow(), on);
    }
  }
  if (any) {
    SetLines(lines, merges);
  }
}

// Rectangles.

bool CellGrid::BlockRectOf(int index, const CRect* table, CRect& rect) const {
  if (!HasIndex(index) || IsCovered(index / m_columns, index % m_columns)) {
    return false;
  }
  const CellRange block = BlockAt(index / m_columns, index % m_columns);
  const CRect& first = table[index];
  const CRect& last = table[IndexOf(block.EndRow() - 1, block.EndCol() - 1)];
  rect = CRect(first.left, first.top, last.right, last.bottom);
  return true;
}

}  // namespace quorvel
