#include "kivfcl/palette_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace quorvel {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

/// 41 entries in rows of 6: 7 rows, the last one with 5; 4 rows fit, a fifth in part.
constexpr PaletteGrid kGrid{CSize(162, 70), CSize(24, 16), 6, 41, 0};

PaletteGrid From(int firstRow) {
  PaletteGrid grid = kGrid;
  grid.firstRow = firstRow;
  return grid;
}

PaletteGrid Of(int count) {
  PaletteGrid grid = kGrid;
  grid.count = count;
  return grid;
}

// --- Rows

TEST(PaletteRows, AreCountedWhole) {
  EXPECT_EQ(kGrid.Rows(), 7);
  EXPECT_EQ(Of(0).Rows(), 0);
  EXPECT_EQ(Of(1).Rows(), 1);
  EXPECT_EQ(Of(6).Rows(), 1);
  EXPECT_EQ(Of(7).Rows(), 2);
  EXPECT_EQ(kGrid.WholeRows(), 4);
  EXPECT_EQ(kGrid.RowsInSight(), 5);
  EXPECT_EQ(kGrid.HighestFirstRow(), 3);
}

TEST(PaletteRows, FitWhenEachIsSeenWhole) {
  EXPECT_TRUE(Of(0).FitsWhole());
  EXPECT_TRUE(Of(24).FitsWhole());
  EXPECT_FALSE(Of(25).FitsWhole());
}

TEST(PaletteRows, ATinyWindowScrollsRowByRow) {
  PaletteGrid grid = kGrid;
  for (const int height : {0, 1, 15}) {
    grid.client.cy = height;
    EXPECT_EQ(grid.WholeRows(), 1);
    EXPECT_EQ(grid.RowsInSight(), height == 0 ? 0 : 1);
    EXPECT_EQ(grid.HighestFirstRow(), 6);
    EXPECT_EQ(grid.FirstRowShowing(40), 6);
  }
}

TEST(PaletteRows, AFirstRowIsKeptAmongThose) {
  EXPECT_EQ(kGrid.KeptFirstRow(-1), 0);
  EXPECT_EQ(kGrid.KeptFirstRow(2), 2);
  EXPECT_EQ(kGrid.KeptFirstRow(4), 3);
  EXPECT_EQ(kGrid.KeptFirstRow(5'000'000'000), 3);
  EXPECT_EQ(Of(0).KeptFirstRow(1), 0);
}

// --- Cells

TEST(PaletteCells, StandInRowsFromTheCorner) {
  EXPECT_EQ(kGrid.CellOf(0), CRect(0, 0, 24, 16));
  EXPECT_EQ(kGrid.CellOf(5), CRect(120, 0, 144, 16));
  EXPECT_EQ(kGrid.CellOf(6), CRect(0, 16, 24, 32));
  EXPECT_EQ(kGrid.CellOf(24), CRect(0, 64, 24, 80)) << "seen in part";
  EXPECT_FALSE(kGrid.CellOf(30));
  EXPECT_FALSE(kGrid.CellOf(-1));
  EXPECT_FALSE(kGrid.CellOf(41));
  EXPECT_EQ(From(3).CellOf(40), CRect(96, 48, 120, 64));
  EXPECT_FALSE(From(3).CellOf(17));
}

TEST(PaletteCells, EveryPointOfACellMeansItsEntry) {
  for (int firstRow = 0; firstRow <= 3; ++firstRow) {
    const PaletteGrid grid = From(firstRow);
    for (int y = -2; y < 90; ++y) {
      for (int x = -2; x < 180; ++x) {
        const int index = grid.EntryAt({x, y});
        const bool isInside = x >= 0 && y >= 0 && x < 144 && y < 70;
        const int expected = isInside ? (firstRow + y / 16) * 6 + x / 24 : -1;
        ASSERT_EQ(index, expected < 41 ? expected : -1) << x << ", " << y;
        if (index >= 0) {
          ASSERT_TRUE(grid.CellOf(index)->Contains({x, y}));
        }
      }
    }
  }
}

TEST(PaletteCells, ThereAreNoneWithoutEntries) {
  EXPECT_EQ(Of(0).EntryAt({0, 0}), -1);
  EXPECT_FALSE(Of(0).CellOf(0));
}

TEST(PaletteCells, TheLargestNumbers) {
  const PaletteGrid grid{CSize(kMost, kMost), CSize(1, 1), kMost, kMost, 0};
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.EntryAt({1000, 0}), 1000);
  EXPECT_EQ(grid.EntryAt({1000, 1}), -1);
  EXPECT_EQ(grid.Stepped(kMost - 2, PaletteStep::kRight), kMost - 1);
  EXPECT_EQ(grid.Stepped(1000, PaletteStep::kPageDown), 1000);
  const PaletteGrid large{CSize(100, 100), CSize(PaletteGrid::kLargestItem, 1), kMost, kMost, 0};
  EXPECT_FALSE(large.CellOf(kMost - 1));
}

// --- Scrolling to an entry

TEST(PaletteScrolling, TheLeastThatShowsTheEntryWhole) {
  EXPECT_EQ(kGrid.FirstRowShowing(0), 0);
  EXPECT_EQ(kGrid.FirstRowShowing(23), 0);
  EXPECT_EQ(kGrid.FirstRowShowing(24), 1) << "it was seen in part";
  EXPECT_EQ(kGrid.FirstRowShowing(40), 3);
  EXPECT_EQ(From(3).FirstRowShowing(40), 3);
  EXPECT_EQ(From(3).FirstRowShowing(18), 3);
  EXPECT_EQ(From(3).FirstRowShowing(17), 2);
  EXPECT_EQ(From(3).FirstRowShowing(0), 0);
  EXPECT_EQ(From(3).FirstRowShowing(-1), 3) << "no entry";
}

// --- Keys

TEST(PaletteKeys, LeftAndRightGoOnOverTheRowsEnds) {
  EXPECT_EQ(kGrid.Stepped(6, PaletteStep::kLeft), 5);
  EXPECT_EQ(kGrid.Stepped(5, PaletteStep::kRight), 6);
  EXPECT_EQ(kGrid.Stepped(0, PaletteStep::kLeft), 0);
  EXPECT_EQ(kGrid.Stepped(40, PaletteStep::kRight), 40);
}

TEST(PaletteKeys, UpAndDownKeepTheColumn) {
  EXPECT_EQ(kGrid.Stepped(8, PaletteStep::kUp), 2);
  EXPECT_EQ(kGrid.Stepped(8, PaletteStep::kDown), 14);
  EXPECT_EQ(kGrid.Stepped(2, PaletteStep::kUp), 2);
  EXPECT_EQ(kGrid.Stepped(38, PaletteStep::kDown), 38);
  EXPECT_EQ(kGrid.Stepped(35, PaletteStep::kDown), 40) << "the last row is shorter";
  EXPECT_EQ(kGrid.Stepped(34, PaletteStep::kDown), 40);
}

TEST(PaletteKeys, PagesAreTheRowsThatAreSeenWhole) {
  EXPECT_EQ(kGrid.Stepped(2, PaletteStep::kPageDown), 26);
  EXPECT_EQ(kGrid.Stepped(26, PaletteStep::kPageDown), 38);
  EXPECT_EQ(kGrid.Stepped(38, PaletteStep::kPageUp), 14);
  EXPECT_EQ(kGrid.Stepped(14, PaletteStep::kPageUp), 2);
}

TEST(PaletteKeys, HomeAndEnd) {
  EXPECT_EQ(kGrid.Stepped(20, PaletteStep::kFirst), 0);
  EXPECT_EQ(kGrid.Stepped(20, PaletteStep::kLast), 40);
}

constexpr std::array kAllSteps{PaletteStep::kLeft,  PaletteStep::kRight,  PaletteStep::kUp,
                               PaletteStep::kDown,  PaletteStep::kPageUp, PaletteStep::kPageDown,
                               PaletteStep::kFirst, PaletteStep::kLast};

TEST(PaletteKeys, WithNoEntrySelectedTheFirstIs) {
  for (const PaletteStep step : kAllSteps) {
    EXPECT_EQ(kGrid.Stepped(-1, step), step == PaletteStep::kLast ? 40 : 0);
  }
}

TEST(PaletteKeys, LeadNowhereWithoutEntriesAndStayAtTheOnlyOne) {
  for (const PaletteStep step : kAllSteps) {
    EXPECT_EQ(Of(0).Stepped(-1, step), -1);
    EXPECT_EQ(Of(1).Stepped(-1, step), 0);
    EXPECT_EQ(Of(1).Stepped(0, step), 0);
  }
}

TEST(PaletteKeys, EveryStepLeadsToAnEntry) {
  for (int count = 1; count <= 20; ++count) {
    for (int index = 0; index < count; ++index) {
      for (const PaletteStep step : kAllSteps) {
        EXPECT_TRUE(Of(count).HasEntry(Of(count).Stepped(index, step)));
      }
    }
  }
}

}  // namespace
}  // namespace quorvel
