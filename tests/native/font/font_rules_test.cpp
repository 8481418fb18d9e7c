#include "dialogs/font/font_rules.h"

#include "kivdata/kiv_font.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

namespace quorvel::test {
namespace {

TEST(EffectiveDotsPerMm, AMissingResolutionIs300DotsPerInch) {
  for (const double missing : {0.0, -0.0, 0.0000005, -0.0000005, 0.00000099}) {
    EXPECT_EQ(EffectiveDotsPerMm(missing), 11.811023622047244) << missing;
  }
}

TEST(EffectiveDotsPerMm, AnyOtherIsTakenAsItIs) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double given :
       {0.000002, -0.000002, 0.000001, 11.811023622047244, 23.6, -23.6, infinity, -infinity}) {
    EXPECT_EQ(EffectiveDotsPerMm(given), given);
  }
  EXPECT_TRUE(std::isnan(EffectiveDotsPerMm(std::numeric_limits<double>::quiet_NaN())));
}

TEST(MillimetreText, HasNoZerosAtItsEnd) {
  EXPECT_STREQ(MillimetreText(3.0), "3");
  EXPECT_STREQ(MillimetreText(3.5), "3.5");
  EXPECT_STREQ(MillimetreText(0.5), "0.5");
  EXPECT_STREQ(MillimetreText(0.0), "0");
  EXPECT_STREQ(MillimetreText(100.0), "100");
  EXPECT_STREQ(MillimetreText(9999.0), "9999");
  EXPECT_STREQ(MillimetreText(20500000.0), "20500000");
}

TEST(MillimetreText, HasThreeDecimalsAtMost) {
  EXPECT_STREQ(MillimetreText(41 / kUsualDotsPerMm), "3.471");
  EXPECT_STREQ(MillimetreText(3.5000000000000004), "3.5");
  EXPECT_STREQ(MillimetreText(0.1 + 0.2), "0.3");
  EXPECT_STREQ(MillimetreText(2.9999), "3");
  EXPECT_STREQ(MillimetreText(0.0004), "0");
}

TEST(MillimetresOfText, ReadsAsTheUserTypes) {
  EXPECT_EQ(MillimetresOfText("3", 1.0), 3.0);
  EXPECT_EQ(MillimetresOfText("3.5", 1.0), 3.5);
  EXPECT_EQ(MillimetresOfText(".5", 1.0), 0.5);
  EXPECT_EQ(MillimetresOfText("\x82\x52\x81\x44\x82\x54", 1.0), 3.5);  // full width
  EXPECT_EQ(MillimetresOfText("3.", 1.0), 3.0);
  EXPECT_EQ(MillimetresOfText("12mm", 1.0), 12.0);
  EXPECT_EQ(MillimetresOfText("abc", 1.0), 0.0);
  EXPECT_EQ(MillimetresOfText("", 1.0), 0.0);
}

TEST(MillimetresOfText, AnUntouchedTextIsExactlyWhatWasShown) {
  const double exact = 41 / kUsualDotsPerMm;
  EXPECT_EQ(MillimetresOfText(MillimetreText(exact), exact), exact);
  EXPECT_EQ(MillimetresOfText("3.4710", exact), 3.471);
}

TEST(SamplePoints, ThreeAndAQuarterForEachMillimetreRounded) {
  EXPECT_EQ(SamplePoints(0.0), 0);
  EXPECT_EQ(SamplePoints(0.15), 0);
  EXPECT_EQ(SamplePoints(0.16), 1);
  EXPECT_EQ(SamplePoints(2.0), 7);  // 6.5
  EXPECT_EQ(SamplePoints(3.5), 11);
  EXPECT_EQ(SamplePoints(5.0), 16);
  EXPECT_EQ(SamplePoints(10.0), 33);
  EXPECT_EQ(SamplePoints(9999.0), 32497);
}

TEST(SamplePoints, AnyNumberGivesOne) {
  EXPECT_EQ(SamplePoints(1e300), std::numeric_limits<int>::max());
  EXPECT_EQ(SamplePoints(-1e300), std::numeric_limits<int>::min());
  EXPECT_EQ(SamplePoints(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(FontControls, EachHasABitOfItsOwn) {
  unsigned bits = 0;
  std::set<int> ids;
  const auto count = [&](const auto& controls) {
    for (const MaskedControl& control : controls) {
      EXPECT_EQ(bits & control.bit, 0U);
      bits |= control.bit;
      ids.insert(control.id);
    }
  };
  count(kFontControls);
  count(kExFontControls);
  EXPECT_EQ(bits, 0x3FFU);
  EXPECT_EQ(ids.size(), 10U);
}

}  // namespace
}  // namespace quorvel::test
