#include "dialogs/input/point_fields.h"

#include <array>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(PointFields, FieldXIsElement1AndFieldYElement0) {
  const std::array point{100.0, 200.0, 300.0};
  const PointTexts texts = TextsOfPoint(point.data(), true);
  EXPECT_STREQ(texts.x, "200.000");
  EXPECT_STREQ(texts.y, "100.000");
  EXPECT_STREQ(texts.z, "300.000");
}

TEST(PointFields, TwoCoordinatesTouchTwoElementsOnly) {
  const std::array point{1.0, 2.0};
  const PointTexts texts = TextsOfPoint(point.data(), false);
  EXPECT_TRUE(texts.z.IsEmpty());
  std::array<double, 3> read{7.0, 8.0, 9.0};
  ReadPoint(texts, false, read.data());
  EXPECT_EQ(read, (std::array{1.0, 2.0, 9.0}));
}

TEST(PointFields, ComeBackAsTheyWereShown) {
  const std::array point{1.23456, -0.0004, 2.0005};
  const PointTexts texts = TextsOfPoint(point.data(), true);
  EXPECT_STREQ(texts.y, "1.235");
  EXPECT_STREQ(texts.x, "0.000");
  EXPECT_STREQ(texts.z, "2.001");
  std::array<double, 3> read{};
  ReadPoint(texts, true, read.data());
  EXPECT_EQ(read, (std::array{1.235, 0.0, 2.001}));
}

TEST(PointFields, ReadWhatTheTextsBeginWith) {
  std::array<double, 3> read{1, 1, 1};
  ReadPoint({"abc", "1.23456789", ""}, true, read.data());
  EXPECT_EQ(read, (std::array{1.23456789, 0.0, 0.0}));
}

TEST(ButtonShift, PutsTheButtonsTwelvePixelsBelowTheYField) {
  EXPECT_EQ(ButtonShift(84, 132, 1.0), -36);
  EXPECT_EQ(132 + ButtonShift(84, 132, 1.0), 84 + 12);
}

TEST(ButtonShift, FollowsTheDisplaysScale) { EXPECT_EQ(ButtonShift(168, 264, 1.5), -96 + 18); }

}  // namespace
}  // namespace quorvel
