// What the two kinds of page hold, as plain values: the page classes work on them, the layout files
// are written from them and read into them.
#pragma once

#include "framework/base_types.h"
#include "kivdata/layout_sheet.h"
#include "kivdata/pen_status.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quorvel {

/// The page-wide settings of the outer line and the inner lines.
struct LineSettings {
  bool outOn = false;
  bool inOn = false;
  PEN_STATUS out;
  PEN_STATUS in;
};

/// Whether a line style can be drawn: its width is a length.
inline bool IsGoodPen(const PEN_STATUS& pen) {
  return GridLengths::IsGood(pen.width, GridLengths::Precision::kSingle);
}

/// What a file of a later minor version held beyond what is known: kept to be written back.
struct LaterSections {
  std::uint32_t minorVersion = 0;
  std::vector<BYTE> bytes;  ///< whole sections as they stood in the file
};

struct GridPageModel {
  LayoutSheet sheet{GridLengths::Precision::kDouble, 1, 1};
  LineSettings lines;
  short type = 0;
  float margin = 0;
  bool showFrame = true;
  LaterSections later;
};

struct ExPageModel {
  static constexpr int kBlocks = 3;
  static constexpr int kPageKinds = 3;  ///< first, middle and last pages

  LayoutSheet sheet{GridLengths::Precision::kSingle, kBlocks, 0};
  LineSettings lines;
  std::array<bool, kPageKinds> showByPage{true, true, true};
  std::array<bool, kBlocks> use{true, true, true};
  BYTE repeatRow = 1;
  LONG stIndex = 1;
  LaterSections later;
};

}  // namespace quorvel
