#include "dialogs/layout/frame_lines.h"

#include "kivfcl/display_pixels.h"

namespace quorvel {

namespace {

// The preview's lines in pixels of a display at 100 %.
constexpr int kLeftX = 5;
constexpr int kMiddleX = 65;
constexpr int kRightX = 125;
constexpr int kTopY = 5;
constexpr int kMiddleY = 40;
constexpr int kBottomY = 75;

struct Run {
  int row = 0;
  int col = 0;
  BYTE rows = 0;
  BYTE cols = 0;
};

void AddFlag(FrameLines& lines, FrameLine line, int shown) {
  if (shown != 0) {
    lines[line] = 1;
  }
}

void AddRun(FrameLines& lines, const Run& run, const CLayoutCelData& first,
            const CLayoutCelData& last) {
  if (run.rows >= 2) {
    lines.multiRow = 1;
    AddFlag(lines, FrameLine::kInnerHorizontal, first.GetShowLineVB());
  }
  if (run.cols >= 2) {
    lines.multiColumn = 1;
    AddFlag(lines, FrameLine::kInnerVertical, first.GetShowLineHR());
  }
  AddFlag(lines, FrameLine::kTop, first.GetShowLineVT());
  AddFlag(lines, FrameLine::kLeft, first.GetShowLineHL());
  AddFlag(lines, FrameLine::kBottom, last.GetShowLineVB());
  AddFlag(lines, FrameLine::kRight, last.GetShowLineHR());
}

FrameSegment SegmentAt100(FrameLine line) {
  switch (line) {
    case FrameLine::kTop:
      return {{kLeftX, kTopY}, {kRightX, kTopY}};
    case FrameLine::kInnerHorizontal:
      return {{kLeftX, kMiddleY}, {kRightX, kMiddleY}};
    case FrameLine::kBottom:
      return {{kLeftX, kBottomY}, {kRightX, kBottomY}};
    case FrameLine::kLeft:
      return {{kLeftX, kTopY}, {kLeftX, kBottomY}};
    case FrameLine::kInnerVertical:
      return {{kMiddleX, kTopY}, {kMiddleX, kBottomY}};
    case FrameLine::kRight:
      return {{kRightX, kTopY}, {kRightX, kBottomY}};
    case FrameLine::kRisingDiagonal:
      return {{kLeftX, kBottomY}, {kRightX, kTopY}};
    case FrameLine::kFallingDiagonal:
      return {{kLeftX, kTopY}, {kRightX, kBottomY}};
  }
  return {};
}

}  // namespace

FrameLines ReadFrameLines(const CLayoutExPageData& page, CLayoutExPageData::LISTTYPE block) {
  FrameLines lines;
  lines.multiRow = 0;
  lines.multiColumn = 0;
  for (int row = 0; row < page.GetNumRow(block); ++row) {
    for (int col = 0; col < page.GetNumCol(); ++col) {
      const CLayoutCelData* const first = page.GetCelAt(block, page.GetIndexFromRowCol(row, col));
      if (first == nullptr || first->GetSelected() == 0) {
        continue;
      }
      Run run{row, col};
      page.GetSerialSelCelCount(block, row, col, &run.rows, &run.cols);
      if (run.rows == 0 && run.cols == 0) {
        continue;
      }
      const CLayoutCelData* const last =
          page.GetCelAt(block, page.GetIndexFromRowCol(row + run.rows - 1, col + run.cols - 1));
      if (last != nullptr) {
        AddRun(lines, run, *first, *last);
      }
    }
  }
  return lines;
}

void WriteFrameLines(const FrameLines& lines, CLayoutExPageData& page,
                     CLayoutExPageData::LISTTYPE block) {
  page.SetShowLine(block, lines[FrameLine::kTop], lines[FrameLine::kInnerHorizontal],
                   lines[FrameLine::kBottom], lines[FrameLine::kLeft],
                   lines[FrameLine::kInnerVertical], lines[FrameLine::kRight]);
}

void HideAllLines(FrameLines& lines) { lines.shown.fill(0); }

void ShowOuterLines(FrameLines& lines) {
  for (const FrameLine line :
       {FrameLine::kTop, FrameLine::kBottom, FrameLine::kLeft, FrameLine::kRight}) {
    lines[line] = 1;
  }
}

void ShowInnerLines(FrameLines& lines) {
  lines[FrameLine::kInnerHorizontal] = 1;
  lines[FrameLine::kInnerVertical] = 1;
}

void ToggleLine(FrameLines& lines, FrameLine line) { lines[line] = lines[line] != 0 ? 0 : 1; }

FrameStroke StrokeOf(const FrameLines& lines, FrameLine line) {
  const bool isDiagonal =
      line == FrameLine::kRisingDiagonal || line == FrameLine::kFallingDiagonal;
  const bool hasNoRoom = (line == FrameLine::kInnerHorizontal && lines.multiRow == 0) ||
                         (line == FrameLine::kInnerVertical && lines.multiColumn == 0);
  if (isDiagonal || hasNoRoom) {
    return FrameStroke::kNone;
  }
  return lines[line] != 0 ? FrameStroke::kSolid : FrameStroke::kDotted;
}

FrameSegment SegmentOf(FrameLine line, double rate) {
  const auto [from, to] = SegmentAt100(line);
  return {{PixelsAt(rate, from.x), PixelsAt(rate, from.y)},
          {PixelsAt(rate, to.x), PixelsAt(rate, to.y)}};
}

}  // namespace quorvel
