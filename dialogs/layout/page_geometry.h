// Where a page's picture stands, what a point of it means and what dragging a border gives. All
// pixels are those of the picture's control.
//
//   const FittedPage fitted = FitPage(controlArea, {block.Width(), block.Height()}, dots);
//   std::optional<BorderDrag> drag = FindBorder(table, block.Rows(), block.Cols(), point);
//   if (drag && MoveGuide(*drag, point)) lengths = DraggedLengths(*drag, block, fitted.scale, dots);
#pragma once

#include "dialogs/layout/page_block.h"
#include "framework/geometry.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvel {

/// Of the display.
struct DotsPerInch {
  double horizontal;
  double vertical;
};

/// The display's scale, 1.0 at 100 %.
inline double RateOf(const DotsPerInch& dots) {
  constexpr double kDotsAt100 = 96.0;
  return dots.vertical / kDotsAt100;
}

struct SizeInMm {
  double width;
  double height;
};

/// Of a page at the display's resolution, at least one pixel each way.
CSize NaturalSize(const SizeInMm& page, const DotsPerInch& dots);

/// Whether two rectangles have a pixel in common.
inline bool Overlap(const CRect& one, const CRect& other) {
  return one.left < other.right && other.left < one.right && one.top < other.bottom &&
         other.top < one.bottom;
}

/// Pixels of a length in millimetres at a scale, at least one: the size of a cell's letters.
int ScaledPixels(double millimetres, double scale, double dotsPerInch);

struct FittedPage {
  CRect area;          ///< the page's pixels
  double scale = 1.0;  ///< of the natural size
};
/// As large as it fits into a control one pixel from its edges, in the middle of what is left.
FittedPage FitPage(const CRect& control, const SizeInMm& page, const DotsPerInch& dots);

/// The largest scale at which a page fits so.
double ScaleToFit(const CRect& control, const SizeInMm& page, const DotsPerInch& dots);
/// In the middle of a control at a scale of somebody else's: that of pages that are shown together.
FittedPage PlacePage(const CRect& control, const SizeInMm& page, const DotsPerInch& dots,
                     double scale);

/// A border between two rows or two columns that is being dragged.
struct BorderDrag {
  int row = -1;  ///< the row above the border; -1 for a border between columns
  int col = -1;  ///< the column left of the border; -1 for a border between rows
  int start = 0;
  int guide = 0;
  int first = 0;  ///< the guide stays behind this
  int last = 0;   ///< and before this

  bool IsRow() const { return row >= 0; }
};

/// The border within 3 pixels of a point at the display's scale `rate` 1.0, rows before columns, the
/// lowest first. Merged cells do not count. `table` is that of InitRects.
std::optional<BorderDrag> FindBorder(std::span<const CRect> table, int rows, int cols,
                                     const CPoint& point, double rate = 1.0);

/// Moves the guide to the point; false, and no move, at a limit or beyond it.
bool MoveGuide(BorderDrag& drag, const CPoint& point);

struct PairOfLengths {
  double first;   ///< of the upper row or the left column
  double second;  ///< of the next one
};
/// The lengths with the border at the guide: moved by whole millimetres, never below 0.
PairOfLengths DraggedLengths(const BorderDrag& drag, const PageBlock& block, double scale,
                             const DotsPerInch& dots);
/// The border below a cell (`isRow`) or right of it, with all that the cell covers; none at the edge of
/// the page and for an index of no cell.
std::optional<BorderDrag> BorderBeyond(const PageBlock& block, int index, bool isRow);
/// The lengths with the border moved by `millimetres`, back where that is less than 0; never below 0.
PairOfLengths SteppedLengths(const BorderDrag& border, const PageBlock& block, double millimetres);
/// Gives the two rows or columns their lengths.
void StoreLengths(const BorderDrag& drag, const PairOfLengths& lengths, PageBlock& block);

/// The guide's ends.
struct GuideLine {
  CPoint from;
  CPoint to;
};
GuideLine GuideOf(const BorderDrag& drag, const CRect& pageArea);

/// The cell at a point, -1 where there is none. Each cell is taken smaller by `margin` on both sides.
int CelAtPoint(const PageBlock& block, std::span<const CRect> table, const CPoint& point,
               const CSize& margin = {0, 0});

/// A table for InitRects, filled.
std::vector<CRect> RectTable(const PageBlock& block, const CRect& area);

}  // namespace quorvel
