#include "dialogs/input/check_list_layout.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr int kNameMargin = 20;
constexpr int kLeastListWidth = 200;
constexpr int kButtonGap = 10;
constexpr int kDialogMarginX = 20;
constexpr int kDialogMarginY = 30;

}  // namespace

int RowHeight(const CheckListMeasures& measures) {
  return measures.characterHeight - measures.descent;
}

int NameColumnWidth(const CheckListMeasures& measures) { return measures.widestName + kNameMargin; }

CSize CheckListSize(const CheckListMeasures& measures) {
  return {std::max(NameColumnWidth(measures) + kCheckColumnWidth, kLeastListWidth),
          RowHeight(measures) * (measures.rows + 1)};
}

CheckListButtons PlaceCheckListButtons(const CRect& list, int buttonWidth) {
  const int top = list.bottom + kButtonGap;
  return {.ok = {list.right - 2 * buttonWidth - kButtonGap, top},
          .cancel = {list.right - buttonWidth, top}};
}

CSize CheckListDialogSize(const CSize& list, int buttonHeight, int captionHeight) {
  return {list.cx + kDialogMarginX, list.cy + buttonHeight + captionHeight + kDialogMarginY};
}

}  // namespace quorvel
