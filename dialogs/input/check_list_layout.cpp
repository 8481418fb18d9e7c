#include "dialogs/input/check_list_layout.h"

#include "kivfcl/display_pixels.h"

#include <algorithm>

namespace quorvel {

namespace {

// In pixels of a display at 100 %.
constexpr int kCheckColumn = 21;
constexpr int kNameMargin = 20;
constexpr int kLeastListWidth = 200;
constexpr int kButtonGap = 10;
constexpr int kDialogMarginX = 20;
constexpr int kDialogMarginY = 30;

}  // namespace

int RowHeight(const CheckListMeasures& measures) {
  return measures.characterHeight - measures.descent;
}

int CheckColumnWidth(double rate) { return PixelsAt(rate, kCheckColumn); }

int NameColumnWidth(const CheckListMeasures& measures) {
  return measures.widestName + PixelsAt(measures.rate, kNameMargin);
}

CSize CheckListSize(const CheckListMeasures& measures) {
  return {std::max(NameColumnWidth(measures) + CheckColumnWidth(measures.rate),
                   PixelsAt(measures.rate, kLeastListWidth)),
          RowHeight(measures) * (measures.rows + 1)};
}

CheckListButtons PlaceCheckListButtons(const CRect& list, int buttonWidth, double rate) {
  const int gap = PixelsAt(rate, kButtonGap);
  const int top = list.bottom + gap;
  return {.ok = {list.right - 2 * buttonWidth - gap, top},
          .cancel = {list.right - buttonWidth, top}};
}

CSize CheckListDialogSize(const CSize& list, int buttonHeight, int captionHeight, double rate) {
  return {list.cx + PixelsAt(rate, kDialogMarginX),
          list.cy + buttonHeight + captionHeight + PixelsAt(rate, kDialogMarginY)};
}

}  // namespace quorvel
