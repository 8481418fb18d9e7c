#include "dialogs/colour/edit_color_layout.h"

namespace quorvel {

namespace {

// In pixels of a display at 100 %.
constexpr int kModelWidth = 60;
constexpr int kFirstRow = 22;
constexpr int kRowDistance = 18;
constexpr int kRowHeight = 16;
constexpr int kLabelWidth = 10;
constexpr int kSliderLeft = 12;
constexpr int kSliderRight = 132;
constexpr int kEditLeft = 134;
constexpr int kEditRight = 174;

}  // namespace

EditColorLayout LayOutEditColor(const CRect& place, double rate) {
  const auto scaled = [rate](int pixels) { return static_cast<int>(pixels * rate); };
  EditColorLayout layout;
  layout.model = {place.left, place.top, place.left + scaled(kModelWidth), place.bottom};
  int top = place.top + scaled(kFirstRow);
  for (ColorComponentRow& row : layout.rows) {
    const int bottom = top + scaled(kRowHeight);
    row.label = {place.left, top, place.left + scaled(kLabelWidth), bottom};
    row.slider = {place.left + scaled(kSliderLeft), top, place.left + scaled(kSliderRight), bottom};
    row.edit = {place.left + scaled(kEditLeft), top, place.left + scaled(kEditRight), bottom};
    layout.bottom = bottom;
    top += scaled(kRowDistance);
  }
  return layout;
}

}  // namespace quorvel
