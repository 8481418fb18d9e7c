// The arithmetic of the colour picker: its own HSL model, its field, its brightness bar, its
// spinners and bars. Nothing here needs a window.
//
//   const PickerValues values = ValuesOfColour({128, 128, 128});   // 170, 0, 128
//   const CPoint marker = MarkerOfValues(values, field);
//
// The picker's model is not that of kivcomm/color_models. Several of its formulas differ from each
// other by one; they are what users of the picker see and stay as they are. A `field` is the hue
// and saturation field's size in pixels, at least 1 x 1; points are pixels from its top-left
// corner. Any int is allowed for hue, saturation and brightness, since a user may have typed it;
// channels are 0 to 255.
#pragma once

#include "framework/geometry.h"
#include "kivcomm/color_models.h"

#include <array>
#include <optional>
#include <vector>

namespace quorvel {

/// Hue in degrees, 0 to 360; saturation and lightness in percent, 0 to 100.
struct HslColour {
  double hue = 0.0;
  double saturation = 0.0;
  double lightness = 0.0;
};

/// A grey has hue 240 and saturation 0.
HslColour HslOfColour(const RgbColour& colour);

/// Channels without their decimals. Saturation and lightness outside 0 to 100 count as the nearest
/// of these, hues that differ by 360 as the same.
RgbColour ColourOfHsl(const HslColour& hsl);

/// What the picker's fields show, each on a scale from 0 to 256. Hue ends at 255, the others do
/// not: white has brightness 256.
struct PickerValues {
  int hue = 0;
  int saturation = 0;
  int brightness = 0;

  friend constexpr bool operator==(const PickerValues&, const PickerValues&) = default;
};

PickerValues ValuesOfHsl(const HslColour& hsl);
PickerValues ValuesOfColour(const RgbColour& colour);

/// 0 to 360 degrees.
int DegreesOfHue(int hue);

/// Saturation and brightness count as 1 more than they are.
RgbColour ColourOfValues(const PickerValues& values);

/// Every bar and spinner runs from 0 to this.
inline constexpr int kHighestPosition = 255;

/// What becomes of a typed number: a whole one, 255 at most and never negative.
int TypedValue(double number);

// The hue and saturation field: hue from left to right, saturation from full at the top to none at
// the bottom.

/// The field's top-left corner in the dialog's client area, at the standard font.
inline constexpr CPoint kFieldCorner{16, 14};

/// The field's point for a point in the same coordinates as `corner`; empty where it lies outside.
std::optional<CPoint> PointInField(const CPoint& point, const CPoint& corner, const CSize& field);

/// Column of a hue.
int MarkerX(int hue, const CSize& field);
/// Row of a saturation; no saturation is just below the field.
int MarkerY(int saturation, const CSize& field);
/// Row of a saturation set by its spinner or typed: as if the saturation was 1 more.
int MarkerYOfSpinner(int saturation, const CSize& field);
CPoint MarkerOfValues(const PickerValues& values, const CSize& field);

struct FieldColour {
  RgbColour colour;
  int hue = 0;
  int saturation = 0;
};

/// The colour at a point of the field. Saturation counts as 1 and brightness as 2 more than it is.
FieldColour ColourAtPoint(const CPoint& point, const CSize& field, int brightness);

struct Segment {
  CPoint from;
  CPoint to;

  friend constexpr bool operator==(const Segment&, const Segment&) = default;
};

/// The marker's strokes around its point, at most four in the order left, top, right, bottom. Those
/// that would leave the field are missing; at the field's edge those along it are moved inwards.
std::vector<Segment> MarkerStrokes(const CPoint& marker, const CSize& field, double rate = 1.0);

// The brightness bar: bright at the top.

inline constexpr int kBarBands = 32;

/// The colour of half brightness that the bar's bands lead from to white and to black.
RgbColour PureColour(int hue, int saturation);

/// The bands from the top down.
std::array<RgbColour, kBarBands> BarBands(const RgbColour& pure);

/// Of each band; what the bar's height has beyond 32 of them stays empty at the bottom.
int BandHeight(int barHeight);

/// Position of the bar's scroll bar, where 0 is bright: 255 - brightness, kept in 0 to 255.
int BarPositionOfBrightness(int brightness);
int BrightnessOfBarPosition(int position);

/// What a scroll bar tells, with the platform's numbers.
enum class ScrollCode {
  kLineUp = 0,
  kLineDown = 1,
  kPageUp = 2,
  kPageDown = 3,
  kThumbPosition = 4,
  kThumbTrack = 5,
  kTop = 6,
  kBottom = 7,
  kEndScroll = 8,
};

/// A spinner's new value, 0 to 255: 1 more after kLineUp, 1 less after every other code; empty for
/// kEndScroll, which changes nothing.
std::optional<int> SteppedSpinner(int value, ScrollCode code);

/// The brightness bar's new position, kept in 0 to 255; `thumb` is where the user has dragged it.
/// Empty for kTop, kBottom and kEndScroll, which change nothing.
std::optional<int> SteppedBrightnessBar(int position, ScrollCode code, int thumb);

/// The new position of a red, green or blue bar. Empty for kEndScroll and for a position outside 0
/// to 255, which change nothing.
std::optional<int> SteppedChannelBar(int position, ScrollCode code, int thumb);

}  // namespace quorvel
