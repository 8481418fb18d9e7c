#include "kivcomm/color_models.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

namespace {

using quorvel::RgbColour;

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

struct Hsb {
  int hue = -1;
  int saturation = -1;
  int brightness = -1;

  friend bool operator==(const Hsb&, const Hsb&) = default;
};

struct Cmyk {
  int cyan = -1;
  int magenta = -1;
  int yellow = -1;
  int black = -1;

  friend bool operator==(const Cmyk&, const Cmyk&) = default;
};

Hsb HsbOf(const RgbColour& colour) {
  Hsb hsb;
  __KivComm_RGBtoHSB(colour.red, colour.green, colour.blue, &hsb.hue, &hsb.saturation,
                     &hsb.brightness);
  return hsb;
}

RgbColour RgbOf(const Hsb& hsb) {
  RgbColour colour{-1, -1, -1};
  __KivComm_HSBtoRGB(hsb.hue, hsb.saturation, hsb.brightness, &colour.red, &colour.green,
                     &colour.blue);
  return colour;
}

Cmyk CmykOf(const RgbColour& colour) {
  Cmyk cmyk;
  __KivComm_RGBtoCMYK(colour.red, colour.green, colour.blue, &cmyk.cyan, &cmyk.magenta,
                      &cmyk.yellow, &cmyk.black);
  return cmyk;
}

RgbColour RgbOf(const Cmyk& cmyk) {
  RgbColour colour{-1, -1, -1};
  __KivComm_CMYKtoRGB(cmyk.cyan, cmyk.magenta, cmyk.yellow, cmyk.black, &colour.red, &colour.green,
                      &colour.blue);
  return colour;
}

/// Whether `whole` is the nearest to dividend / divisor, the higher of two equally near ones.
bool IsNearest(int whole, int dividend, int divisor) {
  const int twiceOff = 2 * (whole * divisor - dividend);
  return twiceOff > -divisor && twiceOff <= divisor;
}

template <class Visit>
void ForEveryColour(Visit visit) {
  for (int red = 0; red < 256; ++red) {
    for (int green = 0; green < 256; ++green) {
      for (int blue = 0; blue < 256; ++blue) {
        visit(RgbColour{red, green, blue});
      }
    }
  }
}

struct KnownColour {
  RgbColour rgb;
  Hsb hsb;
  Cmyk cmyk;
};

constexpr std::array kKnownColours{
    KnownColour{{0, 0, 0}, {0, 0, 0}, {0, 0, 0, 255}},
    KnownColour{{255, 255, 255}, {0, 0, 255}, {0, 0, 0, 0}},
    KnownColour{{255, 0, 0}, {0, 255, 255}, {0, 255, 255, 0}},
    KnownColour{{255, 255, 0}, {60, 255, 255}, {0, 0, 255, 0}},
    KnownColour{{0, 255, 0}, {120, 255, 255}, {255, 0, 255, 0}},
    KnownColour{{0, 255, 255}, {180, 255, 255}, {255, 0, 0, 0}},
    KnownColour{{0, 0, 255}, {240, 255, 255}, {255, 255, 0, 0}},
    KnownColour{{255, 0, 255}, {300, 255, 255}, {0, 255, 0, 0}},
    KnownColour{{128, 0, 0}, {0, 255, 128}, {0, 255, 255, 127}},
    KnownColour{{0, 64, 64}, {180, 255, 64}, {255, 0, 0, 191}},
    KnownColour{{200, 100, 100}, {0, 128, 200}, {0, 128, 128, 55}},
};

TEST(ColorModels, PrimariesSecondariesBlackAndWhiteAreExactBothWays) {
  for (const KnownColour& known : kKnownColours) {
    SCOPED_TRACE(testing::Message()
                 << known.rgb.red << ' ' << known.rgb.green << ' ' << known.rgb.blue);
    EXPECT_EQ(HsbOf(known.rgb), known.hsb);
    EXPECT_EQ(RgbOf(known.hsb), known.rgb);
    EXPECT_EQ(CmykOf(known.rgb), known.cmyk);
    EXPECT_EQ(RgbOf(known.cmyk), known.rgb);
  }
}

TEST(ColorModels, GreysAreExactBothWays) {
  for (int level = 0; level < 256; ++level) {
    const RgbColour grey{level, level, level};
    EXPECT_EQ(HsbOf(grey), (Hsb{0, 0, level}));
    EXPECT_EQ(CmykOf(grey), (Cmyk{0, 0, 0, 255 - level}));
    EXPECT_EQ(RgbOf(Cmyk{0, 0, 0, 255 - level}), grey);
    for (int hue = 0; hue <= 360; hue += 30) {
      EXPECT_EQ(RgbOf(Hsb{hue, 0, level}), grey);
    }
  }
}

TEST(ColorModels, HalvesAreRoundedUp) {
  EXPECT_EQ(HsbOf({2, 1, 1}), (Hsb{0, 128, 2}));      // 127.5
  EXPECT_EQ(HsbOf({120, 1, 0}), (Hsb{1, 255, 120}));  // 0.5 degrees
  EXPECT_EQ(RgbOf(Hsb{30, 255, 1}), (RgbColour{1, 1, 0}));
  EXPECT_EQ(CmykOf({2, 1, 0}), (Cmyk{0, 128, 255, 253}));
}

TEST(ColorModels, AHueJustShortOfRedIs360AndShowsAsRed) {
  EXPECT_EQ(HsbOf({255, 0, 1}), (Hsb{360, 255, 255}));
  EXPECT_EQ(HsbOf({120, 0, 1}), (Hsb{360, 255, 120}));  // 359.5 degrees
  EXPECT_EQ(HsbOf({120, 0, 2}), (Hsb{359, 255, 120}));
  EXPECT_EQ(RgbOf(Hsb{360, 255, 255}), (RgbColour{255, 0, 0}));
  for (int saturation = 0; saturation < 256; ++saturation) {
    EXPECT_EQ(RgbOf(Hsb{360, saturation, 200}), RgbOf(Hsb{0, saturation, 200}));
  }
}

/// Degrees times the spread of the channels, told by their order.
int ScaledHue(const RgbColour& colour, int spread) {
  const auto [red, green, blue] = colour;
  if (red >= green && green >= blue) {
    return 60 * (green - blue);
  }
  if (green >= red && red >= blue) {
    return 120 * spread - 60 * (red - blue);
  }
  if (green >= blue && blue >= red) {
    return 120 * spread + 60 * (blue - red);
  }
  if (blue >= green && green >= red) {
    return 240 * spread - 60 * (green - red);
  }
  if (blue >= red && red >= green) {
    return 240 * spread + 60 * (red - green);
  }
  return 360 * spread - 60 * (blue - green);
}

TEST(ColorModels, EveryColourHasTheNearestHsbAndComesBackWithinTwoLevels) {
  int wrongBrightness = 0;
  int wrongSaturation = 0;
  int wrongHue = 0;
  int changedExtremes = 0;
  std::array<int, 256> byDifference{};
  ForEveryColour([&](const RgbColour& colour) {
    const auto [lowest, highest] = std::minmax({colour.red, colour.green, colour.blue});
    const int spread = highest - lowest;
    const Hsb hsb = HsbOf(colour);
    wrongBrightness += hsb.brightness != highest ? 1 : 0;
    if (spread == 0) {
      wrongSaturation += hsb.saturation != 0 ? 1 : 0;
      wrongHue += hsb.hue != 0 ? 1 : 0;
    } else {
      wrongSaturation += IsNearest(hsb.saturation, 255 * spread, highest) ? 0 : 1;
      wrongHue += IsNearest(hsb.hue, ScaledHue(colour, spread), spread) ? 0 : 1;
    }
    const RgbColour back = RgbOf(hsb);
    const auto [backLowest, backHighest] = std::minmax({back.red, back.green, back.blue});
    changedExtremes += backLowest != lowest || backHighest != highest ? 1 : 0;
    const int difference =
        std::max({std::abs(back.red - colour.red), std::abs(back.green - colour.green),
                  std::abs(back.blue - colour.blue)});
    ++byDifference.at(static_cast<std::size_t>(difference));
  });
  EXPECT_EQ(wrongBrightness, 0);
  EXPECT_EQ(wrongSaturation, 0);
  EXPECT_EQ(wrongHue, 0);
  EXPECT_EQ(changedExtremes, 0);
  // The bound is exact: differences of 2 occur, greater ones do not.
  EXPECT_GT(byDifference[2], 0);
  EXPECT_EQ(byDifference[0] + byDifference[1] + byDifference[2], 256 * 256 * 256);
}

/// Whether `colour` is what the three define, by the six sextants of hue.
bool IsDefinedBy(const RgbColour& colour, const Hsb& hsb) {
  const int unit = 255 * 60;
  const int top = hsb.brightness * unit;
  const int inSextant = hsb.hue % 60;
  const int bottom = hsb.brightness * (unit - hsb.saturation * 60);
  const int falling = hsb.brightness * (unit - hsb.saturation * inSextant);
  const int rising = hsb.brightness * (unit - hsb.saturation * (60 - inSextant));
  const std::array<RgbColour, 6> scaled{{{top, rising, bottom},
                                         {falling, top, bottom},
                                         {bottom, top, rising},
                                         {bottom, falling, top},
                                         {rising, bottom, top},
                                         {top, bottom, falling}}};
  const RgbColour& wanted = scaled.at(static_cast<std::size_t>(hsb.hue / 60 % 6));
  return IsNearest(colour.red, wanted.red, unit) && IsNearest(colour.green, wanted.green, unit) &&
         IsNearest(colour.blue, wanted.blue, unit);
}

TEST(ColorModels, HsbGivesTheNearestColourInOneStepAndInTwo) {
  int wrong = 0;
  int different = 0;
  for (int hue = 0; hue <= 360; ++hue) {
    const quorvel::HueTerms column = quorvel::TermsOfHue(hue);
    for (int saturation = 0; saturation < 256; ++saturation) {
      for (int brightness = 0; brightness < 256; brightness += 5) {
        const Hsb hsb{hue, saturation, brightness};
        const RgbColour colour = RgbOf(hsb);
        wrong += IsDefinedBy(colour, hsb) ? 0 : 1;
        const quorvel::ToneTerms row = quorvel::TermsOfTone(saturation, brightness);
        different += quorvel::MixedColour(column, row) == colour ? 0 : 1;
      }
    }
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(different, 0);
}

TEST(ColorModels, EveryColourHasTheNearestCmykAndComesBackAsItWas) {
  int wrong = 0;
  int changed = 0;
  ForEveryColour([&](const RgbColour& colour) {
    const int highest = std::max({colour.red, colour.green, colour.blue});
    const Cmyk cmyk = CmykOf(colour);
    const bool isNearest =
        highest == 0 ? cmyk == Cmyk{0, 0, 0, 255}
                     : cmyk.black == 255 - highest &&
                           IsNearest(cmyk.cyan, 255 * (highest - colour.red), highest) &&
                           IsNearest(cmyk.magenta, 255 * (highest - colour.green), highest) &&
                           IsNearest(cmyk.yellow, 255 * (highest - colour.blue), highest);
    wrong += isNearest ? 0 : 1;
    changed += RgbOf(cmyk) == colour ? 0 : 1;
  });
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(changed, 0);
}

TEST(ColorModels, CmykGivesTheNearestColour) {
  int wrong = 0;
  for (int black = 0; black < 256; ++black) {
    for (int ink = 0; ink < 256; ++ink) {
      const Cmyk cmyk{ink, 255 - ink, ink / 2, black};
      const RgbColour colour = RgbOf(cmyk);
      const int light = 255 - black;
      wrong += IsNearest(colour.red, (255 - cmyk.cyan) * light, 255) &&
                       IsNearest(colour.green, (255 - cmyk.magenta) * light, 255) &&
                       IsNearest(colour.blue, (255 - cmyk.yellow) * light, 255)
                   ? 0
                   : 1;
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST(ColorModels, WhatLiesOutsideCountsAsTheNearestValueInside) {
  for (const auto& [low, high] : {std::array{-1, 256}, std::array{kLeast, kMost}}) {
    EXPECT_EQ(HsbOf({high, low, low}), HsbOf({255, 0, 0}));
    EXPECT_EQ(HsbOf({low, high, low}), HsbOf({0, 255, 0}));
    EXPECT_EQ(HsbOf({low, low, high}), HsbOf({0, 0, 255}));
    EXPECT_EQ(CmykOf({high, low, low}), CmykOf({255, 0, 0}));
    EXPECT_EQ(CmykOf({low, high, low}), CmykOf({0, 255, 0}));
    EXPECT_EQ(CmykOf({low, low, high}), CmykOf({0, 0, 255}));
    EXPECT_EQ(RgbOf(Hsb{90, high, 100}), RgbOf(Hsb{90, 255, 100}));
    EXPECT_EQ(RgbOf(Hsb{90, low, 100}), RgbOf(Hsb{90, 0, 100}));
    EXPECT_EQ(RgbOf(Hsb{90, 100, high}), RgbOf(Hsb{90, 100, 255}));
    EXPECT_EQ(RgbOf(Hsb{90, 100, low}), RgbOf(Hsb{90, 100, 0}));
    EXPECT_EQ(RgbOf(Hsb{low, 255, 255}), (RgbColour{255, 0, 0}));
    EXPECT_EQ(RgbOf(Cmyk{high, low, 10, 20}), RgbOf(Cmyk{255, 0, 10, 20}));
    EXPECT_EQ(RgbOf(Cmyk{10, high, low, 20}), RgbOf(Cmyk{10, 255, 0, 20}));
    EXPECT_EQ(RgbOf(Cmyk{low, 10, high, 20}), RgbOf(Cmyk{0, 10, 255, 20}));
    EXPECT_EQ(RgbOf(Cmyk{10, 20, 30, low}), RgbOf(Cmyk{10, 20, 30, 0}));
    EXPECT_EQ(RgbOf(Cmyk{10, 20, 30, high}), RgbOf(Cmyk{10, 20, 30, 255}));
  }
  EXPECT_EQ(RgbOf(Hsb{361, 255, 255}), (RgbColour{255, 0, 0}));
  EXPECT_EQ(RgbOf(Hsb{480, 255, 255}), (RgbColour{255, 0, 0}));  // clamped, not taken around again
  EXPECT_EQ(RgbOf(Hsb{kMost, 255, 255}), (RgbColour{255, 0, 0}));
}

/// `results` with a null pointer in the place of one of them.
template <std::size_t count>
std::array<int*, count> PointersWithout(std::size_t skipped, std::array<int, count>& results) {
  std::array<int*, count> pointers{};
  for (std::size_t i = 0; i < count; ++i) {
    pointers.at(i) = i == skipped ? nullptr : &results.at(i);
  }
  return pointers;
}

TEST(ColorModels, ANullResultIsSkippedAndTheOthersAreGiven) {
  constexpr int kUntouched = -1;
  for (std::size_t skipped = 0; skipped < 4; ++skipped) {
    SCOPED_TRACE(skipped);
    if (skipped < 3) {
      std::array<int, 3> results{kUntouched, kUntouched, kUntouched};
      const auto [first, second, third] = PointersWithout(skipped, results);

      std::array<int, 3> expected{240, 128, 200};
      expected.at(skipped) = kUntouched;
      __KivComm_RGBtoHSB(100, 100, 200, first, second, third);
      EXPECT_EQ(results, expected);

      results.fill(kUntouched);
      expected = {200, 100, 0};
      expected.at(skipped) = kUntouched;
      __KivComm_HSBtoRGB(30, 255, 200, first, second, third);
      EXPECT_EQ(results, expected);

      results.fill(kUntouched);
      expected = {153, 204, 0};
      expected.at(skipped) = kUntouched;
      __KivComm_CMYKtoRGB(102, 51, 255, 0, first, second, third);
      EXPECT_EQ(results, expected);
    }
    std::array<int, 4> inks{kUntouched, kUntouched, kUntouched, kUntouched};
    const auto [cyan, magenta, yellow, black] = PointersWithout(skipped, inks);
    std::array<int, 4> expected{0, 191, 255, 51};
    expected.at(skipped) = kUntouched;
    __KivComm_RGBtoCMYK(204, 51, 0, cyan, magenta, yellow, black);
    EXPECT_EQ(inks, expected);
  }
}

}  // namespace
