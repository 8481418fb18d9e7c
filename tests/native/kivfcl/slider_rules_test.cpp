#include "kivfcl/slider_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace quorvel {
namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr SliderRange kByte{0, 255};
constexpr SliderRange kAll{kLeast, kMost};

// --- The track

TEST(SliderTrackTest, LeavesRoomForTheThumbAndTheFocusFrame) {
  const SliderTrack track = TrackOf(160);
  EXPECT_EQ(track.first, 5);
  EXPECT_EQ(track.last, 154);
  EXPECT_EQ(track.halfThumb, 4);
}

TEST(SliderTrackTest, HoldsForEveryLength) {
  for (int length = 0; length <= 200; ++length) {
    SCOPED_TRACE(length);
    const SliderTrack track = TrackOf(length);
    EXPECT_LE(0, track.first);
    EXPECT_LE(track.first, track.last);
    if (length >= 1) {
      EXPECT_LE(0, track.first - track.halfThumb);
      EXPECT_LE(track.last + track.halfThumb, length - 1);
    }
    if (length >= 3) {
      EXPECT_EQ(track.first - track.halfThumb, 1) << "inside the focus frame";
      EXPECT_GE(length - 2, track.last + track.halfThumb);
    }
    if (length >= 11) {
      EXPECT_EQ(track.halfThumb, 4);
      EXPECT_EQ(track.last + track.halfThumb, length - 2);
    }
  }
}

// --- Positions and places

TEST(SliderPosition, TheRangesEndsStandAtTheTracksEnds) {
  for (const SliderRange& range : {kByte, kAll, SliderRange{-7, -5}, SliderRange{0, 360}}) {
    for (int length = 0; length <= 300; ++length) {
      SCOPED_TRACE(length);
      const SliderTrack track = TrackOf(length);
      EXPECT_EQ(PlaceOfPosition(range.lowest, range, track), track.first);
      EXPECT_EQ(PlaceOfPosition(range.highest, range, track), track.last);
      EXPECT_EQ(PositionOfPlace(track.first, range, track), range.lowest);
      EXPECT_EQ(PositionOfPlace(kLeast, range, track), range.lowest);
      EXPECT_EQ(PositionOfPlace(kMost, range, track), range.highest);
      if (track.first < track.last) {
        EXPECT_EQ(PositionOfPlace(track.last, range, track), range.highest);
      }
    }
  }
}

TEST(SliderPosition, IsTheNearestToThePlace) {
  const SliderTrack track = TrackOf(61);  // 50 pixels from 5 to 55
  EXPECT_EQ(PositionOfPlace(6, {0, 100}, track), 2);
  EXPECT_EQ(PositionOfPlace(30, {0, 100}, track), 50);
  EXPECT_EQ(PositionOfPlace(30, {-100, 0}, track), -50);
  EXPECT_EQ(PositionOfPlace(9, {0, 10}, track), 1);   // 0.8
  EXPECT_EQ(PositionOfPlace(7, {0, 10}, track), 0);   // 0.4
  EXPECT_EQ(PositionOfPlace(10, {0, 5}, track), 1);   // 0.5
  EXPECT_EQ(PlaceOfPosition(1, {0, 100}, track), 6);  // half a pixel
  EXPECT_EQ(PlaceOfPosition(99, {0, 100}, track), 55);
  EXPECT_EQ(PlaceOfPosition(1, {0, 255}, track), 5);
  EXPECT_EQ(PlaceOfPosition(7, {7, 7}, track), 5) << "a range of one position";
  EXPECT_EQ(PositionOfPlace(30, {7, 7}, track), 7);
}

TEST(SliderPosition, EveryPlaceOfALongTrackComesBack) {
  for (const int length : {12, 100, 160, 266}) {
    const SliderTrack track = TrackOf(length);
    for (int place = track.first; place <= track.last; ++place) {
      const int position = PositionOfPlace(place, kByte, track);
      EXPECT_EQ(PlaceOfPosition(position, kByte, track), place) << length;
    }
  }
  const SliderTrack longTrack = TrackOf(600);
  for (int position = 0; position <= 255; ++position) {
    const int place = PlaceOfPosition(position, kByte, longTrack);
    EXPECT_EQ(PositionOfPlace(place, kByte, longTrack), position);
  }
}

TEST(SliderPosition, IsKeptInTheRange) {
  EXPECT_EQ(KeptInRange(-1, kByte), 0);
  EXPECT_EQ(KeptInRange(0, kByte), 0);
  EXPECT_EQ(KeptInRange(255, kByte), 255);
  EXPECT_EQ(KeptInRange(256, kByte), 255);
  EXPECT_EQ(KeptInRange(static_cast<long long>(kMost) + 1, kAll), kMost);
}

// --- Dragging

TEST(SliderDrag, AThumbIsHeldWhereItWasTaken) {
  const SliderTrack track = TrackOf(266);  // 255 pixels from 5 on
  EXPECT_EQ(GripAt(104, 100, track), 4);
  EXPECT_EQ(GripAt(96, 100, track), -4);
  EXPECT_EQ(GripAt(105, 100, track), 0) << "beside the thumb";
  EXPECT_EQ(GripAt(95, 100, track), 0);
  EXPECT_EQ(DraggedPosition(104, 4, kByte, track), 95) << "not moved";
  EXPECT_EQ(DraggedPosition(105, 4, kByte, track), 96);
  EXPECT_EQ(DraggedPosition(200, 0, kByte, track), 195);
}

TEST(SliderDrag, TheEndsAreReachedWhereverTheThumbIsHeld) {
  const SliderTrack track = TrackOf(266);
  for (int grip = -4; grip <= 4; ++grip) {
    SCOPED_TRACE(grip);
    for (const int place : {5, 0, -1, -5000}) {
      EXPECT_EQ(DraggedPosition(place, grip, kByte, track), 0);
    }
    for (const int place : {260, 265, 266, 5000}) {
      EXPECT_EQ(DraggedPosition(place, grip, kByte, track), 255);
    }
    int before = 0;
    for (int place = 0; place < 266; ++place) {
      const int position = DraggedPosition(place, grip, kByte, track);
      EXPECT_GE(position, before);
      before = position;
    }
  }
}

// --- Keys

TEST(SliderKeys, StepsAndPagesStayInTheRange) {
  EXPECT_EQ(Stepped(100, kByte, SliderStep::kRaise), 101);
  EXPECT_EQ(Stepped(100, kByte, SliderStep::kLower), 99);
  EXPECT_EQ(Stepped(100, kByte, SliderStep::kPageRaise), 125);
  EXPECT_EQ(Stepped(100, kByte, SliderStep::kPageLower), 75);
  EXPECT_EQ(Stepped(100, kByte, SliderStep::kLowest), 0);
  EXPECT_EQ(Stepped(100, kByte, SliderStep::kHighest), 255);
  EXPECT_EQ(Stepped(255, kByte, SliderStep::kRaise), 255);
  EXPECT_EQ(Stepped(0, kByte, SliderStep::kLower), 0);
  EXPECT_EQ(Stepped(250, kByte, SliderStep::kPageRaise), 255);
  EXPECT_EQ(Stepped(3, kByte, SliderStep::kPageLower), 0);
}

TEST(SliderKeys, APageIsAtLeastOne) {
  EXPECT_EQ(Stepped(2, {0, 9}, SliderStep::kPageRaise), 3);
  EXPECT_EQ(Stepped(2, {0, 9}, SliderStep::kPageLower), 1);
  EXPECT_EQ(Stepped(2, {2, 2}, SliderStep::kPageRaise), 2);
}

TEST(SliderKeys, TheWidestRange) {
  EXPECT_EQ(Stepped(kMost, kAll, SliderStep::kRaise), kMost);
  EXPECT_EQ(Stepped(kLeast, kAll, SliderStep::kLower), kLeast);
  EXPECT_EQ(Stepped(0, kAll, SliderStep::kPageRaise), 429'496'729);
  EXPECT_EQ(Stepped(kMost - 1, kAll, SliderStep::kPageRaise), kMost);
}

// --- Parts

TEST(SliderParts, AnUprightSlidersPlacesCountFromBelow) {
  EXPECT_EQ(PlaceOfPoint({30, 7}, {160, 20}, false), 30);
  EXPECT_EQ(PlaceOfPoint({7, 30}, {20, 160}, true), 129);
  EXPECT_EQ(PlaceOfPoint({7, 159}, {20, 160}, true), 0);
}

TEST(SliderParts, TheThumbIsNeverCut) {
  for (const bool upright : {false, true}) {
    for (int length = 11; length <= 60; ++length) {
      const CSize client = upright ? CSize(16, length) : CSize(length, 16);
      const SliderTrack track = TrackOf(length);
      for (int place = track.first; place <= track.last; ++place) {
        const CRect thumb = ThumbRect(place, client, upright);
        EXPECT_GE(thumb.left, 1);
        EXPECT_GE(thumb.top, 1);
        EXPECT_LE(thumb.right, client.cx - 1);
        EXPECT_LE(thumb.bottom, client.cy - 1);
        EXPECT_EQ(thumb.Size(), upright ? CSize(12, 9) : CSize(9, 12));
        EXPECT_TRUE(thumb.Contains(upright ? CPoint(8, length - 1 - place) : CPoint(place, 8)));
      }
    }
  }
}

TEST(SliderParts, TheStripStandsInsideTheThumbsLength) {
  EXPECT_EQ(StripRect({160, 20}), CRect(3, 3, 157, 17));
  EXPECT_LE(StripRect({4, 20}).Width(), 0) << "no room";
}

// --- Colours

TEST(SliderColours, LeadEvenlyFromStartToEnd) {
  const Gradient gradient{GradientModel::kRgb, {0, 255, 10, 99}, {255, 0, 11, -99}};
  EXPECT_EQ(GradientColour(gradient, 0, 255), (RgbColour{0, 255, 10}));
  EXPECT_EQ(GradientColour(gradient, 255, 255), (RgbColour{255, 0, 11}));
  EXPECT_EQ(GradientColour(gradient, 100, 255), (RgbColour{100, 155, 10}));
  EXPECT_EQ(GradientColour(gradient, 1, 2), (RgbColour{128, 128, 11})) << "halves count upwards";
  EXPECT_EQ(GradientColour(gradient, 0, 0), (RgbColour{0, 255, 10}));
}

TEST(SliderColours, EachComponentIsTheNearestWholeNumber) {
  for (const int span : {1, 7, 149, 254, 255, 256, 511}) {
    for (int offset = 0; offset <= span; ++offset) {
      const Gradient gradient{GradientModel::kRgb, {0, 200, 31, 0}, {255, 3, 31, 0}};
      const RgbColour colour = GradientColour(gradient, offset, span);
      EXPECT_LE(std::abs(2 * (colour.red * span - 255 * offset)), span);
      EXPECT_LE(std::abs(2 * (colour.green * span - 200 * span + 197 * offset)), span);
      EXPECT_EQ(colour.blue, 31);
    }
  }
}

TEST(SliderColours, AreThoseOfTheModel) {
  for (int hue = 0; hue <= 360; ++hue) {
    RgbColour expected;
    __KivComm_HSBtoRGB(hue, 200, 130, &expected.red, &expected.green, &expected.blue);
    const Gradient gradient{GradientModel::kHsb, {0, 200, 130, 0}, {360, 200, 130, 0}};
    EXPECT_EQ(GradientColour(gradient, hue, 360), expected);
  }
  for (int black = 0; black <= 255; ++black) {
    RgbColour expected;
    __KivComm_CMYKtoRGB(10, 60, 200, black, &expected.red, &expected.green, &expected.blue);
    const Gradient gradient{GradientModel::kCmyk, {10, 60, 200, 0}, {10, 60, 200, 255}};
    EXPECT_EQ(GradientColour(gradient, black, 255), expected);
  }
}

TEST(SliderColours, ComponentsOutsideTheirRangeCountAsTheNearest) {
  const Gradient gradient{GradientModel::kRgb, {kLeast, 300, 0, 0}, {kMost, 300, -1, 0}};
  EXPECT_EQ(GradientColour(gradient, 0, 30'000), (RgbColour{0, 255, 0}));
  EXPECT_EQ(GradientColour(gradient, 30'000, 30'000), (RgbColour{255, 255, 0}));
}

TEST(SliderColours, AStripShowsThemAlongTheTrack) {
  const Gradient gradient{GradientModel::kRgb, {0, 0, 0, 0}, {149, 0, 0, 0}};
  const SliderTrack track = TrackOf(160);  // 149 pixels from 5 on
  const std::vector<RgbColour> colours = StripColours(gradient, track, 4, 152);
  ASSERT_EQ(colours.size(), 152U);
  EXPECT_EQ(colours[0], (RgbColour{0, 0, 0})) << "before the track";
  for (int place = 5; place <= 154; ++place) {
    EXPECT_EQ(colours.at(static_cast<std::size_t>(place) - 4), (RgbColour{place - 5, 0, 0}));
  }
  EXPECT_EQ(colours.back(), (RgbColour{149, 0, 0})) << "behind it";
  EXPECT_TRUE(StripColours(gradient, track, 4, 0).empty());
  EXPECT_TRUE(StripColours(gradient, track, 4, -3).empty());
}

TEST(TrackOf, TheThumbFollowsTheDisplaysScale) {
  const SliderTrack track = TrackOf(320, 2.0);
  EXPECT_EQ(track.halfThumb, 8);
  EXPECT_EQ(track.first, 9);
  EXPECT_EQ(track.last, 310);
  EXPECT_EQ(ThumbRect(50, {320, 32}, false, 2.0), CRect(42, 2, 59, 30));
}

}  // namespace
}  // namespace quorvel
