#include "kivdata/made_colours.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvel {

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);

/// Greys from dark to light, then red, orange, yellow, green, cyan, blue and magenta: light, pure
/// and dark. White is missing, the made colours before them have it.
constexpr std::array<COLORREF, kStandardColorCount> kStandardColors{
    RGB(0, 0, 0),       RGB(64, 64, 64),    RGB(128, 128, 128), RGB(192, 192, 192),

    RGB(255, 128, 128), RGB(255, 192, 128), RGB(255, 255, 128), RGB(128, 255, 128),
    RGB(128, 255, 255), RGB(128, 128, 255), RGB(255, 128, 255),

    RGB(255, 0, 0),     RGB(255, 128, 0),   RGB(255, 255, 0),   RGB(0, 255, 0),
    RGB(0, 255, 255),   RGB(0, 0, 255),     RGB(255, 0, 255),

    RGB(128, 0, 0),     RGB(128, 64, 0),    RGB(128, 128, 0),   RGB(0, 128, 0),
    RGB(0, 128, 128),   RGB(0, 0, 128),     RGB(128, 0, 128),
};

constexpr std::array<unsigned, 3> kColorShifts{0, 8, 16};  // red, green and blue of a COLORREF
constexpr COLORREF kByteMask = 0xFF;

}  // namespace

std::vector<COLORREF> DefaultPalette() {
  std::vector<COLORREF> palette(kMadeColorCount, kWhite);
  palette.insert(palette.end(), kStandardColors.begin(), kStandardColors.end());
  return palette;
}

std::vector<COLORREF> PaletteFromStored(const std::optional<std::vector<BYTE>>& stored) {
  if (!stored || stored->size() % kStoredColorSize != 0 || stored->size() > kMaxStoredPaletteSize) {
    return DefaultPalette();
  }
  std::vector<COLORREF> palette(stored->size() / kStoredColorSize);
  for (std::size_t i = 0; i < palette.size(); ++i) {
    for (std::size_t part = 0; part < kColorShifts.size(); ++part) {
      const COLORREF value = (*stored)[i * kStoredColorSize + part];
      palette[i] |= value << kColorShifts[part];
    }
  }
  return palette;
}

std::vector<BYTE> StoredFromPalette(std::span<const COLORREF> palette) {
  std::vector<BYTE> stored(palette.size() * kStoredColorSize);
  for (std::size_t i = 0; i < palette.size(); ++i) {
    for (std::size_t part = 0; part < kColorShifts.size(); ++part) {
      stored[i * kStoredColorSize + part] =
          static_cast<BYTE>((palette[i] >> kColorShifts[part]) & kByteMask);
    }
  }
  return stored;
}

void CopyFirst(std::span<const COLORREF> palette, std::span<COLORREF> colors) {
  const auto taken = palette.first(std::min(palette.size(), colors.size()));
  const auto rest = std::ranges::copy(taken, colors.begin()).out;
  std::fill(rest, colors.end(), kWhite);
}

std::vector<COLORREF> WithFirstReplaced(std::vector<COLORREF> palette,
                                        std::span<const COLORREF> colors) {
  palette.resize(std::max(palette.size(), colors.size()));
  std::ranges::copy(colors, palette.begin());
  return palette;
}

}  // namespace quorvel
