#include "kivdata/layout_sheet.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quorvel {
namespace {

constexpr double kNoResolution = 1e-6;  // what is nearer to zero stands for none

bool IsCount(int count, int fewest) {
  return count >= fewest && count <= CellGrid::kMostLines;
}

CLayoutCelData FreshCell(double dotsPerMm) {
  CLayoutCelData cell;
  if (std::fabs(dotsPerMm) >= kNoResolution) {
    cell.GetFont()->CalcMmToLogFont(dotsPerMm);
  }
  return cell;
}

}  // namespace

LayoutSheet::LayoutSheet(GridLengths::Precision precision, int blocks, int fewestRows)
    : LayoutSheet(GridLengths(precision, 1),
                  std::vector<Block>(static_cast<std::size_t>(blocks),
                                     Block{GridLengths(precision, 1), CellGrid(1, 1)}),
                  fewestRows) {}

LayoutSheet::LayoutSheet(GridLengths columns, std::vector<Block> blocks, int fewestRows)
    : m_columns(std::move(columns)), m_blocks(std::move(blocks)), m_fewestRows(fewestRows) {}

LayoutSheet& LayoutSheet::operator=(LayoutSheet&& other) noexcept {
  m_columns = std::move(other.m_columns);
  if (m_blocks.size() == other.m_blocks.size()) {
    std::move(other.m_blocks.begin(), other.m_blocks.end(), m_blocks.begin());
  } else {
    m_blocks = std::move(other.m_blocks);
  }
  m_fewestRows = other.m_fewestRows;
  return *this;
}

// Lengths.

BYTE LayoutSheet::NumRow(int block) const {
  const Block* const found = Find(block);
  return static_cast<BYTE>(found != nullptr ? found->rows.Count() : 0);
}

double LayoutSheet::LengthRow(int block, int row) const {
  const Block* const found = Find(block);
  return found != nullptr ? found->rows.At(row) : 0;
}

double LayoutSheet::AllLengthRow(int block) const {
  const Block* const found = Find(block);
  return found != nullptr ? found->rows.Total() : 0;
}

bool LayoutSheet::SetLengthRow(int block, int row, double length) {
  Block* const found = Find(block);
  return found != nullptr && found->rows.Set(row, length);
}

bool LayoutSheet::SetAllLengthRow(int block, double total, bool equal) {
  Block* const found = Find(block);
  return found != nullptr && found->rows.SetTotal(total, equal);
}

// Shape. Each operation changes a copy, so that lack of memory leaves nothing half done.

template <class Change>
void LayoutSheet::ChangeColumns(GridLengths columns, const Change& change) {
  std::vector<Block> blocks = m_blocks;
  for (Block& each : blocks) {
    change(each);
  }
  m_columns = std::move(columns);
  m_blocks = std::move(blocks);
}

bool LayoutSheet::Divide(int block, int rows, int columns, double dotsPerMm) {
  Block* const found = Find(block);
  if (found == nullptr || !IsCount(rows, m_fewestRows) || !IsCount(columns, 1)) {
    return false;
  }
  const CLayoutCelData fresh = FreshCell(dotsPerMm);
  if (columns == NumCol()) {
    if (rows != NumRow(block)) {
      Block changed = *found;
      changed.rows.Resize(rows);
      changed.cells.Reshape(rows, columns, fresh);
      *found = std::move(changed);
    }
    return true;
  }
  GridLengths lengths = m_columns;
  lengths.Resize(columns);
  int number = 0;
  ChangeColumns(std::move(lengths), [&](Block& each) {
    if (number++ == block) {
      each.rows.Resize(rows);
    }
    each.cells.Reshape(each.rows.Count(), columns, fresh);
  });
  return true;
}

bool LayoutSheet::InsertRow(int block, int row) {
  Block* const found = Find(block);
  if (found == nullptr || !found->rows.Has(row) || found->rows.Count() == CellGrid::kMostLines) {
    return false;
  }
  Block changed = *found;
  changed.rows.InsertBefore(row);
  changed.cells.Insert(Direction::kRows, row);
  *found = std::move(changed);
  return true;
}

bool LayoutSheet::DeleteRow(int block, int row) {
  Block* const found = Find(block);
  if (found == nullptr || !found->rows.Has(row) || found->rows.Count() == 1) {
    return false;
  }
  Block changed = *found;
  changed.rows.Delete(row);
  changed.cells.Delete(Direction::kRows, row);
  *found = std::move(changed);
  return true;
}

bool LayoutSheet::InsertCol(int col) {
  GridLengths lengths = m_columns;
  if (m_columns.Count() == CellGrid::kMostLines || !lengths.InsertBefore(col)) {
    return false;
  }
  ChangeColumns(std::move(lengths),
                [&](Block& each) { each.cells.Insert(Direction::kColumns, col); });
  return true;
}

bool LayoutSheet::DeleteCol(int col) {
  GridLengths lengths = m_columns;
  if (m_columns.Count() == 1 || !lengths.Delete(col)) {
    return false;
  }
  ChangeColumns(std::move(lengths),
                [&](Block& each) { each.cells.Delete(Direction::kColumns, col); });
  return true;
}

// Selection.

bool LayoutSheet::CanInsertRow(int block) const {
  return FirstSelected(block).has_value() && NumRow(block) < CellGrid::kMostLines;
}

bool LayoutSheet::CanDeleteRow(int block) const {
  return FirstSelected(block).has_value() && NumRow(block) > 1;
}

bool LayoutSheet::CanInsertCol(int block) const {
  return FirstSelected(block).has_value() && NumCol() < CellGrid::kMostLines;
}

bool LayoutSheet::CanDeleteCol(int block) const {
  return FirstSelected(block).has_value() && NumCol() > 1;
}

bool LayoutSheet::CanEqualise(int block, Direction direction) const {
  const Block* const found = Find(block);
  if (found == nullptr) {
    return false;
  }
  const std::vector<bool> selected = found->cells.SelectedLines(direction);
  return std::count(selected.begin(), selected.end(), true) > 1;
}

void LayoutSheet::Equalise(int block, Direction direction) {
  if (Block* const found = Find(block)) {
    GridLengths& lengths = direction == Direction::kRows ? found->rows : m_columns;
    lengths.Equalise(found->cells.SelectedLines(direction));
  }
}

bool LayoutSheet::IsSelected(int block) const {
  const Block* const found = Find(block);
  return found != nullptr && found->cells.IsSelected();
}

bool LayoutSheet::IsMergePossible(int block) const {
  const Block* const found = Find(block);
  return found != nullptr && found->cells.IsMergePossible(HasOneRun());
}

bool LayoutSheet::IsSplitPossible(int block) const {
  const Block* const found = Find(block);
  return found != nullptr && found->cells.IsSplitPossible();
}

std::optional<CellRange> LayoutSheet::FirstSelected(int block) const {
  const Block* const found = Find(block);
  return found != nullptr ? found->cells.FirstSelected() : std::nullopt;
}

std::optional<CellRange> LayoutSheet::RunAt(int block, int row, int col) const {
  const Block* const found = Find(block);
  return found != nullptr ? found->cells.RunAt(row, col, HasOneRun()) : std::nullopt;
}

bool LayoutSheet::Merge(int block, int row, int col) {
  Block* const found = Find(block);
  return found != nullptr && found->cells.Merge(row, col, HasOneRun());
}

bool LayoutSheet::Split(int block, int row, int col) {
  Block* const found = Find(block);
  return found != nullptr && found->cells.Split(row, col);
}

void LayoutSheet::SetShowLine(int block, const RunLines& lines) {
  if (Block* const found = Find(block)) {
    found->cells.SetShowLine(lines);
  }
}

// Cells and rectangles.

int LayoutSheet::CellCount(int block) const {
  const Block* const found = Find(block);
  return found != nullptr ? found->cells.Size() : 0;
}

int LayoutSheet::IndexOf(int row, int col, int rows) const {
  return row >= 0 && row < rows && m_columns.Has(col) ? row * m_columns.Count() + col : -1;
}

std::optional<CellRange> LayoutSheet::PositionOf(int index, int rows) const {
  if (index < 0 || index >= rows * m_columns.Count()) {
    return std::nullopt;
  }
  return CellRange{index / m_columns.Count(), index % m_columns.Count(), 1, 1};
}

CLayoutCelData* LayoutSheet::Cell(int block, int index) {
  Block* const found = Find(block);
  return found != nullptr ? found->cells.At(index) : nullptr;
}

const CLayoutCelData* LayoutSheet::Cell(int block, int index) const {
  const Block* const found = Find(block);
  return found != nullptr ? found->cells.At(index) : nullptr;
}

void LayoutSheet::InitRects(int block, const CRect* area, CRect* table) const {
  const Block* const found = Find(block);
  if (found == nullptr || area == nullptr || table == nullptr) {
    return;
  }
  const std::vector<int> xs = m_columns.Edges(area->left, area->right);
  const std::vector<int> ys = found->rows.Edges(area->top, area->bottom);
  CRect* rect = table;
  for (std::size_t row = 0; row + 1 < ys.size(); ++row) {
    for (std::size_t col = 0; col + 1 < xs.size(); ++col) {
      *rect++ = CRect(xs[col], ys[row], xs[col + 1], ys[row + 1]);
    }
  }
}

}  // namespace quorvel
