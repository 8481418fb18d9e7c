#include "dialogs/colour/hue_saturation_field.h"

#include "kivcomm/color_models.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace quorvel::test {
namespace {

constexpr CRect kField(49, 6, 235, 111);

TEST(HueSaturationField, ThePointLeadsToHueAndSaturation) {
  const HsbValues before{1, 2, 77};
  EXPECT_EQ(ValuesAtPoint(kField, {49, 6}, before), (HsbValues{0, 0, 77}));
  EXPECT_EQ(ValuesAtPoint(kField, {235, 111}, before), (HsbValues{360, 255, 77}));
  EXPECT_EQ(ValuesAtPoint(kField, {142, 58}, before), (HsbValues{180, 126, 77}));
  EXPECT_EQ(ValuesAtPoint(kField, {50, 7}, before), (HsbValues{1, 2, 77}));
}

TEST(HueSaturationField, APointOutsideCountsAsTheNearest) {
  const HsbValues before{1, 2, 3};
  EXPECT_EQ(ValuesAtPoint(kField, {-5000, -5000}, before), (HsbValues{0, 0, 3}));
  EXPECT_EQ(ValuesAtPoint(kField, {5000, 5000}, before), (HsbValues{360, 255, 3}));
  EXPECT_EQ(ValuesAtPoint(kField, {142, 5000}, before), (HsbValues{180, 255, 3}));
  EXPECT_EQ(ValuesAtPoint(kField, {5000, 6}, before), (HsbValues{360, 0, 3}));
}

TEST(HueSaturationField, AFieldOfNoSizeIsNoFault) {
  EXPECT_EQ(ValuesAtPoint({5, 5, 5, 5}, {9, 9}, {1, 2, 3}), (HsbValues{0, 0, 3}));
}

TEST(HueSaturationField, TheMarkerStandsAtTheValues) {
  EXPECT_EQ(MarkerOfHsb(kField, {0, 0, 0}), CPoint(49, 6));
  EXPECT_EQ(MarkerOfHsb(kField, {360, 255, 0}), CPoint(235, 111));
  EXPECT_EQ(MarkerOfHsb(kField, {180, 128, 0}), CPoint(142, 6 + 105 * 128 / 255));
}

/// Size and brightness.
using Parameters = std::tuple<int, int, int>;

class HueSaturationPicture : public ::testing::TestWithParam<Parameters> {};

TEST_P(HueSaturationPicture, EveryPixelIsThatOfThePlainFormula) {
  const auto [width, height, brightness] = GetParam();
  const std::size_t lineSize = static_cast<std::size_t>(width) * 3;
  std::vector<BYTE> bytes(lineSize * static_cast<std::size_t>(height) + 1, 0xA5);
  FillHueSaturationPicture({width, height}, brightness, [&](int y) {
    return bytes.data() + static_cast<std::size_t>(y) * lineSize;
  });
  const BYTE* pixel = bytes.data();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x, pixel += 3) {
      int red = 0;
      int green = 0;
      int blue = 0;
      __KivComm_HSBtoRGB(x * 360 / width, y * 255 / height, brightness, &red, &green, &blue);
      ASSERT_EQ((std::array{int{pixel[2]}, int{pixel[1]}, int{pixel[0]}}),
                (std::array{red, green, blue}))
          << x << ", " << y;
    }
  }
  EXPECT_EQ(bytes.back(), 0xA5) << "written behind the last line";
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, HueSaturationPicture,
    ::testing::Values(Parameters{187, 106, 255}, Parameters{187, 106, 0}, Parameters{187, 106, 1},
                      Parameters{187, 106, 128}, Parameters{187, 106, 254}, Parameters{1, 1, 200},
                      Parameters{361, 256, 99}, Parameters{720, 3, 77}, Parameters{3, 600, 77}));

}  // namespace
}  // namespace quorvel::test
