#include "dialogs/colour/picker_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

/// The field of the template at the standard font, and one in which a pixel is a value.
constexpr CSize kField{176, 184};
constexpr CSize kSquare{256, 256};

/// Whether `value` is dividend / divisor without its decimals, worked out in doubles: where the
/// quotient is whole, these may end just below it. Neither number is negative.
bool IsTruncated(int value, long long dividend, long long divisor) {
  const long long whole = dividend / divisor;
  return value == whole || (dividend % divisor == 0 && value == whole - 1);
}

// --- The HSL model

TEST(PickerHsl, PrimariesAndSecondaries) {
  const std::array<RgbColour, 6> colours{
      {{255, 0, 0}, {255, 255, 0}, {0, 255, 0}, {0, 255, 255}, {0, 0, 255}, {255, 0, 255}}};
  const std::array values{0, 42, 85, 128, 170, 213};
  for (std::size_t i = 0; i < colours.size(); ++i) {
    const double degrees = 60.0 * static_cast<double>(i);
    const HslColour hsl = HslOfColour(colours.at(i));
    EXPECT_EQ(hsl.hue, degrees);
    EXPECT_EQ(hsl.saturation, 100.0);
    EXPECT_EQ(hsl.lightness, 50.0);
    EXPECT_EQ(ColourOfHsl({degrees, 100, 50}), colours.at(i));
    EXPECT_EQ(ValuesOfColour(colours.at(i)), (PickerValues{values.at(i), 256, 128}));
  }
}

TEST(PickerHsl, AGreyHasHue240AndNoSaturation) {
  for (int level = 0; level < 256; ++level) {
    const HslColour hsl = HslOfColour({level, level, level});
    EXPECT_EQ(hsl.hue, 240.0);
    EXPECT_EQ(hsl.saturation, 0.0);
    EXPECT_NEAR(hsl.lightness, level * 100 / 255.0, 1e-9);
  }
}

TEST(PickerHsl, ValuesOfGreysWhiteAndBlack) {
  EXPECT_EQ(ValuesOfColour({128, 128, 128}), (PickerValues{170, 0, 128}));
  EXPECT_EQ(ValuesOfColour({255, 255, 255}), (PickerValues{170, 0, 256}));
  EXPECT_EQ(ValuesOfColour({0, 0, 0}), (PickerValues{170, 0, 0}));
}

TEST(PickerHsl, ScalesAreCutNotRoundedAndHueAloneEndsAt255) {
  EXPECT_EQ(ValuesOfHsl({359.9, 100, 100}), (PickerValues{255, 256, 256}));
  EXPECT_EQ(ValuesOfHsl({360, 99.99, 99.99}), (PickerValues{255, 255, 255}));
  EXPECT_EQ(ValuesOfHsl({400, 0, 0}), (PickerValues{255, 0, 0}));
  EXPECT_EQ(ValuesOfHsl({1.40, 0.39, 0.39}), (PickerValues{0, 0, 0}));
  EXPECT_EQ(ValuesOfHsl({1.41, 0.40, 0.40}), (PickerValues{1, 1, 1}));
  EXPECT_EQ(ValuesOfHsl({180, 50, 25}), (PickerValues{128, 128, 64}));
}

/// Hue times the spread of the channels, in degrees, told by the channels' order.
int ScaledHue(int red, int green, int blue, int spread) {
  if (red >= green && red >= blue) {
    return green >= blue ? 60 * (green - blue) : 360 * spread - 60 * (blue - green);
  }
  return green >= blue ? 120 * spread + 60 * (blue - red) : 240 * spread + 60 * (red - green);
}

TEST(PickerHsl, ValuesFollowTheDefinition) {
  int wrongHue = 0;
  int wrongSaturation = 0;
  int wrongBrightness = 0;
  constexpr int kStep = 3;
  for (int red = 0; red < 256; red += kStep) {
    for (int green = 0; green < 256; green += kStep) {
      for (int blue = 0; blue < 256; blue += kStep) {
        const auto [lowest, highest] = std::minmax({red, green, blue});
        const int spread = highest - lowest;
        const int sum = highest + lowest;
        const PickerValues values = ValuesOfColour({red, green, blue});
        wrongBrightness += IsTruncated(values.brightness, 256 * sum, 510) ? 0 : 1;
        if (spread == 0) {
          wrongSaturation += values.saturation == 0 ? 0 : 1;
          wrongHue += values.hue == 170 ? 0 : 1;
        } else {
          wrongSaturation +=
              IsTruncated(values.saturation, 256 * spread, sum <= 255 ? sum : 510 - sum) ? 0 : 1;
          wrongHue +=
              IsTruncated(values.hue, 256 * ScaledHue(red, green, blue, spread), 360 * spread) ? 0
                                                                                               : 1;
        }
      }
    }
  }
  EXPECT_EQ(wrongHue, 0);
  EXPECT_EQ(wrongSaturation, 0);
  EXPECT_EQ(wrongBrightness, 0);
}

/// Whether a channel that is fullest at `ownHue` has `value`: chroma c = (1 - |2l - 1|) s around
/// the lightness l, all counted in 1 / 600000.
bool IsChannelOf(int value, int ownHue, int hue, int saturation, int lightness) {
  const int distance = std::abs(hue - ownHue);
  const int sixtieths = std::clamp(120 - std::min(distance, 360 - distance), 0, 60);
  const long long chroma = (100LL - std::abs(2 * lightness - 100)) * saturation;
  return IsTruncated(value, 255 * (30 * (200LL * lightness - chroma) + chroma * sixtieths),
                     600'000);
}

TEST(PickerHsl, ColoursFollowTheDefinition) {
  int wrong = 0;
  for (int hue = 0; hue < 360; ++hue) {
    for (int saturation = 0; saturation <= 100; ++saturation) {
      for (int lightness = 0; lightness <= 100; ++lightness) {
        const RgbColour colour =
            ColourOfHsl({static_cast<double>(hue), static_cast<double>(saturation),
                         static_cast<double>(lightness)});
        wrong += IsChannelOf(colour.red, 0, hue, saturation, lightness) &&
                         IsChannelOf(colour.green, 120, hue, saturation, lightness) &&
                         IsChannelOf(colour.blue, 240, hue, saturation, lightness)
                     ? 0
                     : 1;
      }
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST(PickerHsl, HueGoesAroundAndPercentsAreClamped) {
  const RgbColour orange{255, 127, 0};
  EXPECT_EQ(ColourOfHsl({30, 100, 50}), orange);
  EXPECT_EQ(ColourOfHsl({390, 100, 50}), orange);
  EXPECT_EQ(ColourOfHsl({-330, 100, 50}), orange);
  EXPECT_EQ(ColourOfHsl({-690, 100, 50}), orange);
  EXPECT_EQ(ColourOfHsl({360, 100, 50}), (RgbColour{255, 0, 0}));
  EXPECT_EQ(ColourOfHsl({30, 150, 50}), orange);
  EXPECT_EQ(ColourOfHsl({30, -50, 50}), ColourOfHsl({30, 0, 50}));
  EXPECT_EQ(ColourOfHsl({30, 100, 130}), (RgbColour{255, 255, 255}));
  EXPECT_EQ(ColourOfHsl({30, 100, -1}), (RgbColour{0, 0, 0}));
}

// --- Values

TEST(PickerValuesTest, DegreesOfAHue) {
  EXPECT_EQ(DegreesOfHue(0), 0);
  EXPECT_EQ(DegreesOfHue(1), 1);  // 1.90625
  EXPECT_EQ(DegreesOfHue(128), 180);
  EXPECT_EQ(DegreesOfHue(170), 239);  // 239.5625: not the 240 that gave 170
  EXPECT_EQ(DegreesOfHue(254), 357);  // 357.6875
  EXPECT_EQ(DegreesOfHue(255), 359);  // 359.09375
  EXPECT_EQ(DegreesOfHue(256), 360);
  EXPECT_EQ(DegreesOfHue(257), 360);
  EXPECT_EQ(DegreesOfHue(-1), 0);
  EXPECT_EQ(DegreesOfHue(kMost), 360);
  EXPECT_EQ(DegreesOfHue(kLeast), 0);
}

TEST(PickerValuesTest, SaturationAndBrightnessCountAsOneMore) {
  for (int value = 0; value <= 256; ++value) {
    const int percent = (value + 1) * 100 / 256;
    EXPECT_EQ(ColourOfValues({43, 255, value}),
              ColourOfHsl({60, 100, static_cast<double>(percent)}));
    EXPECT_EQ(ColourOfValues({43, value, 127}),
              ColourOfHsl({60, static_cast<double>(percent), 50}));
  }
  EXPECT_EQ(ColourOfValues({0, 255, 127}), (RgbColour{255, 0, 0}));
  EXPECT_EQ(ColourOfValues({170, 0, 1}), (RgbColour{0, 0, 0}));  // 0.78 percent
  EXPECT_EQ(ColourOfValues({170, 0, 2}), (RgbColour{2, 2, 2}));  // 1.17 percent
  EXPECT_EQ(ColourOfValues({170, 0, 255}), (RgbColour{255, 255, 255}));
}

TEST(PickerValuesTest, NegativeValuesCountAsNone) {
  EXPECT_EQ(ColourOfValues({-1, 255, 127}), (RgbColour{255, 0, 0}));
  EXPECT_EQ(ColourOfValues({kLeast, kLeast, 127}), (RgbColour{127, 127, 127}));
  EXPECT_EQ(ColourOfValues({0, 255, -5}), (RgbColour{0, 0, 0}));
  EXPECT_EQ(ColourOfValues({0, 255, kLeast}), (RgbColour{0, 0, 0}));
}

TEST(PickerValuesTest, TypedValuesEndAt255) {
  EXPECT_EQ(TypedValue(300), 255);
  EXPECT_EQ(TypedValue(255.5), 255);
  EXPECT_EQ(TypedValue(255), 255);
  EXPECT_EQ(TypedValue(254.9), 254);
  EXPECT_EQ(TypedValue(0), 0);
  EXPECT_EQ(TypedValue(-7), 0);
  EXPECT_EQ(TypedValue(1e300), 255);
}

// --- The field

TEST(PickerField, APointInsideIsGivenFromTheFieldsCorner) {
  EXPECT_EQ(kFieldCorner, CPoint(16, 14));
  EXPECT_EQ(PointInField({16, 14}, kFieldCorner, kField), CPoint(0, 0));
  EXPECT_EQ(PointInField({100, 50}, kFieldCorner, kField), CPoint(84, 36));
  EXPECT_EQ(PointInField({191, 197}, kFieldCorner, kField), CPoint(175, 183));
}

TEST(PickerField, APointOutsideIsNone) {
  for (const CPoint& point : {CPoint(15, 50), CPoint(192, 50), CPoint(50, 13), CPoint(50, 198)}) {
    EXPECT_FALSE(PointInField(point, kFieldCorner, kField));
  }
}

TEST(PickerField, TheMarkerStandsAtItsValues) {
  EXPECT_EQ(MarkerOfValues({170, 0, 128}, kSquare), CPoint(170, 256));
  EXPECT_EQ(MarkerOfValues({0, 256, 128}, kSquare), CPoint(0, 0));
  EXPECT_EQ(MarkerOfValues({255, 128, 0}, kSquare), CPoint(255, 128));
  EXPECT_EQ(MarkerOfValues({170, 0, 128}, kField), CPoint(116, 184));  // 116.875
  EXPECT_EQ(MarkerOfValues({255, 255, 0}, kField), CPoint(175, 0));    // 175.3125, 0.71875
  EXPECT_EQ(MarkerOfValues({0, 1, 0}, kField).y, 183);                 // 183.28125
}

TEST(PickerField, TheSpinnersMarkerStandsOneValueHigher) {
  EXPECT_EQ(MarkerYOfSpinner(255, kSquare), 0);
  EXPECT_EQ(MarkerYOfSpinner(0, kSquare), 255);
  EXPECT_EQ(MarkerYOfSpinner(0, kField), 183);    // 183.28125
  EXPECT_EQ(MarkerYOfSpinner(100, kField), 111);  // 111.40625
  EXPECT_EQ(MarkerY(100, kField), 112);           // 112.125
  EXPECT_EQ(MarkerYOfSpinner(256, kSquare), -1);
  EXPECT_EQ(MarkerYOfSpinner(256, kField), 0);  // -0.71875
}

TEST(PickerField, EverySizeOfField) {
  int wrong = 0;
  for (int extent = 1; extent <= 700; ++extent) {
    const CSize wide(extent, 1);
    const CSize tall(1, extent);
    for (int value = 0; value < 256; ++value) {
      wrong += IsTruncated(MarkerX(value, wide), value * extent, 256) &&
                       IsTruncated(MarkerY(value, tall), (256 - value) * extent, 256) &&
                       IsTruncated(MarkerYOfSpinner(value, tall), (255 - value) * extent, 256)
                   ? 0
                   : 1;
    }
    for (int place = 0; place < extent; ++place) {
      const int hue = ColourAtPoint({place, 0}, wide, 0).hue;
      const int saturation = ColourAtPoint({0, place}, tall, 0).saturation;
      wrong += IsTruncated(hue, 512 * place + extent, 2 * extent) &&
                       IsTruncated(saturation, 513 * extent - 512 * place, 2 * extent)
                   ? 0
                   : 1;
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST(PickerField, HueAndSaturationOfAPoint) {
  const FieldColour corner = ColourAtPoint({0, 0}, kField, 126);
  EXPECT_EQ(corner.hue, 0);
  EXPECT_EQ(corner.saturation, 256);  // 256.5
  EXPECT_EQ(corner.colour, (RgbColour{255, 0, 0}));
  const FieldColour last = ColourAtPoint({175, 183}, kField, 126);
  EXPECT_EQ(last.hue, 255);       // 255.045...
  EXPECT_EQ(last.saturation, 1);  // 1.89...
  const FieldColour middle = ColourAtPoint({128, 128}, kSquare, 126);
  EXPECT_EQ(middle.hue, 128);
  EXPECT_EQ(middle.saturation, 128);
  EXPECT_EQ(middle.colour, ColourOfHsl({180, 50, 50}));
  EXPECT_EQ(ColourAtPoint({1, 0}, kField, 126).hue, 1);           // 1.95...
  EXPECT_EQ(ColourAtPoint({0, 1}, kField, 126).saturation, 255);  // 255.10...
}

TEST(PickerField, BrightnessCountsAsTwoMoreAndSaturationAsOneMore) {
  for (int value = 0; value <= 256; ++value) {
    const int brightness = (value + 2) * 100 / 256;
    EXPECT_EQ(ColourAtPoint({0, 0}, kSquare, value).colour,
              ColourOfHsl({0, 100, static_cast<double>(brightness)}));
    const int saturation = (value + 1) * 100 / 256;
    EXPECT_EQ(ColourAtPoint({0, 256 - value}, kSquare, 126).colour,
              ColourOfHsl({0, static_cast<double>(saturation), 50}));
  }
  // The same brightness gives black by the values and not by the field.
  EXPECT_EQ(ColourOfValues({0, 0, 1}), (RgbColour{0, 0, 0}));
  EXPECT_EQ(ColourAtPoint({0, 256}, kSquare, 1).colour, (RgbColour{2, 2, 2}));
  EXPECT_EQ(ColourAtPoint({0, 256}, kSquare, kLeast).colour, (RgbColour{0, 0, 0}));
}

// --- The marker's strokes

TEST(PickerMarker, FourStrokesFromEightToFourPixelsAway) {
  const std::vector<Segment> expected{
      {{72, 90}, {76, 90}}, {{80, 82}, {80, 86}}, {{84, 90}, {88, 90}}, {{80, 94}, {80, 98}}};
  EXPECT_EQ(MarkerStrokes({80, 90}, kField), expected);
}

bool HasLeft(const CPoint& marker) {
  const std::vector<Segment> strokes = MarkerStrokes(marker, kField);
  return std::any_of(strokes.begin(), strokes.end(), [&](const Segment& stroke) {
    return stroke.from.x == marker.x - 8 && stroke.to.x == marker.x - 4;
  });
}

bool HasTop(const CPoint& marker) {
  const std::vector<Segment> strokes = MarkerStrokes(marker, kField);
  return std::any_of(strokes.begin(), strokes.end(), [&](const Segment& stroke) {
    return stroke.from.y == marker.y - 8 && stroke.to.y == marker.y - 4;
  });
}

bool HasRight(const CPoint& marker) {
  const std::vector<Segment> strokes = MarkerStrokes(marker, kField);
  return std::any_of(strokes.begin(), strokes.end(), [&](const Segment& stroke) {
    return stroke.from.x == marker.x + 4 && stroke.to.x == marker.x + 8;
  });
}

bool HasBottom(const CPoint& marker) {
  const std::vector<Segment> strokes = MarkerStrokes(marker, kField);
  return std::any_of(strokes.begin(), strokes.end(), [&](const Segment& stroke) {
    return stroke.from.y == marker.y + 4 && stroke.to.y == marker.y + 8;
  });
}

TEST(PickerMarker, AStrokeThatWouldLeaveTheFieldIsMissing) {
  EXPECT_TRUE(HasLeft({10, 90}));
  EXPECT_FALSE(HasLeft({9, 90}));
  EXPECT_TRUE(HasTop({80, 10}));
  EXPECT_FALSE(HasTop({80, 9}));
  EXPECT_TRUE(HasRight({166, 90}));  // to 174, the last column but one
  EXPECT_FALSE(HasRight({167, 90}));
  EXPECT_TRUE(HasBottom({80, 174}));
  EXPECT_FALSE(HasBottom({80, 175}));
  for (const CPoint& marker : {CPoint(9, 90), CPoint(80, 9), CPoint(167, 90), CPoint(80, 175)}) {
    EXPECT_EQ(MarkerStrokes(marker, kField).size(), 3U);
  }
}

TEST(PickerMarker, StrokesAlongAnEdgeMoveInwards) {
  using Strokes = std::vector<Segment>;
  // At the top, one pixel lower; just below, in place.
  EXPECT_EQ(MarkerStrokes({80, 0}, kField),
            (Strokes{{{72, 1}, {76, 1}}, {{84, 1}, {88, 1}}, {{80, 4}, {80, 8}}}));
  EXPECT_EQ(MarkerStrokes({80, 1}, kField),
            (Strokes{{{72, 1}, {76, 1}}, {{84, 1}, {88, 1}}, {{80, 5}, {80, 9}}}));
  // At the bottom and below it, three pixels higher; just above, in place.
  EXPECT_EQ(MarkerStrokes({80, 182}, kField),
            (Strokes{{{72, 182}, {76, 182}}, {{80, 174}, {80, 178}}, {{84, 182}, {88, 182}}}));
  EXPECT_EQ(MarkerStrokes({80, 183}, kField),
            (Strokes{{{72, 180}, {76, 180}}, {{80, 175}, {80, 179}}, {{84, 180}, {88, 180}}}));
  EXPECT_EQ(MarkerStrokes({80, 184}, kField),
            (Strokes{{{72, 181}, {76, 181}}, {{80, 176}, {80, 180}}, {{84, 181}, {88, 181}}}));
  // At the left, three pixels to the right; beside it, in place.
  EXPECT_EQ(MarkerStrokes({0, 90}, kField),
            (Strokes{{{3, 82}, {3, 86}}, {{4, 90}, {8, 90}}, {{3, 94}, {3, 98}}}));
  EXPECT_EQ(MarkerStrokes({1, 90}, kField),
            (Strokes{{{1, 82}, {1, 86}}, {{5, 90}, {9, 90}}, {{1, 94}, {1, 98}}}));
  // At the right, one pixel to the left; beside it, in place.
  EXPECT_EQ(MarkerStrokes({175, 90}, kField),
            (Strokes{{{167, 90}, {171, 90}}, {{174, 82}, {174, 86}}, {{174, 94}, {174, 98}}}));
  EXPECT_EQ(MarkerStrokes({174, 90}, kField),
            (Strokes{{{166, 90}, {170, 90}}, {{174, 82}, {174, 86}}, {{174, 94}, {174, 98}}}));
  // In a corner both.
  EXPECT_EQ(MarkerStrokes({0, 0}, kField), (Strokes{{{4, 1}, {8, 1}}, {{3, 4}, {3, 8}}}));
}

TEST(PickerMarker, FarOutsideNothingShows) {
  for (const CPoint& marker : {CPoint(kLeast, 90), CPoint(kMost, 90), CPoint(80, kLeast),
                               CPoint(80, kMost), CPoint(kLeast, kLeast), CPoint(kMost, kMost)}) {
    for (const Segment& stroke : MarkerStrokes(marker, kField)) {
      const bool above = stroke.to.y < -2;
      const bool below = stroke.from.y > kField.cy + 1;
      const bool leftOf = stroke.to.x < -2;
      const bool rightOf = stroke.from.x > kField.cx + 1;
      EXPECT_TRUE(above || below || leftOf || rightOf)
          << "a stroke at " << stroke.from.x << ", " << stroke.from.y;
    }
  }
}

// --- The brightness bar

TEST(PickerBar, ThePureColourHasHalfBrightness) {
  EXPECT_EQ(PureColour(0, 256), (RgbColour{255, 0, 0}));
  EXPECT_EQ(PureColour(0, 255), (RgbColour{253, 1, 1}));  // 99 percent: nothing is added here
  EXPECT_EQ(PureColour(255, 256), ColourOfHsl({359, 100, 50}));
  EXPECT_EQ(PureColour(170, 0), (RgbColour{127, 127, 127}));
  EXPECT_EQ(PureColour(170, -300), (RgbColour{127, 127, 127}));
}

TEST(PickerBar, BandsLeadFromBrightToDark) {
  const std::array<RgbColour, kBarBands> bands = BarBands({255, 0, 100});
  EXPECT_EQ(bands.size(), 32U);
  EXPECT_EQ(bands[0], (RgbColour{255, 225, 235}));  // 15 x 15, 100 + 15 x 9
  EXPECT_EQ(bands[1], (RgbColour{255, 210, 226}));
  EXPECT_EQ(bands[14], (RgbColour{255, 15, 109}));
  EXPECT_EQ(bands[15], (RgbColour{255, 0, 100}));
  EXPECT_EQ(bands[16], (RgbColour{255, 0, 100}));
  EXPECT_EQ(bands[17], (RgbColour{239, 0, 94}));  // 255 - 16, 100 - 6
  EXPECT_EQ(bands[31], (RgbColour{15, 0, 10}));
}

TEST(PickerBar, BandsOfEveryChannelStayInRange) {
  for (int channel = 0; channel < 256; ++channel) {
    const std::array<RgbColour, kBarBands> bands = BarBands({channel, 0, 255});
    for (int k = 0; k < 16; ++k) {
      const auto index = static_cast<std::size_t>(k);
      const int bright = std::min(channel + (15 - k) * ((255 - channel) / 16), 255);
      const int dark = std::max(channel - k * ((channel + 1) / 16), 0);
      EXPECT_EQ(bands.at(index), (RgbColour{bright, (15 - k) * 15, 255}));
      EXPECT_EQ(bands.at(index + 16), (RgbColour{dark, 0, 255 - k * 16}));
    }
  }
}

TEST(PickerBar, BandsHaveWholePixels) {
  EXPECT_EQ(BandHeight(174), 5);
  EXPECT_EQ(BandHeight(160), 5);
  EXPECT_EQ(BandHeight(159), 4);
  EXPECT_EQ(BandHeight(31), 0);
}

TEST(PickerBar, ItsPositionsRunFromBrightToDark) {
  EXPECT_EQ(BarPositionOfBrightness(128), 127);
  EXPECT_EQ(BarPositionOfBrightness(0), 255);
  EXPECT_EQ(BarPositionOfBrightness(255), 0);
  EXPECT_EQ(BarPositionOfBrightness(256), 0);
  EXPECT_EQ(BarPositionOfBrightness(kLeast), 255);
  EXPECT_EQ(BrightnessOfBarPosition(127), 128);
  EXPECT_EQ(BrightnessOfBarPosition(0), 255);
  EXPECT_EQ(BrightnessOfBarPosition(255), 0);
}

// --- Spinners and bars

constexpr std::array kAllCodes{
    ScrollCode::kLineUp,   ScrollCode::kLineDown,      ScrollCode::kPageUp,
    ScrollCode::kPageDown, ScrollCode::kThumbPosition, ScrollCode::kThumbTrack,
    ScrollCode::kTop,      ScrollCode::kBottom,        ScrollCode::kEndScroll};

TEST(PickerSpinner, EveryCodeButLineUpAndEndScrollLowersTheValue) {
  for (const ScrollCode code : kAllCodes) {
    SCOPED_TRACE(static_cast<int>(code));
    if (code == ScrollCode::kEndScroll) {
      EXPECT_FALSE(SteppedSpinner(100, code));
    } else {
      EXPECT_EQ(SteppedSpinner(100, code), code == ScrollCode::kLineUp ? 101 : 99);
    }
  }
}

TEST(PickerSpinner, StaysInItsRange) {
  EXPECT_EQ(SteppedSpinner(254, ScrollCode::kLineUp), 255);
  EXPECT_EQ(SteppedSpinner(255, ScrollCode::kLineUp), 255);
  EXPECT_EQ(SteppedSpinner(256, ScrollCode::kLineUp), 255);
  EXPECT_EQ(SteppedSpinner(256, ScrollCode::kLineDown), 255);
  EXPECT_EQ(SteppedSpinner(255, ScrollCode::kLineDown), 254);
  EXPECT_EQ(SteppedSpinner(1, ScrollCode::kLineDown), 0);
  EXPECT_EQ(SteppedSpinner(0, ScrollCode::kLineDown), 0);
  EXPECT_EQ(SteppedSpinner(0, ScrollCode::kLineUp), 1);
  EXPECT_EQ(SteppedSpinner(-1, ScrollCode::kLineUp), 0);
  EXPECT_EQ(SteppedSpinner(kMost, ScrollCode::kLineUp), 255);
  EXPECT_EQ(SteppedSpinner(kLeast, ScrollCode::kLineDown), 0);
}

TEST(PickerBrightnessBar, LinesPagesAndThumb) {
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kLineUp, 7), 99);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kLineDown, 7), 101);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kPageUp, 7), 90);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kPageDown, 7), 110);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kThumbPosition, 7), 7);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kThumbTrack, 7), 7);
}

TEST(PickerBrightnessBar, IsKeptInItsRange) {
  EXPECT_EQ(SteppedBrightnessBar(0, ScrollCode::kLineUp, 0), 0);
  EXPECT_EQ(SteppedBrightnessBar(4, ScrollCode::kPageUp, 0), 0);
  EXPECT_EQ(SteppedBrightnessBar(255, ScrollCode::kLineDown, 0), 255);
  EXPECT_EQ(SteppedBrightnessBar(250, ScrollCode::kPageDown, 0), 255);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kThumbTrack, -1), 0);
  EXPECT_EQ(SteppedBrightnessBar(100, ScrollCode::kThumbTrack, 256), 255);
}

TEST(PickerBrightnessBar, OtherCodesChangeNothing) {
  for (const ScrollCode code : {ScrollCode::kTop, ScrollCode::kBottom, ScrollCode::kEndScroll}) {
    EXPECT_FALSE(SteppedBrightnessBar(100, code, 7));
  }
}

TEST(PickerChannelBar, LinesPagesThumbAndEnds) {
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kLineUp, 7), 99);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kLineDown, 7), 101);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kPageUp, 7), 90);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kPageDown, 7), 110);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kThumbPosition, 7), 7);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kThumbTrack, 7), 7);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kTop, 7), 0);
  EXPECT_EQ(SteppedChannelBar(100, ScrollCode::kBottom, 7), 255);
  EXPECT_FALSE(SteppedChannelBar(100, ScrollCode::kEndScroll, 7));
}

TEST(PickerChannelBar, APositionOutsideIsIgnored) {
  EXPECT_EQ(SteppedChannelBar(1, ScrollCode::kLineUp, 0), 0);
  EXPECT_FALSE(SteppedChannelBar(0, ScrollCode::kLineUp, 0));
  EXPECT_EQ(SteppedChannelBar(10, ScrollCode::kPageUp, 0), 0);
  EXPECT_FALSE(SteppedChannelBar(9, ScrollCode::kPageUp, 0));
  EXPECT_EQ(SteppedChannelBar(254, ScrollCode::kLineDown, 0), 255);
  EXPECT_FALSE(SteppedChannelBar(255, ScrollCode::kLineDown, 0));
  EXPECT_EQ(SteppedChannelBar(245, ScrollCode::kPageDown, 0), 255);
  EXPECT_FALSE(SteppedChannelBar(246, ScrollCode::kPageDown, 0));
  EXPECT_FALSE(SteppedChannelBar(100, ScrollCode::kThumbTrack, -1));
  EXPECT_FALSE(SteppedChannelBar(100, ScrollCode::kThumbTrack, 256));
}

TEST(MarkerStrokes, FollowTheDisplaysScale) {
  const std::vector<Segment> strokes = MarkerStrokes({100, 90}, {400, 300}, 2.0);
  ASSERT_EQ(strokes.size(), 4);
  EXPECT_EQ(strokes.front().from, CPoint(84, 90));
  EXPECT_EQ(strokes.front().to, CPoint(92, 90));
  EXPECT_EQ(strokes.back().to, CPoint(100, 106));
  EXPECT_EQ(MarkerStrokes({19, 90}, {400, 300}, 2.0).size(), 3) << "no room at the left";
}

}  // namespace
}  // namespace quorvel
