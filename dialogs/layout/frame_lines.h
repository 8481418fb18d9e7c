// Which ruled lines of the selected cells are shown: the state of the ruled-line editor.
//
//   FrameLines lines = ReadFrameLines(page, block);
//   ShowInnerLines(lines);
//   WriteFrameLines(lines, page, block);
#pragma once

#include "framework/geometry.h"
#include "kivdata/layout_ex_page_data.h"

#include <array>
#include <cstddef>

namespace quorvel {

/// The kinds of line, in the order in which they are drawn and written.
enum class FrameLine : std::size_t {
  kTop,
  kInnerHorizontal,
  kBottom,
  kLeft,
  kInnerVertical,
  kRight,
  kRisingDiagonal,   ///< kept, but never drawn or written
  kFallingDiagonal,  ///< the same
};
inline constexpr std::size_t kFrameLineCount = 8;

/// The default has no line and says that there are cells on both sides of the inner ones.
struct FrameLines {
  std::array<int, kFrameLineCount> shown{};  ///< 0 or 1 for each FrameLine
  int multiRow = 1;                          ///< 1 if some run of selected cells has two rows
  int multiColumn = 1;                       ///< 1 if some run of selected cells has two columns

  int& operator[](FrameLine line) { return shown[static_cast<std::size_t>(line)]; }
  int operator[](FrameLine line) const { return shown[static_cast<std::size_t>(line)]; }
};

/// The lines of the runs of selected cells that the page reports: a kind of line is shown if it is
/// in any of them. Inner lines are judged by the first cell of a run alone.
FrameLines ReadFrameLines(const CLayoutExPageData& page, CLayoutExPageData::LISTTYPE block);

/// Shows and hides the lines of all runs of selected cells by one call.
void WriteFrameLines(const FrameLines& lines, CLayoutExPageData& page,
                     CLayoutExPageData::LISTTYPE block);

void HideAllLines(FrameLines& lines);
/// The inner lines stay as they are.
void ShowOuterLines(FrameLines& lines);
/// Both of them, whichever the selection has; the outer lines stay as they are.
void ShowInnerLines(FrameLines& lines);
void ToggleLine(FrameLines& lines, FrameLine line);

enum class FrameStroke { kNone, kSolid, kDotted };
/// How the preview shows a line: solid if it is shown, dotted if not; an inner line that the
/// selection has no room for, and a diagonal, not at all.
FrameStroke StrokeOf(const FrameLines& lines, FrameLine line);

/// Of the preview, in its own pixels, whatever the font of the dialog. The last point is not drawn, as
/// the platform draws lines.
struct FrameSegment {
  CPoint from;
  CPoint to;
};
/// `rate` is the display's scale.
FrameSegment SegmentOf(FrameLine line, double rate);

}  // namespace quorvel
