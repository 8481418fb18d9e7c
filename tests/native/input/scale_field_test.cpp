#include "dialogs/input/scale_field.h"

#include <cmath>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(ScaleText, ShowsAWholeNumberRoundedHalfAwayFromZero) {
  EXPECT_STREQ(ScaleText(1000.4), "1000");
  EXPECT_STREQ(ScaleText(1000.5), "1001");
  EXPECT_STREQ(ScaleText(-2.5), "-3");
  EXPECT_STREQ(ScaleText(0.2), "0");
  EXPECT_STREQ(ScaleText(-0.2), "0");
}

TEST(ScaleText, StaysInTheRangeOfInt) {
  EXPECT_STREQ(ScaleText(1e300), "2147483647");
  EXPECT_STREQ(ScaleText(-1e300), "-2147483648");
  EXPECT_STREQ(ScaleText(std::nan("")), "0");
}

TEST(ScaleOfText, KeepsDecimalsAndGivesZeroForNoNumber) {
  EXPECT_EQ(ScaleOfText("500.5"), 500.5);
  EXPECT_EQ(ScaleOfText("abc"), 0.0);
  EXPECT_EQ(ScaleOfText(""), 0.0);
}

}  // namespace
}  // namespace quorvel
