#include "dialogs/colour/edit_color_layout.h"

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

TEST(EditColorLayout, AtTheStandardDisplay) {
  const EditColorLayout layout = LayOutEditColor({49, 6, 273, 111}, 1.0);
  EXPECT_EQ(layout.model, CRect(49, 6, 109, 111));
  for (int row = 0; row < kMostComponents; ++row) {
    const ColorComponentRow& place = layout.rows[static_cast<std::size_t>(row)];
    const int top = 28 + 18 * row;
    EXPECT_EQ(place.label, CRect(49, top, 59, top + 16));
    EXPECT_EQ(place.slider, CRect(61, top, 181, top + 16));
    EXPECT_EQ(place.edit, CRect(183, top, 223, top + 16));
  }
  EXPECT_EQ(layout.bottom, 98);
}

TEST(EditColorLayout, DropsTheDecimalsOfScaledSizes) {
  const EditColorLayout layout = LayOutEditColor({10, 20, 400, 300}, 1.26);
  EXPECT_EQ(layout.model, CRect(10, 20, 85, 300));             // 75.6
  EXPECT_EQ(layout.rows[0].label, CRect(10, 47, 22, 67));      // 27.72, 12.6, 20.16
  EXPECT_EQ(layout.rows[0].slider, CRect(25, 47, 176, 67));    // 15.12, 166.32
  EXPECT_EQ(layout.rows[0].edit, CRect(178, 47, 229, 67));     // 168.84, 219.24
  EXPECT_EQ(layout.rows[3].label.top, 47 + 3 * 22);            // 22.68
}

}  // namespace
}  // namespace quorvel::test
