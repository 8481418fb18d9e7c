// The buttons of the basic colour grid: which control shows which colour.
#pragma once

#include "framework/base_types.h"

#include <array>
#include <optional>

namespace quorvel {

inline constexpr int kBasicColorCount = 48;
inline constexpr int kMadeColorButtonCount = 16;
/// The basic colours come first, then the made ones; each row by row, from left to right.
inline constexpr int kGridButtonCount = kBasicColorCount + kMadeColorButtonCount;
inline constexpr int kGridColumns = 8;

struct BasicColor {
  int controlId;
  COLORREF color;
};

/// Irregular on purpose: hosts and users know these colours. One has 126 where its neighbours have
/// 128, and (64, 0, 64) stands twice.
inline constexpr std::array<BasicColor, kBasicColorCount> kBasicColors{{
    // row 1
    {13377, RGB(255, 128, 128)},
    {13388, RGB(255, 255, 128)},
    {13399, RGB(128, 255, 128)},
    {13410, RGB(0, 255, 128)},
    {13421, RGB(128, 255, 255)},
    {13432, RGB(0, 128, 255)},
    {13438, RGB(255, 128, 192)},
    {13439, RGB(255, 128, 255)},
    // row 2
    {13440, RGB(255, 0, 0)},
    {13378, RGB(255, 255, 0)},
    {13379, RGB(128, 255, 0)},
    {13380, RGB(0, 255, 64)},
    {13381, RGB(0, 255, 255)},
    {13382, RGB(0, 128, 192)},
    {13383, RGB(128, 128, 192)},
    {13384, RGB(255, 0, 255)},
    // row 3
    {13385, RGB(128, 64, 64)},
    {13386, RGB(255, 126, 64)},
    {13387, RGB(0, 255, 0)},
    {13389, RGB(0, 128, 128)},
    {13390, RGB(0, 64, 128)},
    {13391, RGB(128, 128, 255)},
    {13392, RGB(128, 0, 64)},
    {13393, RGB(255, 0, 128)},
    // row 4
    {13394, RGB(128, 0, 0)},
    {13395, RGB(255, 128, 0)},
    {13396, RGB(0, 128, 0)},
    {13397, RGB(0, 128, 64)},
    {13398, RGB(0, 0, 255)},
    {13400, RGB(0, 0, 160)},
    {13401, RGB(128, 0, 128)},
    {13402, RGB(128, 0, 255)},
    // row 5
    {13403, RGB(64, 0, 0)},
    {13404, RGB(128, 64, 0)},
    {13405, RGB(0, 64, 0)},
    {13406, RGB(0, 64, 64)},
    {13407, RGB(0, 0, 128)},
    {13408, RGB(0, 0, 64)},
    {13409, RGB(64, 0, 64)},
    {13411, RGB(64, 0, 128)},
    // row 6
    {13412, RGB(0, 0, 0)},
    {13413, RGB(128, 128, 0)},
    {13414, RGB(128, 128, 64)},
    {13415, RGB(128, 128, 128)},
    {13416, RGB(64, 128, 128)},
    {13417, RGB(192, 192, 192)},
    {13418, RGB(64, 0, 64)},
    {13419, RGB(255, 255, 255)},
}};

/// Not in the order of their numbers.
inline constexpr std::array<int, kMadeColorButtonCount> kMadeColorIds{
    13420, 13422, 13423, 13424, 13425, 13426, 13427, 13428,
    13429, 13430, 13431, 13433, 13434, 13435, 13436, 13437,
};

inline constexpr int kFirstGridId = 13377;
inline constexpr int kLastGridId = kFirstGridId + kGridButtonCount - 1;

constexpr bool IsMadeColor(int index) {
  return kBasicColorCount <= index && index < kGridButtonCount;
}

constexpr bool IsGridIndex(int index) { return 0 <= index && index < kGridButtonCount; }

/// The control of a grid index.
constexpr int GridControlId(int index) {
  const auto place = static_cast<std::size_t>(index);
  return index < kBasicColorCount ? kBasicColors[place].controlId
                                  : kMadeColorIds[place - kBasicColorCount];
}

/// The grid index of a control; empty for other controls.
constexpr std::optional<int> GridIndexOf(int controlId) {
  for (int index = 0; index < kGridButtonCount; ++index) {
    if (GridControlId(index) == controlId) {
      return index;
    }
  }
  return std::nullopt;
}

using GridColors = std::array<COLORREF, kGridButtonCount>;

/// The basic colours, and white for every made one.
constexpr GridColors InitialGridColors() {
  GridColors colors{};
  for (int index = 0; index < kGridButtonCount; ++index) {
    const auto place = static_cast<std::size_t>(index);
    colors[place] = index < kBasicColorCount ? kBasicColors[place].color : RGB(255, 255, 255);
  }
  return colors;
}

/// The first grid index with this colour; empty where there is none.
constexpr std::optional<int> FirstWithColor(const GridColors& colors, COLORREF color) {
  for (int index = 0; index < kGridButtonCount; ++index) {
    if (colors[static_cast<std::size_t>(index)] == color) {
      return index;
    }
  }
  return std::nullopt;
}

}  // namespace quorvel
