#include "kivdata/made_colours.h"

#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Palette = std::vector<COLORREF>;
using Bytes = std::vector<BYTE>;

constexpr COLORREF kWhite = 0xFFFFFF;

TEST(MadeColours, SixteenWhiteEntriesAndTheStandardColoursAreTheDefault) {
  // 0x00BBGGRR
  Palette expected(16, kWhite);
  const Palette standard{
      0x000000, 0x404040, 0x808080, 0xC0C0C0,                                // greys
      0x8080FF, 0x80C0FF, 0x80FFFF, 0x80FF80, 0xFFFF80, 0xFF8080, 0xFF80FF,  // light
      0x0000FF, 0x0080FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF,  // pure
      0x000080, 0x004080, 0x008080, 0x008000, 0x808000, 0x800000, 0x800080,  // dark
  };
  expected.insert(expected.end(), standard.begin(), standard.end());
  EXPECT_EQ(DefaultPalette(), expected);
  EXPECT_EQ(DefaultPalette().size(), 41U);
}

TEST(MadeColours, StandardColoursAreAllDifferentAndNoneIsWhite) {
  const Palette palette = DefaultPalette();
  const std::set<COLORREF> standard(palette.begin() + kMadeColorCount, palette.end());
  EXPECT_EQ(standard.size(), 25U);
  EXPECT_FALSE(standard.contains(kWhite));
}

TEST(MadeColours, CountsOfThePalette) {
  EXPECT_EQ(kMadeColorCount, 16);
  EXPECT_EQ(kStandardColorCount, 25);
  EXPECT_EQ(kFixedPaletteCount, 41);
  EXPECT_EQ(kMaxPaletteCount, 4096);
  EXPECT_EQ(kMaxStoredPaletteSize, 16384U);
}

TEST(MadeColours, AreStoredAsRedGreenBlueAndZero) {
  const Palette palette{0x00332211, RGB(255, 0, 1)};
  const Bytes stored{0x11, 0x22, 0x33, 0, 255, 0, 1, 0};
  EXPECT_EQ(StoredFromPalette(palette), stored);
  EXPECT_EQ(PaletteFromStored(stored), palette);
}

TEST(MadeColours, TheHighByteIsDropped) {
  EXPECT_EQ(PaletteFromStored(Bytes{1, 2, 3, 0xFF}), Palette{0x00030201});
  EXPECT_EQ(StoredFromPalette(Palette{0xFF030201}), (Bytes{1, 2, 3, 0}));
}

TEST(MadeColours, NothingStoredGivesTheDefault) {
  EXPECT_EQ(PaletteFromStored(std::nullopt), DefaultPalette());
}

TEST(MadeColours, StoredBytesThatAreNoPaletteGiveTheDefault) {
  for (const std::size_t size : {1U, 2U, 3U, 5U, 63U, 165U, kMaxStoredPaletteSize + 4}) {
    EXPECT_EQ(PaletteFromStored(Bytes(size)), DefaultPalette()) << size;
  }
}

TEST(MadeColours, APaletteHasAnySizeUpToTheBound) {
  EXPECT_EQ(PaletteFromStored(Bytes()), Palette());
  EXPECT_EQ(PaletteFromStored(Bytes(4)), Palette(1));
  EXPECT_EQ(PaletteFromStored(Bytes(kMaxStoredPaletteSize)), Palette(4096));
  EXPECT_EQ(StoredFromPalette({}), Bytes());
}

TEST(MadeColours, TheBeginningIsCopiedAndWhiteFillsUp) {
  const Palette palette{1, 2, 3};
  Palette colors(2, 9);
  CopyFirst(palette, colors);
  EXPECT_EQ(colors, (Palette{1, 2}));

  colors.assign(3, 9);
  CopyFirst(palette, colors);
  EXPECT_EQ(colors, (Palette{1, 2, 3}));

  colors.assign(5, 9);
  CopyFirst(palette, colors);
  EXPECT_EQ(colors, (Palette{1, 2, 3, kWhite, kWhite}));
}

TEST(MadeColours, TheBeginningIsReplacedAndTheRestKept) {
  const Palette palette{1, 2, 3};
  EXPECT_EQ(WithFirstReplaced(palette, Palette{7}), (Palette{7, 2, 3}));
  EXPECT_EQ(WithFirstReplaced(palette, Palette{7, 8, 9}), (Palette{7, 8, 9}));
  EXPECT_EQ(WithFirstReplaced(palette, Palette{7, 8, 9, 10}), (Palette{7, 8, 9, 10}));
  EXPECT_EQ(WithFirstReplaced({}, Palette{7}), (Palette{7}));
}

}  // namespace
}  // namespace quorvel
