#include "dialogs/layout/page_geometry.h"

#include "framework/number_text.h"
#include "kivcomm/rounding.h"
#include "kivfcl/display_pixels.h"

#include <algorithm>
#include <cstdlib>

namespace quorvel {

namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kHalf = 0.5;
constexpr int kEdge = 1;
/// A point that is nearer to a border takes hold of it, on a display at 100 %.
constexpr int kGrip = 4;

int RoundedPixels(double pixels) { return std::max(TruncatedToInt(pixels + kHalf), 1); }

}  // namespace

CSize NaturalSize(const SizeInMm& page, const DotsPerInch& dots) {
  return {RoundedPixels(page.width / kMmPerInch * dots.horizontal),
          RoundedPixels(page.height / kMmPerInch * dots.vertical)};
}

int ScaledPixels(double millimetres, double scale, double dotsPerInch) {
  return RoundedPixels(scale * millimetres / kMmPerInch * dotsPerInch);
}

FittedPage FitPage(const CRect& control, const SizeInMm& page, const DotsPerInch& dots) {
  CRect area = control.Grown(-kEdge, -kEdge);
  const CSize natural = NaturalSize(page, dots);
  const double horizontal = static_cast<double>(area.Width()) / natural.cx;
  const double vertical = static_cast<double>(area.Height()) / natural.cy;
  if (vertical > horizontal) {
    const int height = TruncatedToInt(natural.cy * horizontal);
    area.top += (area.Height() - height) / 2;
    area.bottom = area.top + height;
    return {area, horizontal};
  }
  const int width = TruncatedToInt(natural.cx * vertical);
  area.left += (area.Width() - width) / 2;
  area.right = area.left + width;
  return {area, vertical};
}

double ScaleToFit(const CRect& control, const SizeInMm& page, const DotsPerInch& dots) {
  return FitPage(control, page, dots).scale;
}

FittedPage PlacePage(const CRect& control, const SizeInMm& page, const DotsPerInch& dots,
                     double scale) {
  const CRect inside = control.Grown(-kEdge, -kEdge);
  const CSize natural = NaturalSize(page, dots);
  const CSize size(TruncatedToInt(natural.cx * scale), TruncatedToInt(natural.cy * scale));
  return {{CPoint(inside.left + (inside.Width() - size.cx) / 2,
                  inside.top + (inside.Height() - size.cy) / 2),
           size},
          scale};
}

std::optional<BorderDrag> FindBorder(std::span<const CRect> table, int rows, int cols,
                                     const CPoint& point, double rate) {
  const int grip = PixelsAt(rate, kGrip);
  const auto at = [&](int row, int col) -> const CRect& {
    return table[static_cast<std::size_t>(row) * static_cast<std::size_t>(cols) +
                 static_cast<std::size_t>(col)];
  };
  for (int row = 0; row < rows - 1; ++row) {
    const CRect& rect = at(row, 0);
    if (std::abs(point.y - rect.bottom) < grip) {
      return BorderDrag{.row = row,
                        .start = point.y,
                        .guide = point.y,
                        .first = rect.top,
                        .last = at(row + 1, 0).bottom};
    }
  }
  for (int col = 0; col < cols - 1; ++col) {
    const CRect& rect = at(0, col);
    if (std::abs(point.x - rect.right) < grip) {
      return BorderDrag{.col = col,
                        .start = point.x,
                        .guide = point.x,
                        .first = rect.left,
                        .last = at(0, col + 1).right};
    }
  }
  return std::nullopt;
}

bool MoveGuide(BorderDrag& drag, const CPoint& point) {
  const int position = drag.IsRow() ? point.y : point.x;
  if (position <= drag.first || position >= drag.last) {
    return false;
  }
  drag.guide = position;
  return true;
}

PairOfLengths DraggedLengths(const BorderDrag& drag, const PageBlock& block, double scale,
                             const DotsPerInch& dots) {
  const double pixels = drag.guide - drag.start;
  const double moved = __KivComm_CutValue(
      pixels / scale / (drag.IsRow() ? dots.vertical : dots.horizontal) * kMmPerInch, 0,
      kCutHalfAwayFromZero);
  return SteppedLengths(drag, block, moved);
}

std::optional<BorderDrag> BorderBeyond(const PageBlock& block, int index, bool isRow) {
  const CLayoutCelData* const cel = block.CelAt(index);
  if (cel == nullptr) {
    return std::nullopt;
  }
  BorderDrag border;
  block.RowColOf(index, border.row, border.col);
  if (isRow) {
    border.row += std::max<int>(cel->GetRowMeargeSize(), 1) - 1;
    border.col = -1;
    return border.row + 1 < block.Rows() ? std::optional(border) : std::nullopt;
  }
  border.row = -1;
  border.col += std::max<int>(cel->GetColMeargeSize(), 1) - 1;
  return border.col + 1 < block.Cols() ? std::optional(border) : std::nullopt;
}

PairOfLengths SteppedLengths(const BorderDrag& border, const PageBlock& block,
                             double millimetres) {
  const bool isRow = border.IsRow();
  const double before = isRow ? block.RowLength(border.row) : block.ColLength(border.col);
  const double behind =
      isRow ? block.RowLength(border.row + 1) : block.ColLength(border.col + 1);
  const double change = millimetres < 0 && -millimetres > before
                            ? -before
                            : std::min(millimetres, behind);
  return {before + change, behind - change};
}

void StoreLengths(const BorderDrag& drag, const PairOfLengths& lengths, PageBlock& block) {
  if (drag.IsRow()) {
    block.SetRowLength(drag.row, lengths.first);
    block.SetRowLength(drag.row + 1, lengths.second);
  } else {
    block.SetColLength(drag.col, lengths.first);
    block.SetColLength(drag.col + 1, lengths.second);
  }
}

GuideLine GuideOf(const BorderDrag& drag, const CRect& pageArea) {
  return drag.IsRow() ? GuideLine{{pageArea.left, drag.guide}, {pageArea.right, drag.guide}}
                      : GuideLine{{drag.guide, pageArea.top}, {drag.guide, pageArea.bottom}};
}

int CelAtPoint(const PageBlock& block, std::span<const CRect> table, const CPoint& point,
               const CSize& margin) {
  for (int row = 0; row < block.Rows(); ++row) {
    for (int col = 0; col < block.Cols(); ++col) {
      const int index = block.IndexOf(row, col);
      CRect rect;
      if (block.RectOf(rect, table.data(), index) &&
          rect.Grown(-margin.cx, -margin.cy).Contains(point)) {
        return index;
      }
    }
  }
  return -1;
}

std::vector<CRect> RectTable(const PageBlock& block, const CRect& area) {
  std::vector<CRect> table(static_cast<std::size_t>(block.Rows()) *
                           static_cast<std::size_t>(block.Cols()));
  block.InitRects(area, table.data());
  return table;
}

}  // namespace quorvel
