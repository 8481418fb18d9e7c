// ReferencePage: what a layout page has to be after every operation, told as plainly as possible
// and without regard to speed. It shares nothing with the page model but the class of fonts.
//
//   ReferencePage expected(PageKind::kThreeBlocks);
//   expected.InsertRow(1, 0);   // then compare every cell and length with the page under test
#pragma once

#include "framework/base_types.h"
#include "kivdata/kiv_font_ex.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace quorvel {

enum class PageKind { kGrid, kThreeBlocks };

/// A grid position, from 0.
struct Place {
  int row = 0;
  int col = 0;
  friend auto operator<=>(const Place&, const Place&) = default;
};

/// A rectangle of grid positions.
struct Span {
  Place first;
  int rows = 1;
  int cols = 1;
  friend bool operator==(const Span&, const Span&) = default;

  int Size() const { return rows * cols; }
  int EndRow() const { return first.row + rows; }
  int EndCol() const { return first.col + cols; }
  bool Holds(Place place) const {
    return place.row >= first.row && place.row < EndRow() && place.col >= first.col &&
           place.col < EndCol();
  }
};

/// In an order in which the opposite border is two further.
enum class Border { kLeft, kTop, kRight, kBottom };
inline constexpr std::array kBorders = {Border::kLeft, Border::kTop, Border::kRight,
                                        Border::kBottom};

struct ReferenceCell {
  std::string text;
  CKivFontEx font;
  bool selected = false;
  int rowMergeSize = 1;
  int colMergeSize = 1;
  std::array<bool, 4> borders = {true, true, true, true};  ///< indexed by Border

  bool& Shows(Border border) { return borders.at(static_cast<std::size_t>(border)); }
  bool Shows(Border border) const { return borders.at(static_cast<std::size_t>(border)); }
};

/// Something for every grid position, row by row; all rows are equally long.
template <class Item>
using GridOf = std::vector<std::vector<Item>>;
using CellRows = GridOf<ReferenceCell>;

template <class Item>
Item& ItemAt(GridOf<Item>& grid, Place place) {
  return grid.at(static_cast<std::size_t>(place.row)).at(static_cast<std::size_t>(place.col));
}
template <class Item>
const Item& ItemAt(const GridOf<Item>& grid, Place place) {
  return grid.at(static_cast<std::size_t>(place.row)).at(static_cast<std::size_t>(place.col));
}

/// The positions of a rectangle, row by row: `for (const Place place : PlacesOf(span))`.
class PlacesOf {
public:
  class Iterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Place;
    using difference_type = std::ptrdiff_t;
    using pointer = const Place*;
    using reference = Place;

    Iterator(const Span& span, int number) : m_span(span), m_number(number) {}
    Place operator*() const {
      return {m_span.first.row + m_number / m_span.cols, m_span.first.col + m_number % m_span.cols};
    }
    Iterator& operator++() {
      ++m_number;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++m_number;
      return before;
    }
    friend bool operator==(const Iterator& one, const Iterator& other) {
      return one.m_number == other.m_number;
    }

  private:
    Span m_span;
    int m_number;
  };

  explicit PlacesOf(const Span& span) : m_span(span) {}
  Iterator begin() const { return {m_span, 0}; }
  Iterator end() const { return {m_span, m_span.Size()}; }

private:
  Span m_span;
};

/// The positions to the left, above, to the right and below, in the order of the borders.
std::array<Place, 4> NeighboursOf(Place place);
Border Opposite(Border border);

/// A length in millimetres. After an operation that computes lengths the page under test may differ
/// by `slack`, the rounding of its own number type.
struct ReferenceLength {
  double value = 10;
  double slack = 0;
};
using ReferenceLengths = std::vector<ReferenceLength>;

struct ReferenceBlock {
  CellRows cells = CellRows(1, std::vector<ReferenceCell>(1));
  ReferenceLengths heights = ReferenceLengths(1);
};

struct ReferencePen {
  COLORREF color = 0;
  float width = 0.1F;
  int style = 0;
  friend bool operator==(const ReferencePen&, const ReferencePen&) = default;
};

/// The page's own settings; each kind of page has some of them and leaves the others alone.
struct ReferenceSettings {
  int type = 0;
  float margin = 0;
  bool frameShown = false;
  bool outLine = false;
  bool inLine = false;
  ReferencePen outPen;
  ReferencePen inPen;
  std::array<bool, 3> shownByPage = {true, true, true};
  std::array<bool, 3> used = {true, true, true};
  int repeatRow = 1;
  int startIndex = 0;
};

/// One border of a cell, that is of the whole block that begins at `owner`.
struct Edge {
  Place owner;
  Border border = Border::kLeft;
  friend auto operator<=>(const Edge&, const Edge&) = default;
};

/// Borders that are one line, so that all of them have the same state.
struct LineOfEdges {
  int block = 0;
  std::vector<Edge> edges;
};

/// The state asked for some edges; more than one where two runs, or two lines that became one,
/// disagree.
using AskedEdges = std::map<Edge, std::set<bool>>;

/// One run of selected cells as GetSerialSelCelCount tells it.
struct Run {
  Span span;
  int cells = 1;  ///< not counting covered ones
  /// A single cell, merged or not, counts as 1 x 1.
  int Rows() const { return cells == 1 ? 1 : span.rows; }
  int Cols() const { return cells == 1 ? 1 : span.cols; }
};

/// What the marks of a block select.
struct ReferenceSelection {
  /// For every position the block in which it lies; a single cell is its own.
  GridOf<Span> blocks;
  bool sound = true;     ///< whether all merge sizes are those of blocks and of what they cover
  bool anyMark = false;  ///< those of covered cells included
  /// Selected cells that are not covered, row by row, as the blocks that they stand for.
  std::vector<Span> cells;
  std::vector<Run> runs;
  /// Rows and columns in which selected cells lie, in order.
  std::vector<int> rows;
  std::vector<int> cols;

  bool CanMerge() const;
  bool CanDivide() const;
};

/// Operations take what they are given as the page does and tell whether they changed anything.
///
/// Borders are right as long as both sides of every line are, and stay so: whoever changes them one
/// by one, or merge sizes by hand, has to look after the borders himself.
class ReferencePage {
public:
  static constexpr int kMost = 255;

  explicit ReferencePage(PageKind kind);

  // State, open to the test.
  std::vector<ReferenceBlock> blocks;  ///< one, or header, list and footer
  ReferenceLengths widths = ReferenceLengths(1);
  ReferenceSettings settings;
  /// Lines whose state the last operation leaves open: either is right, but for all their edges.
  std::vector<LineOfEdges> undecided;

  int Rows(int block) const { return static_cast<int>(At(block).heights.size()); }
  int Cols() const { return static_cast<int>(widths.size()); }
  /// Of the page's number type.
  double Epsilon() const;
  const ReferenceBlock& At(int block) const { return blocks.at(static_cast<std::size_t>(block)); }
  ReferenceBlock& At(int block) { return blocks.at(static_cast<std::size_t>(block)); }
  ReferenceCell& Cell(int block, Place place) { return ItemAt(At(block).cells, place); }
  const ReferenceCell& Cell(int block, Place place) const { return ItemAt(At(block).cells, place); }

  // Changes of shape.
  bool DividePage(int block, int rows, int columns, double dotsPerMm);
  bool InsertRow(int block, int row);
  bool DeleteRow(int block, int row);
  bool InsertCol(int col);
  bool DeleteCol(int col);

  // Lengths.
  bool SetAllLength(ReferenceLengths& lengths, double total, bool equal) const;
  void SelRowEq(int block);
  void SelColEq(int block);

  // Selection and merging.
  ReferenceSelection Selection(int block) const;
  GridOf<Span> Blocks(int block) const;
  /// Merges the cells of the run that begins at `place`.
  bool MeargeCel(int block, Place place);
  /// The same by the cells' own operations, which leave borders alone.
  bool MergeByHand(int block, Place place);
  bool DivideCel(int block, Place place);
  /// What saving and opening leaves: all but the selection, and what is no sound merge.
  void ReadBack();

  // Ruled lines. Each switch is for the lines of every run.
  bool SetShowLine(int block, bool top, bool innerHorizontal, bool bottom, bool left,
                   bool innerVertical, bool right);
  /// Shows or hides the line to which an edge belongs.
  void ShowLineOf(int block, const Edge& edge, bool shown);
  /// Gives all edges of a line a state.
  void Decide(const LineOfEdges& line, bool shown);

private:
  void Settle(int block, const std::set<Edge>& seeds, const AskedEdges& asked);

  bool m_threeBlocks;
};

}  // namespace quorvel
