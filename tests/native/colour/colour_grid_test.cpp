#include "dialogs/colour/colour_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quorvel::test {
namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);

TEST(ColourGrid, HasABasicOrAMadeColourForEachOf64Controls) {
  std::set<int> ids;
  for (int index = 0; index < kGridButtonCount; ++index) {
    ids.insert(GridControlId(index));
    EXPECT_EQ(GridIndexOf(GridControlId(index)), index);
  }
  EXPECT_EQ(ids.size(), 64U);
  EXPECT_EQ(*ids.begin(), kFirstGridId);
  EXPECT_EQ(*ids.rbegin(), kLastGridId);
  EXPECT_EQ(GridIndexOf(13441), std::nullopt);
  EXPECT_EQ(GridIndexOf(0), std::nullopt);
}

TEST(ColourGrid, KeepsItsIrregularities) {
  EXPECT_EQ(kBasicColors[17].color, RGB(255, 126, 64));
  EXPECT_EQ(kBasicColors[38].color, RGB(64, 0, 64));
  EXPECT_EQ(kBasicColors[46].color, RGB(64, 0, 64));
  EXPECT_EQ(kBasicColors[38].controlId, 13409);
  EXPECT_EQ(kBasicColors[46].controlId, 13418);
  const std::set<COLORREF> different = [] {
    std::set<COLORREF> colors;
    for (const BasicColor& basic : kBasicColors) {
      colors.insert(basic.color);
    }
    return colors;
  }();
  EXPECT_EQ(different.size(), 47U) << "one colour stands twice, no other";
}

TEST(ColourGrid, TheCornersOfTheTable) {
  EXPECT_EQ(GridControlId(0), 13377);
  EXPECT_EQ(kBasicColors[0].color, RGB(255, 128, 128));
  EXPECT_EQ(GridControlId(7), 13439);
  EXPECT_EQ(kBasicColors[7].color, RGB(255, 128, 255));
  EXPECT_EQ(GridControlId(40), 13412);
  EXPECT_EQ(kBasicColors[40].color, RGB(0, 0, 0));
  EXPECT_EQ(GridControlId(47), 13419);
  EXPECT_EQ(kBasicColors[47].color, kWhite);
  EXPECT_EQ(GridControlId(48), 13420);
  EXPECT_EQ(GridControlId(63), 13437);
}

TEST(ColourGrid, MadeColoursFollowTheBasicOnes) {
  EXPECT_FALSE(IsMadeColor(47));
  EXPECT_TRUE(IsMadeColor(48));
  EXPECT_TRUE(IsMadeColor(63));
  EXPECT_FALSE(IsMadeColor(64));
  EXPECT_FALSE(IsMadeColor(99));
  EXPECT_TRUE(IsGridIndex(0));
  EXPECT_FALSE(IsGridIndex(-1));
  EXPECT_FALSE(IsGridIndex(99));
  const GridColors colors = InitialGridColors();
  EXPECT_TRUE(std::all_of(colors.begin() + kBasicColorCount, colors.end(),
                          [](COLORREF color) { return color == kWhite; }));
}

TEST(ColourGrid, FindsTheFirstButtonOfAColour) {
  GridColors colors = InitialGridColors();
  EXPECT_EQ(FirstWithColor(colors, RGB(64, 0, 64)), 38);
  EXPECT_EQ(FirstWithColor(colors, RGB(255, 128, 64)), std::nullopt);
  EXPECT_EQ(FirstWithColor(colors, kWhite), 47) << "the basic white before the made ones";
  colors[50] = RGB(1, 2, 3);
  EXPECT_EQ(FirstWithColor(colors, RGB(1, 2, 3)), 50);
  colors[50] = RGB(0, 0, 255);
  EXPECT_EQ(FirstWithColor(colors, RGB(0, 0, 255)), 28) << "a basic colour before a made one";
}

}  // namespace
}  // namespace quorvel::test
