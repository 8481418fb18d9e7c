#include "kivfcl/slider_rules.h"

#include "kivfcl/display_pixels.h"

#include <algorithm>
#include <cstdlib>

namespace quorvel {

namespace {

/// Of the thumb from its centre, not counting the centre, on a display at 100 %.
constexpr int kHalfThumb = 4;
/// The focus frame at the slider's edge; the thumb stays inside it.
constexpr int kFocusFrame = 1;
/// Between the focus frame and the thumb's sides, and the strip, which the thumb overhangs.
constexpr int kThumbGap = 1;
constexpr int kStripGap = 2;
constexpr int kPagesOfRange = 10;

/// The nearest whole number, the higher of two equally near ones. `divisor` is positive.
long long Divided(long long dividend, long long divisor) {
  const long long doubled = 2 * dividend + divisor;
  const long long quotient = doubled / (2 * divisor);
  return doubled < 0 && quotient * 2 * divisor != doubled ? quotient - 1 : quotient;
}

long long Span(const SliderRange& range) {
  return static_cast<long long>(range.highest) - range.lowest;
}

RgbColour Known(int red, int green, int blue) {
  return {std::clamp(red, 0, kHighestComponent), std::clamp(green, 0, kHighestComponent),
          std::clamp(blue, 0, kHighestComponent)};
}

RgbColour ColourOfComponents(GradientModel model, const std::array<int, 4>& components) {
  RgbColour colour;
  switch (model) {
    case GradientModel::kCmyk:
      __KivComm_CMYKtoRGB(components[0], components[1], components[2], components[3], &colour.red,
                          &colour.green, &colour.blue);
      break;
    case GradientModel::kHsb:
      __KivComm_HSBtoRGB(components[0], components[1], components[2], &colour.red, &colour.green,
                         &colour.blue);
      break;
    case GradientModel::kRgb:
      colour = Known(components[0], components[1], components[2]);
      break;
  }
  return colour;
}

}  // namespace

int KeptInRange(long long position, const SliderRange& range) {
  return static_cast<int>(std::clamp<long long>(position, range.lowest, range.highest));
}

SliderTrack TrackOf(int length, double rate) {
  SliderTrack track;
  track.halfThumb = std::clamp((length - 2 * kFocusFrame - 1) / 2, 0,
                               PixelsAt(rate, kHalfThumb));
  track.first = std::min(kFocusFrame + track.halfThumb, std::max(length - 1, 0) / 2);
  track.last = std::max(track.first, length - 1 - kFocusFrame - track.halfThumb);
  return track;
}

int PlaceOfPosition(int position, const SliderRange& range, const SliderTrack& track) {
  const long long span = Span(range);
  if (span == 0) {
    return track.first;
  }
  const long long travelled = static_cast<long long>(position) - range.lowest;
  return track.first + static_cast<int>(Divided(travelled * (track.last - track.first), span));
}

int PositionOfPlace(int place, const SliderRange& range, const SliderTrack& track) {
  if (place <= track.first) {
    return range.lowest;
  }
  if (place >= track.last) {
    return range.highest;
  }
  const long long travelled = place - track.first;
  return static_cast<int>(range.lowest +
                          Divided(travelled * Span(range), track.last - track.first));
}

int GripAt(int place, int thumbPlace, const SliderTrack& track) {
  const int distance = place - thumbPlace;
  return std::abs(distance) <= track.halfThumb ? distance : 0;
}

int DraggedPosition(int place, int grip, const SliderRange& range, const SliderTrack& track) {
  const bool isInside = track.first < place && place < track.last;
  return PositionOfPlace(isInside ? place - grip : place, range, track);
}

int Stepped(int position, const SliderRange& range, SliderStep step) {
  const long long page = std::max<long long>(Span(range) / kPagesOfRange, 1);
  const long long from = position;
  switch (step) {
    case SliderStep::kRaise:
      return KeptInRange(from + 1, range);
    case SliderStep::kLower:
      return KeptInRange(from - 1, range);
    case SliderStep::kPageRaise:
      return KeptInRange(from + page, range);
    case SliderStep::kPageLower:
      return KeptInRange(from - page, range);
    case SliderStep::kLowest:
      return range.lowest;
    case SliderStep::kHighest:
      return range.highest;
  }
  return position;
}

int PlaceOfPoint(const CPoint& point, const CSize& client, bool upright) {
  return upright ? client.cy - 1 - point.y : point.x;
}

CRect StripRect(const CSize& client) {
  constexpr int kRoom = kFocusFrame + kStripGap;
  return CRect(CPoint(0, 0), client).Grown(-kRoom, -kRoom);
}

CRect ThumbRect(int place, const CSize& client, bool upright, double rate) {
  const int length = upright ? client.cy : client.cx;
  const int half = TrackOf(length, rate).halfThumb;
  constexpr int kSide = kFocusFrame + kThumbGap;
  if (upright) {
    const int y = client.cy - 1 - place;
    return {kSide, y - half, client.cx - kSide, y + half + 1};
  }
  return {place - half, kSide, place + half + 1, client.cy - kSide};
}

RgbColour GradientColour(const Gradient& gradient, int offset, int span) {
  std::array<int, 4> components = gradient.start;
  for (std::size_t i = 0; span > 0 && i < components.size(); ++i) {
    const long long way = static_cast<long long>(gradient.end.at(i)) - gradient.start.at(i);
    components.at(i) = static_cast<int>(gradient.start.at(i) + Divided(way * offset, span));
  }
  return ColourOfComponents(gradient.model, components);
}

std::vector<RgbColour> StripColours(const Gradient& gradient, const SliderTrack& track,
                                    int firstPlace, int count) {
  std::vector<RgbColour> colours;
  colours.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) {
    const int place = std::clamp(firstPlace + i, track.first, track.last);
    colours.push_back(GradientColour(gradient, place - track.first, track.last - track.first));
  }
  return colours;
}

}  // namespace quorvel
