#include "kivdata/reference_page.h"

#include <algorithm>
#include <cfloat>
#include <utility>

namespace quorvel {
namespace {

int Size(const auto& container) {
  return static_cast<int>(container.size());
}

template <class Item>
Span Whole(const GridOf<Item>& grid) {
  return {{0, 0}, Size(grid), grid.empty() ? 0 : Size(grid.front())};
}

/// A grid of the same shape as another.
template <class Item, class Other>
GridOf<Item> GridLike(const GridOf<Other>& other, const Item& item) {
  const Span whole = Whole(other);
  return GridOf<Item>(static_cast<std::size_t>(whole.rows),
                      std::vector<Item>(static_cast<std::size_t>(whole.cols), item));
}

// Merges.

/// For every position the sound block in which it lies: the top-left cell has its size, all others
/// have 0 and 0, and no block further up or left has any of them. All else is single cells.
GridOf<Span> BlocksOf(const CellRows& cells) {
  const Span whole = Whole(cells);
  GridOf<Span> blocks = GridLike(cells, Span{});
  GridOf<char> taken = GridLike(cells, char{0});
  for (const Place place : PlacesOf(whole)) {
    if (ItemAt(taken, place) != 0) {
      continue;
    }
    const ReferenceCell& cell = ItemAt(cells, place);
    const Span told{place, cell.rowMergeSize, cell.colMergeSize};
    const bool fits = told.Size() > 1 && told.EndRow() <= whole.rows && told.EndCol() <= whole.cols;
    const auto isFree = [&](Place other) {
      const bool covered =
          ItemAt(cells, other).rowMergeSize == 0 && ItemAt(cells, other).colMergeSize == 0;
      return ItemAt(taken, other) == 0 && (other == place || covered);
    };
    const PlacesOf places(told);
    if (!fits || !std::all_of(places.begin(), places.end(), isFree)) {
      ItemAt(blocks, place) = {place, 1, 1};
      continue;
    }
    for (const Place other : places) {
      ItemAt(blocks, other) = told;
      ItemAt(taken, other) = 1;
    }
  }
  return blocks;
}

/// Blocks of two or more positions.
std::vector<Span> MergedBlocks(const CellRows& cells) {
  const GridOf<Span> blocks = BlocksOf(cells);
  std::vector<Span> merged;
  for (const Place place : PlacesOf(Whole(cells))) {
    const Span& block = ItemAt(blocks, place);
    if (block.first == place && block.Size() > 1) {
      merged.push_back(block);
    }
  }
  return merged;
}

void SetMergeSizes(CellRows& cells, const Span& block) {
  for (const Place place : PlacesOf(block)) {
    ItemAt(cells, place).rowMergeSize = 0;
    ItemAt(cells, place).colMergeSize = 0;
  }
  ItemAt(cells, block.first).rowMergeSize = block.rows;
  ItemAt(cells, block.first).colMergeSize = block.cols;
}

/// What is no sound block becomes single cells.
void DropUnsoundMerges(CellRows& cells) {
  const std::vector<Span> merged = MergedBlocks(cells);
  for (const Place place : PlacesOf(Whole(cells))) {
    ItemAt(cells, place).rowMergeSize = 1;
    ItemAt(cells, place).colMergeSize = 1;
  }
  for (const Span& block : merged) {
    SetMergeSizes(cells, block);
  }
}

// Borders.

bool IsAtBorder(const Span& block, Place place, Border border) {
  return !block.Holds(NeighboursOf(place).at(static_cast<std::size_t>(border)));
}

/// Whether a position shows a border, its own or its block's; what lies inside a block reads as
/// shown.
bool PlaceShows(const CellRows& cells, const GridOf<Span>& blocks, Place place, Border border) {
  const Span& block = ItemAt(blocks, place);
  return !IsAtBorder(block, place, border) || ItemAt(cells, block.first).Shows(border);
}

/// The top-left cell of a block has the block's four borders; each covered cell repeats those at
/// which it lies.
void RepeatBordersInBlocks(CellRows& cells) {
  const GridOf<Span> blocks = BlocksOf(cells);
  for (const Place place : PlacesOf(Whole(cells))) {
    if (ItemAt(blocks, place).first != place) {
      for (const Border border : kBorders) {
        ItemAt(cells, place).Shows(border) = PlaceShows(cells, blocks, place, border);
      }
    }
  }
}

/// New cells take over the state of the lines that cells which stood before show at them.
void FollowStandingCells(CellRows& cells, const Span& stood) {
  const GridOf<Span> blocks = BlocksOf(cells);
  for (const Place place : PlacesOf(Whole(cells))) {
    if (stood.Holds(place)) {
      continue;
    }
    const std::array<Place, 4> neighbours = NeighboursOf(place);
    for (const Border border : kBorders) {
      const Place next = neighbours.at(static_cast<std::size_t>(border));
      if (Whole(cells).Holds(next) && stood.Holds(next)) {
        ItemAt(cells, place).Shows(border) = PlaceShows(cells, blocks, next, Opposite(border));
      }
    }
  }
}

/// Which edges are the two sides of the same piece of a line.
std::map<Edge, std::set<Edge>> FacingEdges(const GridOf<Span>& blocks) {
  std::map<Edge, std::set<Edge>> facing;
  for (const Place place : PlacesOf(Whole(blocks))) {
    const Place owner = ItemAt(blocks, place).first;
    const std::array<Place, 4> neighbours = NeighboursOf(place);
    for (const Border border : kBorders) {
      const Place next = neighbours.at(static_cast<std::size_t>(border));
      if (Whole(blocks).Holds(next) && ItemAt(blocks, next).first != owner) {
        facing[{owner, border}].insert({ItemAt(blocks, next).first, Opposite(border)});
      }
    }
  }
  return facing;
}

/// The lines on which the seeds lie: a line goes on through every edge that faces one of its edges.
std::vector<LineOfEdges> LinesThrough(const GridOf<Span>& blocks, const std::set<Edge>& seeds) {
  const std::map<Edge, std::set<Edge>> facing = FacingEdges(blocks);
  std::vector<LineOfEdges> lines;
  std::set<Edge> done;
  for (const Edge& seed : seeds) {
    if (!done.insert(seed).second) {
      continue;
    }
    LineOfEdges line{0, {seed}};
    for (std::size_t next = 0; next < line.edges.size(); ++next) {
      const auto found = facing.find(line.edges[next]);
      for (const Edge& other : found == facing.end() ? std::set<Edge>() : found->second) {
        if (done.insert(other).second) {
          line.edges.push_back(other);
        }
      }
    }
    lines.push_back(line);
  }
  return lines;
}

AskedEdges AllEdges(const CellRows& cells, const GridOf<Span>& blocks) {
  AskedEdges edges;
  for (const Place place : PlacesOf(Whole(cells))) {
    if (ItemAt(blocks, place).first == place) {
      for (const Border border : kBorders) {
        edges[{place, border}].insert(ItemAt(cells, place).Shows(border));
      }
    }
  }
  return edges;
}

// Changes of shape.

/// Rows and columns exchanged, so that a rule for rows serves for columns, too.
CellRows Transposed(const CellRows& cells) {
  const Span whole = Whole(cells);
  CellRows turned(static_cast<std::size_t>(whole.cols),
                  std::vector<ReferenceCell>(static_cast<std::size_t>(whole.rows)));
  for (const Place place : PlacesOf(whole)) {
    ReferenceCell cell = ItemAt(cells, place);
    std::swap(cell.rowMergeSize, cell.colMergeSize);
    std::swap(cell.Shows(Border::kLeft), cell.Shows(Border::kTop));
    std::swap(cell.Shows(Border::kRight), cell.Shows(Border::kBottom));
    ItemAt(turned, {place.col, place.row}) = cell;
  }
  return turned;
}

Edge Transposed(const Edge& edge) {
  constexpr std::array kTurned = {Border::kTop, Border::kLeft, Border::kBottom, Border::kRight};
  return {{edge.owner.col, edge.owner.row}, kTurned.at(static_cast<std::size_t>(edge.border))};
}

void InsertCellRow(CellRows& cells, int row) {
  DropUnsoundMerges(cells);
  const GridOf<Span> blocks = BlocksOf(cells);
  const std::vector<Span> merged = MergedBlocks(cells);

  std::vector<ReferenceCell> inserted;
  for (int col = 0; col < Whole(cells).cols; ++col) {
    const Place displaced{row, col};
    ReferenceCell cell;
    cell.font = ItemAt(cells, ItemAt(blocks, displaced).first).font;
    for (const Border border : kBorders) {
      cell.Shows(border) = PlaceShows(cells, blocks, displaced, border);
    }
    // It is the line above the displaced row that there are two of now.
    cell.Shows(Border::kBottom) = cell.Shows(Border::kTop);
    inserted.push_back(cell);
  }
  cells.insert(cells.begin() + row, inserted);
  for (Span block : merged) {
    if (block.first.row < row && block.EndRow() > row) {
      ++block.rows;
      SetMergeSizes(cells, block);
    }
  }
  RepeatBordersInBlocks(cells);
}

/// What became of the lines above and below a deleted row.
struct ClosedGap {
  std::set<Edge> edges;  ///< on the line that is there now
  AskedEdges asked;      ///< the states that it had, where it was two lines or a page's edge moved
};

ClosedGap DeleteCellRow(CellRows& cells, int row) {
  DropUnsoundMerges(cells);
  const CellRows before = cells;
  const GridOf<Span> blocksBefore = BlocksOf(cells);

  for (Span block : MergedBlocks(cells)) {
    if (row < block.first.row || row >= block.EndRow() || block.rows == 1) {
      continue;
    }
    const ReferenceCell first = ItemAt(cells, block.first);
    --block.rows;
    if (row == block.first.row) {
      ++block.first.row;
    }
    ItemAt(cells, block.first) = first;
    SetMergeSizes(cells, block);
  }
  cells.erase(cells.begin() + row);
  RepeatBordersInBlocks(cells);

  ClosedGap gap;
  const GridOf<Span> blocks = BlocksOf(cells);
  gap.asked = AllEdges(cells, blocks);
  for (int col = 0; col < Whole(cells).cols; ++col) {
    const Edge edge = row > 0 ? Edge{ItemAt(blocks, {row - 1, col}).first, Border::kBottom}
                              : Edge{ItemAt(blocks, {row, col}).first, Border::kTop};
    const Place far = row > 0 ? Place{row - 1, col} : Place{row, col};
    if (!IsAtBorder(ItemAt(blocks, far), far, edge.border)) {
      continue;  // inside a block, where there is no line
    }
    gap.edges.insert(edge);
    const Place deleted{row, col};
    for (const Border border : {Border::kTop, Border::kBottom}) {
      if (IsAtBorder(ItemAt(blocksBefore, deleted), deleted, border)) {
        gap.asked[edge].insert(PlaceShows(before, blocksBefore, deleted, border));
      }
    }
  }
  return gap;
}

void ResizeCells(CellRows& cells, int rows, int columns, const ReferenceCell& fresh) {
  DropUnsoundMerges(cells);
  const Span stood = Whole(cells);
  for (const Span& block : MergedBlocks(cells)) {
    if (block.first.row < rows && block.first.col < columns) {
      ReferenceCell& first = ItemAt(cells, block.first);
      first.rowMergeSize = std::min(block.rows, rows - block.first.row);
      first.colMergeSize = std::min(block.cols, columns - block.first.col);
    }
  }
  cells.resize(static_cast<std::size_t>(rows));
  for (std::vector<ReferenceCell>& row : cells) {
    row.resize(static_cast<std::size_t>(columns), fresh);
  }
  FollowStandingCells(cells, stood);
  RepeatBordersInBlocks(cells);
}

// Lengths.

long double Sum(const ReferenceLengths& lengths) {
  long double sum = 0;
  for (const ReferenceLength& length : lengths) {
    sum += length.value;
  }
  return sum;
}

/// What `count` roundings of lengths of this sum may come to.
double SlackOf(int count, double sum, double epsilon) {
  return count * (epsilon * sum + static_cast<double>(FLT_TRUE_MIN));
}

void ResizeLengths(ReferenceLengths& lengths, int count, double epsilon) {
  ReferenceLength fresh;
  if (!lengths.empty()) {
    const long double sum = Sum(lengths);
    fresh.value = static_cast<double>(sum / Size(lengths));
    fresh.slack = SlackOf(Size(lengths), fresh.value, epsilon);
  }
  lengths.resize(static_cast<std::size_t>(count), fresh);
}

void MakeEqual(ReferenceLengths& lengths, const std::vector<int>& which, double epsilon) {
  if (which.size() < 2) {
    return;
  }
  long double sum = 0;
  for (const int index : which) {
    sum += lengths.at(static_cast<std::size_t>(index)).value;
  }
  const ReferenceLength each{static_cast<double>(sum / Size(which)),
                             SlackOf(2, static_cast<double>(sum), epsilon)};
  for (const int index : which) {
    lengths.at(static_cast<std::size_t>(index)) = each;
  }
}

// Selection.

bool Marked(const GridOf<char>& marks, Place place) {
  return Whole(marks).Holds(place) && ItemAt(marks, place) != 0;
}

/// The rectangle around some positions.
Span Around(const std::vector<Place>& places) {
  Place low = places.front();
  Place high = low;
  for (const Place place : places) {
    low = {std::min(low.row, place.row), std::min(low.col, place.col)};
    high = {std::max(high.row, place.row), std::max(high.col, place.col)};
  }
  return {low, high.row - low.row + 1, high.col - low.col + 1};
}

/// Takes all marked positions that are reached from `start` over edges out of `marks`.
std::vector<Place> TakeConnected(GridOf<char>& marks, Place start) {
  std::vector<Place> found = {start};
  ItemAt(marks, start) = 0;
  for (std::size_t next = 0; next < found.size(); ++next) {
    for (const Place neighbour : NeighboursOf(found[next])) {
      if (Marked(marks, neighbour)) {
        ItemAt(marks, neighbour) = 0;
        found.push_back(neighbour);
      }
    }
  }
  return found;
}

/// The solid rectangles among the connected parts of `region` that no position of `cuts` touches.
/// With `wholeOnly` nothing but the whole region counts, and no position of `cuts` may be.
std::vector<Run> RunsOf(const GridOf<char>& region, const GridOf<char>& cuts,
                        const std::vector<Span>& cells, bool wholeOnly) {
  std::vector<Run> runs;
  int parts = 0;
  int cutsAtAll = 0;
  GridOf<char> open = region;
  for (const Place place : PlacesOf(Whole(region))) {
    cutsAtAll += ItemAt(cuts, place);
    if (!Marked(open, place)) {
      continue;
    }
    ++parts;
    const std::vector<Place> part = TakeConnected(open, place);
    const Span span = Around(part);
    const bool touched = std::any_of(part.begin(), part.end(), [&](Place each) {
      const std::array<Place, 4> neighbours = NeighboursOf(each);
      return std::any_of(neighbours.begin(), neighbours.end(),
                         [&](Place next) { return Marked(cuts, next); });
    });
    if (Size(part) == span.Size() && !touched) {
      runs.push_back(
          {span, static_cast<int>(std::count_if(cells.begin(), cells.end(), [&](const Span& cell) {
             return span.Holds(cell.first);
           }))});
    }
  }
  return wholeOnly && (parts > 1 || cutsAtAll > 0) ? std::vector<Run>() : runs;
}

}  // namespace

std::array<Place, 4> NeighboursOf(Place place) {
  return {{{place.row, place.col - 1},
           {place.row - 1, place.col},
           {place.row, place.col + 1},
           {place.row + 1, place.col}}};
}

Border Opposite(Border border) {
  return static_cast<Border>((static_cast<std::size_t>(border) + 2) % kBorders.size());
}

bool ReferenceSelection::CanMerge() const {
  return std::any_of(runs.begin(), runs.end(), [](const Run& run) { return run.cells > 1; });
}

bool ReferenceSelection::CanDivide() const {
  return std::any_of(cells.begin(), cells.end(), [](const Span& cell) { return cell.Size() > 1; });
}

ReferencePage::ReferencePage(PageKind kind)
    : blocks(kind == PageKind::kGrid ? 1 : 3), m_threeBlocks(kind == PageKind::kThreeBlocks) {}

double ReferencePage::Epsilon() const {
  return m_threeBlocks ? static_cast<double>(FLT_EPSILON) : DBL_EPSILON;
}

// Changes of shape.

bool ReferencePage::DividePage(int block, int rows, int columns, double dotsPerMm) {
  if (columns < 1 || (rows < 1 && !m_threeBlocks) || (rows == Rows(block) && columns == Cols())) {
    return false;
  }
  ReferenceCell fresh;
  fresh.font.CalcMmToLogFont(dotsPerMm == 0 ? kUsualDotsPerMm : dotsPerMm);
  for (int each = 0; each < Size(blocks); ++each) {
    const int wanted = each == block ? rows : Rows(each);
    if (wanted != Rows(each) || columns != Cols()) {
      ResizeCells(At(each).cells, wanted, columns, fresh);
    }
  }
  ResizeLengths(At(block).heights, rows, Epsilon());
  ResizeLengths(widths, columns, Epsilon());
  return true;
}

bool ReferencePage::InsertRow(int block, int row) {
  if (row < 0 || row >= Rows(block) || Rows(block) >= kMost) {
    return false;
  }
  InsertCellRow(At(block).cells, row);
  ReferenceLengths& heights = At(block).heights;
  const ReferenceLength displaced = heights.at(static_cast<std::size_t>(row));
  heights.insert(heights.begin() + row, displaced);
  return true;
}

bool ReferencePage::DeleteRow(int block, int row) {
  if (row < 0 || row >= Rows(block) || Rows(block) < 2) {
    return false;
  }
  const ClosedGap gap = DeleteCellRow(At(block).cells, row);
  At(block).heights.erase(At(block).heights.begin() + row);
  Settle(block, gap.edges, gap.asked);
  return true;
}

bool ReferencePage::InsertCol(int col) {
  if (col < 0 || col >= Cols() || Cols() >= kMost) {
    return false;
  }
  for (ReferenceBlock& block : blocks) {
    if (!block.cells.empty()) {
      CellRows turned = Transposed(block.cells);
      InsertCellRow(turned, col);
      block.cells = Transposed(turned);
    }
  }
  const ReferenceLength displaced = widths.at(static_cast<std::size_t>(col));
  widths.insert(widths.begin() + col, displaced);
  return true;
}

bool ReferencePage::DeleteCol(int col) {
  if (col < 0 || col >= Cols() || Cols() < 2) {
    return false;
  }
  for (int block = 0; block < Size(blocks); ++block) {
    if (At(block).cells.empty()) {
      continue;
    }
    CellRows turned = Transposed(At(block).cells);
    const ClosedGap gap = DeleteCellRow(turned, col);
    At(block).cells = Transposed(turned);
    std::set<Edge> edges;
    for (const Edge& edge : gap.edges) {
      edges.insert(Transposed(edge));
    }
    AskedEdges asked;
    for (const auto& [edge, states] : gap.asked) {
      asked[Transposed(edge)] = states;
    }
    Settle(block, edges, asked);
  }
  widths.erase(widths.begin() + col);
  return true;
}

// Lengths.

bool ReferencePage::SetAllLength(ReferenceLengths& lengths, double total, bool equal) const {
  if (!(total >= 0) || total > 1e12 || lengths.empty()) {
    return false;
  }
  const long double sum = Sum(lengths);
  const double slack = SlackOf(2 * Size(lengths) + 1, total, Epsilon());
  for (ReferenceLength& length : lengths) {
    const long double share = equal || sum == 0 ? 1.0L / Size(lengths) : length.value / sum;
    length = {static_cast<double>(total * share), slack};
  }
  return true;
}

void ReferencePage::SelRowEq(int block) {
  MakeEqual(At(block).heights, Selection(block).rows, Epsilon());
}

void ReferencePage::SelColEq(int block) {
  MakeEqual(widths, Selection(block).cols, Epsilon());
}

// Selection and merging.

ReferenceSelection ReferencePage::Selection(int block) const {
  const CellRows& cells = At(block).cells;
  ReferenceSelection selection;
  selection.blocks = BlocksOf(cells);

  GridOf<char> region = GridLike(cells, char{0});  // all that selected cells stand for
  GridOf<char> cuts = region;                      // marked positions of blocks not selected
  std::set<int> rows;
  std::set<int> cols;
  for (const Place place : PlacesOf(Whole(cells))) {
    const Span& its = ItemAt(selection.blocks, place);
    const ReferenceCell& cell = ItemAt(cells, place);
    const bool first = its.first == place;
    selection.sound = selection.sound && cell.rowMergeSize == (first ? its.rows : 0) &&
                      cell.colMergeSize == (first ? its.cols : 0);
    const bool marked = cell.selected;
    selection.anyMark = selection.anyMark || marked;
    if (ItemAt(cells, its.first).selected) {
      ItemAt(region, place) = 1;
      rows.insert(place.row);
      cols.insert(place.col);
      if (first) {
        selection.cells.push_back(its);
      }
    } else if (marked) {
      ItemAt(cuts, place) = 1;
    }
  }
  selection.rows.assign(rows.begin(), rows.end());
  selection.cols.assign(cols.begin(), cols.end());
  selection.runs = RunsOf(region, cuts, selection.cells, !m_threeBlocks);
  return selection;
}

GridOf<Span> ReferencePage::Blocks(int block) const {
  return BlocksOf(At(block).cells);
}

bool ReferencePage::MergeByHand(int block, Place place) {
  for (const Run& run : Selection(block).runs) {
    if (run.span.first == place && run.cells > 1) {
      SetMergeSizes(At(block).cells, run.span);
      for (const Place covered : PlacesOf(run.span)) {
        Cell(block, covered).selected = covered == place;
      }
      return true;
    }
  }
  return false;
}

bool ReferencePage::MeargeCel(int block, Place place) {
  CellRows& cells = At(block).cells;
  const GridOf<Span> before = BlocksOf(cells);
  const CellRows cellsBefore = cells;
  if (!MergeByHand(block, place)) {
    return false;
  }
  const GridOf<Span> after = BlocksOf(cells);
  const Span& merged = ItemAt(after, place);
  AskedEdges asked = AllEdges(cells, after);
  std::set<Edge> outside;
  for (const Border border : kBorders) {
    const Edge edge{place, border};
    outside.insert(edge);
    asked[edge].clear();
    for (const Place each : PlacesOf(merged)) {
      if (IsAtBorder(merged, each, border)) {
        asked[edge].insert(PlaceShows(cellsBefore, before, each, border));
      }
    }
  }
  Settle(block, outside, asked);
  RepeatBordersInBlocks(cells);
  return true;
}

bool ReferencePage::DivideCel(int block, Place place) {
  CellRows& cells = At(block).cells;
  for (const Span& merged : MergedBlocks(cells)) {
    if (merged.first == place) {
      const GridOf<Span> before = BlocksOf(cells);
      const CellRows cellsBefore = cells;
      for (const Place each : PlacesOf(merged)) {
        ReferenceCell& cell = ItemAt(cells, each);
        cell.rowMergeSize = 1;
        cell.colMergeSize = 1;
        for (const Border border : kBorders) {
          cell.Shows(border) = PlaceShows(cellsBefore, before, each, border);
        }
      }
      ItemAt(cells, place).selected = false;
      return true;
    }
  }
  return false;
}

void ReferencePage::ReadBack() {
  for (ReferenceBlock& block : blocks) {
    DropUnsoundMerges(block.cells);
    for (std::vector<ReferenceCell>& row : block.cells) {
      for (ReferenceCell& cell : row) {
        cell.selected = false;
      }
    }
  }
}

// Ruled lines.

bool ReferencePage::SetShowLine(int block, bool top, bool innerHorizontal, bool bottom, bool left,
                                bool innerVertical, bool right) {
  const ReferenceSelection selection = Selection(block);
  AskedEdges asked;
  std::set<Edge> seeds;
  for (const Run& run : selection.runs) {
    for (const Span& cell : selection.cells) {
      if (!run.span.Holds(cell.first)) {
        continue;
      }
      const std::map<Border, bool> states = {
          {Border::kTop, cell.first.row == run.span.first.row ? top : innerHorizontal},
          {Border::kBottom, cell.EndRow() == run.span.EndRow() ? bottom : innerHorizontal},
          {Border::kLeft, cell.first.col == run.span.first.col ? left : innerVertical},
          {Border::kRight, cell.EndCol() == run.span.EndCol() ? right : innerVertical}};
      for (const auto& [border, shown] : states) {
        asked[{cell.first, border}].insert(shown);
        seeds.insert({cell.first, border});
      }
    }
  }
  Settle(block, seeds, asked);
  return !selection.runs.empty();
}

void ReferencePage::ShowLineOf(int block, const Edge& edge, bool shown) {
  Settle(block, {edge}, {{edge, {shown}}});
}

/// Gives the lines of the seeds the one state that is asked of their edges, or leaves them open.
void ReferencePage::Settle(int block, const std::set<Edge>& seeds, const AskedEdges& asked) {
  for (LineOfEdges& line : LinesThrough(BlocksOf(At(block).cells), seeds)) {
    line.block = block;
    std::set<bool> states;
    for (const Edge& edge : line.edges) {
      if (const auto found = asked.find(edge); found != asked.end()) {
        states.insert(found->second.begin(), found->second.end());
      }
    }
    if (states.size() == 1) {
      Decide(line, *states.begin());
    } else {
      undecided.push_back(line);
    }
  }
}

void ReferencePage::Decide(const LineOfEdges& line, bool shown) {
  CellRows& cells = At(line.block).cells;
  const GridOf<Span> its = BlocksOf(cells);
  for (const Edge& edge : line.edges) {
    const Span& block = ItemAt(its, edge.owner);
    ItemAt(cells, edge.owner).Shows(edge.border) = shown;
    for (const Place place : PlacesOf(block)) {
      if (IsAtBorder(block, place, edge.border)) {
        ItemAt(cells, place).Shows(edge.border) = shown;
      }
    }
  }
}

}  // namespace quorvel
