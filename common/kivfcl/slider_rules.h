// The arithmetic of a slider on a strip of colours: where its parts stand, which position a point
// means, which colour a pixel has, what a key does. Nothing here needs a window.
//
//   const SliderTrack track = TrackOf(160);                    // a slider 160 pixels long
//   const int place = PlaceOfPosition(128, {0, 255}, track);   // where its thumb's centre stands
//
// A place is in pixels from the slider's end of low positions: from the left edge, or from the
// lower edge of an upright one.
#pragma once

#include "framework/geometry.h"
#include "kivcomm/color_models.h"

#include <array>
#include <vector>

namespace quorvel {

/// `lowest` is not above `highest`.
struct SliderRange {
  int lowest = 0;
  int highest = 0;

  friend constexpr bool operator==(const SliderRange&, const SliderRange&) = default;
};

/// The position itself, or the end of the range that is nearest to it.
int KeptInRange(long long position, const SliderRange& range);

/// The places of the thumb's centre at the lowest and at the highest position, and what the thumb
/// covers on either side of its centre.
struct SliderTrack {
  int first = 0;
  int last = 0;
  int halfThumb = 0;
};

/// The whole thumb stays inside, and away from the focus frame, for any length that has room for
/// it; in a shorter one it is as small as needed. `rate` is the display's scale.
SliderTrack TrackOf(int length, double rate = 1.0);

int PlaceOfPosition(int position, const SliderRange& range, const SliderTrack& track);
/// The nearest position; a place beyond the track's ends means the end.
int PositionOfPlace(int place, const SliderRange& range, const SliderTrack& track);

/// Where the mouse has taken hold of the thumb, from the thumb's centre; 0 beside the thumb, which
/// then jumps to the mouse.
int GripAt(int place, int thumbPlace, const SliderTrack& track);
/// The position while the mouse is at `place` and holds the thumb by `grip`. At an end of the track
/// it is that end, wherever the thumb is held.
int DraggedPosition(int place, int grip, const SliderRange& range, const SliderTrack& track);

/// What a key does.
enum class SliderStep { kRaise, kLower, kPageRaise, kPageLower, kLowest, kHighest };

/// A page is a tenth of the range, at least 1.
int Stepped(int position, const SliderRange& range, SliderStep step);

// Parts of a slider whose client area has the size `client`.

/// Of a point in client pixels.
int PlaceOfPoint(const CPoint& point, const CSize& client, bool upright);
/// The strip of colours with its outline, inside the room for the focus frame.
CRect StripRect(const CSize& client);
/// The thumb, its centre at `place`.
CRect ThumbRect(int place, const CSize& client, bool upright, double rate = 1.0);

/// The model of a gradient's components.
enum class GradientModel { kRgb, kCmyk, kHsb };

/// The components' order and ranges are those of kivcomm/color_models; in a model of three the last
/// one is ignored.
struct Gradient {
  GradientModel model = GradientModel::kRgb;
  std::array<int, 4> start{};
  std::array<int, 4> end{};

  friend constexpr bool operator==(const Gradient&, const Gradient&) = default;
};

/// The colour at `offset` of `span` equal steps from the start; each component is the nearest whole
/// number, the higher of two equally near ones. `offset` is 0 to `span`; a span of 0 is all start.
RgbColour GradientColour(const Gradient& gradient, int offset, int span);

/// The colours of `count` places from `firstPlace` on: along the track those of the gradient,
/// beyond it those of its ends.
std::vector<RgbColour> StripColours(const Gradient& gradient, const SliderTrack& track,
                                    int firstPlace, int count);

}  // namespace quorvel
