#include "dialogs/layout/cel_sizes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quorvel::test {
namespace {

std::string After(const CelSizes& sizes, const char* text) {
  const CelSizes::Texts texts = sizes.AfterLeaving(text);
  return std::string(texts.left) + " " + std::string(texts.other);
}

TEST(CelSizes, AreShownWithOneDecimal) {
  EXPECT_EQ(CelSizeText(10.0), "10.0");
  EXPECT_EQ(CelSizeText(0.04), "0.0");
  EXPECT_EQ(CelSizeText(2.55F), "2.5");  // the float lies below
}

TEST(CelSizes, AFieldThatIsLeftGivesTheOtherTheRest) {
  const CelSizes sizes(10.0F, 5.0F);
  EXPECT_EQ(After(sizes, "12.34"), "12.3 2.7");
  EXPECT_EQ(After(sizes, "12.35"), "12.4 2.6");
  EXPECT_EQ(After(sizes, "15"), "15.0 0.0");
  EXPECT_EQ(After(sizes, "20"), "20.0 -5.0");
  EXPECT_EQ(After(sizes, "-1"), "-1.0 16.0");
  EXPECT_EQ(After(sizes, ""), "0.0 15.0");
  EXPECT_EQ(After(sizes, "長い"), "0.0 15.0");
  EXPECT_EQ(After(sizes, "3mm"), "3.0 12.0");
}

TEST(CelSizes, FollowTenthsOverTheWholeSum) {
  const CelSizes sizes(4.0F, 6.0F);
  for (int tenths = 0; tenths <= 100; ++tenths) {
    const auto text = [](int value) {
      return std::to_string(value / 10) + "." + std::to_string(value % 10);
    };
    const std::string typed = text(tenths);
    EXPECT_EQ(After(sizes, typed.c_str()), typed + " " + text(100 - tenths));
    const auto confirmed = sizes.Confirmed(typed.c_str());
    ASSERT_EQ(confirmed.has_value(), 0 < tenths && tenths < 100) << typed;
    if (confirmed) {
      EXPECT_EQ(confirmed->first, static_cast<float>(tenths / 10.0));
      EXPECT_NEAR(confirmed->second, (100 - tenths) / 10.0, 1e-6);
      EXPECT_FLOAT_EQ(confirmed->first + confirmed->second, 10.0F);
    }
  }
}

TEST(CelSizes, TheSumIsThatOfFloats) {
  // In double it would be 16777217.
  const CelSizes sizes(16777216.0F, 1.0F);
  const auto confirmed = sizes.Confirmed("16777215");
  ASSERT_TRUE(confirmed);
  EXPECT_EQ(confirmed->second, 1.0F);
}

TEST(CelSizes, ConfirmedTakesAllDecimals) {
  const auto confirmed = CelSizes(10.0F, 5.0F).Confirmed("12.34");
  ASSERT_TRUE(confirmed);
  EXPECT_EQ(confirmed->first, 12.34F);
  EXPECT_EQ(confirmed->second, static_cast<float>(15.0 - 12.34));
}

TEST(CelSizes, NeitherMayBeNearZeroOrBelow) {
  const CelSizes sizes(10.0F, 5.0F);
  for (const char* text : {"", "x", "0", "-1", "0.00000001", "0.000001", "15", "14.9999999", "16",
                           "1e999", "-1e999", "nan"}) {
    EXPECT_FALSE(sizes.Confirmed(text)) << text;
  }
  for (const char* text : {"0.0000011", "14.999998", "7.5", "1e1"}) {
    EXPECT_TRUE(sizes.Confirmed(text)) << text;
  }
}

}  // namespace
}  // namespace quorvel::test
