#include "kivfcl/picture_scaling.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr std::uint32_t kRed = 0xFFFE0000;
constexpr std::uint32_t kBlue = 0xFF0000FE;
constexpr std::uint32_t kClear = 0;

using Pixels = std::vector<std::uint32_t>;

TEST(ScalePicture, RepeatsPixelsAtAWholeMultiple) {
  const Pixels picture{kRed, kBlue,  //
                       kClear, kRed};
  EXPECT_EQ(ScalePicture(picture, {2, 2}, {4, 4}),
            (Pixels{kRed, kRed, kBlue, kBlue,        //
                    kRed, kRed, kBlue, kBlue,        //
                    kClear, kClear, kRed, kRed,      //
                    kClear, kClear, kRed, kRed}));
}

TEST(ScalePicture, LeavesAPictureOfTheSameSizeAlone) {
  const Pixels picture{0x80123456, kBlue, kClear};
  EXPECT_EQ(ScalePicture(picture, {3, 1}, {3, 1}), picture);
}

TEST(ScalePicture, MixesWhatLiesHalfInEach) {
  const Pixels row{kRed, kBlue};
  EXPECT_EQ(ScalePicture(row, {2, 1}, {3, 1}), (Pixels{kRed, 0xFF7F007F, kBlue}));
  EXPECT_EQ(ScalePicture(row, {1, 2}, {1, 3}), (Pixels{kRed, 0xFF7F007F, kBlue}));
}

TEST(ScalePicture, ClearPixelsTakeOpacityAndNoColour) {
  const Pixels row{kRed, 0x00FFFFFF};
  EXPECT_EQ(ScalePicture(row, {2, 1}, {3, 1}), (Pixels{kRed, 0x80FE0000, kClear}));
}

TEST(ScalePicture, PicturesSideBySideStayApartAtTheirEdges) {
  Pixels strip;
  for (int i = 0; i < 32; ++i) {
    strip.push_back(i < 16 ? kRed : kBlue);
  }
  const Pixels large = ScalePicture(strip, {32, 1}, {40, 1});
  EXPECT_EQ(large[19], kRed);
  EXPECT_EQ(large[20], kBlue);
}

}  // namespace
}  // namespace quorvel
