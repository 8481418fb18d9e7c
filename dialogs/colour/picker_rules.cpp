#include "dialogs/colour/picker_rules.h"

#include "framework/number_text.h"
#include "kivfcl/display_pixels.h"

#include <algorithm>
#include <cmath>

namespace quorvel {

namespace {

constexpr double kTurn = 360.0;
constexpr double kSextant = 60.0;
constexpr double kWholePercent = 100.0;
constexpr double kHighestChannel = 255.0;

constexpr double kScale = 256.0;
constexpr double kHueOfDegree = 0.7111111111111111;
constexpr double kDegreesOfHue = 1.40625;
/// Six times the scale: a hue's column is given in sixths.
constexpr double kSixScales = 1536.0;
constexpr double kSixth = 6.0;
constexpr double kHalf = 0.5;

constexpr double kHueOfGrey = 240.0;

// What is added to a value before it becomes percent.
constexpr int kOffsetOfValues = 1;
constexpr int kOffsetOfFieldBrightness = 2;
constexpr int kOffsetOfBar = 0;

// The marker's strokes, in pixels of a display at 100 %.
constexpr int kStrokeStart = 4;
constexpr int kStrokeEnd = 8;
constexpr int kLeastStrokeEnd = 2;
constexpr int kShiftDown = 1;
constexpr int kShiftUp = 3;
constexpr int kShiftRight = 3;
constexpr int kShiftLeft = 1;
/// So far outside the field no stroke shows.
constexpr int kOutOfSight = 16;

constexpr int kLine = 1;
constexpr int kPage = 10;

double InTurn(double hue) {
  const double rest = std::fmod(hue, kTurn);
  return rest < 0 ? rest + kTurn : rest;
}

/// A channel of a colour between `low` and `high`, at `hue` degrees from where it begins to rise.
int Channel(double low, double high, double hue) {
  const double angle = InTurn(hue);
  double part = low;
  if (angle < kSextant) {
    part = low + (high - low) * angle / kSextant;
  } else if (angle < 3 * kSextant) {
    part = high;
  } else if (angle < 4 * kSextant) {
    part = low + (high - low) * (4 * kSextant - angle) / kSextant;
  }
  return TruncatedToInt(part * kHighestChannel);
}

/// Not below 0. In doubles, which hold every step exactly, since any int may have been typed.
int PercentOfValue(int value, int offset) {
  return std::max(TruncatedToInt((static_cast<double>(value) + offset) * kWholePercent / kScale),
                  0);
}

RgbColour ColourOfPercents(int hue, int saturationPercent, int brightnessPercent) {
  return ColourOfHsl({static_cast<double>(DegreesOfHue(hue)),
                      static_cast<double>(saturationPercent),
                      static_cast<double>(brightnessPercent)});
}

int RowOfDistance(double distanceFromFull, const CSize& field) {
  return TruncatedToInt(distanceFromFull / (kScale / field.cy));
}

/// How far the strokes that lie along an edge of the field move inwards, at `place` of `extent`.
int ShiftAtEdge(int place, int extent, int shiftFromStart, int shiftFromEnd) {
  if (place < 1) {
    return shiftFromStart;
  }
  return place >= extent - 1 ? -shiftFromEnd : 0;
}

/// A channel of a band, from that of the pure colour.
int BandChannel(int channel, int band) {
  constexpr int kHalfOfBands = kBarBands / 2;
  // Whole sixteenths of the way never lead past 255 or below 0.
  if (band < kHalfOfBands) {
    return channel + (kHalfOfBands - 1 - band) * ((kHighestComponent - channel) / kHalfOfBands);
  }
  return channel - (band - kHalfOfBands) * ((channel + 1) / kHalfOfBands);
}

/// Where a bar's lines, pages and thumb lead, in or out of its range; empty for the other codes.
std::optional<int> LedTo(int position, ScrollCode code, int thumb) {
  switch (code) {
    case ScrollCode::kLineUp:
      return position - kLine;
    case ScrollCode::kLineDown:
      return position + kLine;
    case ScrollCode::kPageUp:
      return position - kPage;
    case ScrollCode::kPageDown:
      return position + kPage;
    case ScrollCode::kThumbPosition:
    case ScrollCode::kThumbTrack:
      return thumb;
    default:
      return std::nullopt;
  }
}

}  // namespace

HslColour HslOfColour(const RgbColour& colour) {
  const double red = colour.red / kHighestChannel;
  const double green = colour.green / kHighestChannel;
  const double blue = colour.blue / kHighestChannel;
  const double highest = std::max({red, green, blue});
  const double lowest = std::min({red, green, blue});
  const double lightness = (highest + lowest) / 2;
  if (highest == lowest) {
    return {kHueOfGrey, 0.0, lightness * kWholePercent};
  }
  const double spread = highest - lowest;
  const double saturation = spread / (lightness <= kHalf ? highest + lowest : 2 - highest - lowest);
  double sextants = 0.0;
  if (red == highest) {
    sextants = (green - blue) / spread;
  } else if (green == highest) {
    sextants = (blue - red) / spread + 2;
  } else {
    sextants = (red - green) / spread + 4;
  }
  const double hue = sextants * kSextant;
  return {hue < 0 ? hue + kTurn : hue, saturation * kWholePercent, lightness * kWholePercent};
}

RgbColour ColourOfHsl(const HslColour& hsl) {
  const double saturation = std::clamp(hsl.saturation / kWholePercent, 0.0, 1.0);
  const double lightness = std::clamp(hsl.lightness / kWholePercent, 0.0, 1.0);
  const double hue = InTurn(hsl.hue);
  double low = 0.0;
  double high = 0.0;
  if (lightness <= kHalf) {
    low = (1 - saturation) * lightness;
    high = 2 * lightness - low;
  } else {
    high = (1 - saturation) * lightness + saturation;
    low = 2 * lightness - high;
  }
  return {Channel(low, high, hue + 2 * kSextant), Channel(low, high, hue),
          Channel(low, high, hue - 2 * kSextant)};
}

PickerValues ValuesOfHsl(const HslColour& hsl) {
  return {std::min(TruncatedToInt(hsl.hue * kHueOfDegree), kHighestPosition),
          TruncatedToInt(hsl.saturation * kScale / kWholePercent),
          TruncatedToInt(hsl.lightness * kScale / kWholePercent)};
}

PickerValues ValuesOfColour(const RgbColour& colour) {
  return ValuesOfHsl(HslOfColour(colour));
}

int DegreesOfHue(int hue) {
  return std::clamp(TruncatedToInt(hue * kDegreesOfHue + kHalf), 0, kHighestHue);
}

RgbColour ColourOfValues(const PickerValues& values) {
  return ColourOfPercents(values.hue, PercentOfValue(values.saturation, kOffsetOfValues),
                          PercentOfValue(values.brightness, kOffsetOfValues));
}

int TypedValue(double number) {
  return static_cast<int>(std::clamp<double>(number, 0, kHighestPosition));
}

std::optional<CPoint> PointInField(const CPoint& point, const CPoint& corner, const CSize& field) {
  const CPoint inField(point.x - corner.x, point.y - corner.y);
  if (inField.x < 0 || inField.x >= field.cx || inField.y < 0 || inField.y >= field.cy) {
    return std::nullopt;
  }
  return inField;
}

int MarkerX(int hue, const CSize& field) {
  return TruncatedToInt(hue * kSixth / (kSixScales / field.cx));
}

int MarkerY(int saturation, const CSize& field) {
  return RowOfDistance(kScale - saturation, field);
}

int MarkerYOfSpinner(int saturation, const CSize& field) {
  return RowOfDistance(static_cast<double>(kHighestPosition) - saturation, field);
}

CPoint MarkerOfValues(const PickerValues& values, const CSize& field) {
  return {MarkerX(values.hue, field), MarkerY(values.saturation, field)};
}

FieldColour ColourAtPoint(const CPoint& point, const CSize& field, int brightness) {
  FieldColour result;
  result.hue = TruncatedToInt(point.x * (kSixScales / field.cx) / kSixth + kHalf);
  result.saturation = TruncatedToInt(kScale - point.y * (kScale / field.cy) + kHalf);
  result.colour = ColourOfPercents(result.hue, PercentOfValue(result.saturation, kOffsetOfValues),
                                   PercentOfValue(brightness, kOffsetOfFieldBrightness));
  return result;
}

std::vector<Segment> MarkerStrokes(const CPoint& marker, const CSize& field, double rate) {
  const int outOfSight = PixelsAt(rate, kOutOfSight);
  const int start = PixelsAt(rate, kStrokeStart);
  const int end = PixelsAt(rate, kStrokeEnd);
  const int leastEnd = PixelsAt(rate, kLeastStrokeEnd);
  // A typed value can lead to the end of the range of int, where no stroke could be computed.
  const int x = std::clamp<int>(marker.x, -outOfSight, field.cx + outOfSight);
  const int y = std::clamp<int>(marker.y, -outOfSight, field.cy + outOfSight);
  const int rowOfHorizontals =
      y + ShiftAtEdge(y, field.cy, PixelsAt(rate, kShiftDown), PixelsAt(rate, kShiftUp));
  const int columnOfVerticals =
      x + ShiftAtEdge(x, field.cx, PixelsAt(rate, kShiftRight), PixelsAt(rate, kShiftLeft));
  std::vector<Segment> strokes;
  if (x - end >= leastEnd) {
    strokes.push_back({{x - end, rowOfHorizontals}, {x - start, rowOfHorizontals}});
  }
  if (y - end >= leastEnd) {
    strokes.push_back({{columnOfVerticals, y - end}, {columnOfVerticals, y - start}});
  }
  if (x + end < field.cx - 1) {
    strokes.push_back({{x + start, rowOfHorizontals}, {x + end, rowOfHorizontals}});
  }
  if (y + end < field.cy - 1) {
    strokes.push_back({{columnOfVerticals, y + start}, {columnOfVerticals, y + end}});
  }
  return strokes;
}

RgbColour PureColour(int hue, int saturation) {
  constexpr int kHalfLightness = 50;
  return ColourOfPercents(hue, PercentOfValue(saturation, kOffsetOfBar), kHalfLightness);
}

std::array<RgbColour, kBarBands> BarBands(const RgbColour& pure) {
  std::array<RgbColour, kBarBands> bands;
  int band = 0;
  for (RgbColour& colour : bands) {
    colour = {BandChannel(pure.red, band), BandChannel(pure.green, band),
              BandChannel(pure.blue, band)};
    ++band;
  }
  return bands;
}

int BandHeight(int barHeight) {
  return barHeight / kBarBands;
}

int BarPositionOfBrightness(int brightness) {
  return kHighestPosition - std::clamp(brightness, 0, kHighestPosition);
}

int BrightnessOfBarPosition(int position) {
  return kHighestPosition - position;
}

std::optional<int> SteppedSpinner(int value, ScrollCode code) {
  if (code == ScrollCode::kEndScroll) {
    return std::nullopt;
  }
  // The page and thumb codes lower the value, too: that is meant so.
  const int step = code == ScrollCode::kLineUp ? kLine : -kLine;
  // Values farther outside end alike, and cannot leave the range of int.
  const int nearby = std::clamp(value, -kLine, kHighestPosition + kLine);
  return std::clamp(nearby + step, 0, kHighestPosition);
}

std::optional<int> SteppedBrightnessBar(int position, ScrollCode code, int thumb) {
  const std::optional<int> led = LedTo(position, code, thumb);
  return led ? std::optional(std::clamp(*led, 0, kHighestPosition)) : std::nullopt;
}

std::optional<int> SteppedChannelBar(int position, ScrollCode code, int thumb) {
  if (code == ScrollCode::kTop) {
    return 0;
  }
  if (code == ScrollCode::kBottom) {
    return kHighestPosition;
  }
  const std::optional<int> led = LedTo(position, code, thumb);
  return led && *led >= 0 && *led <= kHighestPosition ? led : std::nullopt;
}

}  // namespace quorvel
