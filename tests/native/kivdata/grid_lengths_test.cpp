#include "kivdata/grid_lengths.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace {

using quorvel::GridLengths;
using Precision = GridLengths::Precision;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

double SumOf(const GridLengths& lengths) {
  return std::accumulate(lengths.All().begin(), lengths.All().end(), 0.0);
}

/// As a host with float variables would add them up.
float FloatSumOf(const GridLengths& lengths) {
  float sum = 0;
  for (const double length : lengths.All()) {
    sum += static_cast<float>(length);
  }
  return sum;
}

TEST(GridLengths, BeginWithTenMillimetresEach) {
  const GridLengths lengths(Precision::kDouble, 3);
  EXPECT_EQ(lengths.All(), (std::vector<double>{10, 10, 10}));
  EXPECT_EQ(lengths.Total(), 30);
}

TEST(GridLengths, RefuseWhatIsNoLength) {
  GridLengths lengths(Precision::kDouble, 2);
  EXPECT_TRUE(lengths.Set(0, 0));
  EXPECT_TRUE(lengths.Set(1, GridLengths::kLongest));
  for (const double bad : {-1e-300, kInfinity, -kInfinity, kNotANumber, 1.0001e12}) {
    EXPECT_FALSE(lengths.Set(1, bad));
    EXPECT_FALSE(lengths.SetTotal(bad, true));
    EXPECT_FALSE(lengths.SetTotal(bad, false));
    EXPECT_FALSE(GridLengths::IsGood(bad, Precision::kDouble));
  }
  EXPECT_FALSE(lengths.Set(-1, 5));
  EXPECT_FALSE(lengths.Set(2, 5));
  EXPECT_EQ(lengths.At(-1), 0);
  EXPECT_EQ(lengths.At(2), 0);
  EXPECT_EQ(lengths.All(), (std::vector<double>{0, GridLengths::kLongest}));
}

TEST(GridLengths, AreValuesOfTheirPrecision) {
  EXPECT_TRUE(GridLengths::IsGood(0.1, Precision::kDouble));
  EXPECT_FALSE(GridLengths::IsGood(0.1, Precision::kSingle));
  EXPECT_TRUE(GridLengths::IsGood(0.1F, Precision::kSingle));
  GridLengths lengths(Precision::kSingle, 1);
  lengths.Set(0, 0.1);
  EXPECT_EQ(lengths.At(0), 0.1F);
}

TEST(GridLengths, ATotalIsSpreadInProportion) {
  GridLengths lengths(Precision::kDouble, {10, 20, 30});
  EXPECT_TRUE(lengths.SetTotal(120, false));
  EXPECT_EQ(lengths.All(), (std::vector<double>{20, 40, 60}));
}

TEST(GridLengths, ATotalIsSpreadEquallyWhenAsked) {
  GridLengths lengths(Precision::kDouble, {10, 20, 30});
  EXPECT_TRUE(lengths.SetTotal(90, true));
  EXPECT_EQ(lengths.All(), (std::vector<double>{30, 30, 30}));
}

TEST(GridLengths, ATotalIsSpreadEquallyOverNothing) {
  GridLengths lengths(Precision::kDouble, {0, 0});
  EXPECT_TRUE(lengths.SetTotal(5, false));
  EXPECT_EQ(lengths.All(), (std::vector<double>{2.5, 2.5}));
  EXPECT_TRUE(lengths.SetTotal(0, false));
  EXPECT_EQ(lengths.All(), (std::vector<double>{0, 0}));
  GridLengths none(Precision::kDouble, 0);
  EXPECT_FALSE(none.SetTotal(5, false));
}

TEST(GridLengths, ThePresentTotalChangesNothing) {
  GridLengths lengths(Precision::kDouble, {0.1, 0.2, 0.3});
  const std::vector<double> before = lengths.All();
  EXPECT_TRUE(lengths.SetTotal(lengths.Total(), false));
  EXPECT_EQ(lengths.All(), before);
}

TEST(GridLengths, ThePresentTotalIsMadeExactWhereFloatsAddUpToAnother) {
  const std::vector<double> freelySet = {7.1F, 16.3F, 11.1F, 18.1F, 18.8F};
  GridLengths lengths(Precision::kSingle, freelySet);
  const double total = lengths.Total();
  ASSERT_NE(FloatSumOf(lengths), total) << "a case in which it matters";
  EXPECT_TRUE(lengths.SetTotal(total, false));
  EXPECT_EQ(FloatSumOf(lengths), total);
  for (int index = 0; index < lengths.Count(); ++index) {
    EXPECT_NEAR(lengths.At(index), freelySet[static_cast<std::size_t>(index)], 1e-5);
  }
}

TEST(GridLengths, PartsSumToExactlyTheTotal) {
  const std::vector<double> totals = {1e12, 297, 100, 1.0 / 3, 0.1, 7e-5, 1e-300, 5e-324};
  for (const int count : {1, 2, 3, 7, 97, 255}) {
    for (const double total : totals) {
      for (const bool equal : {true, false}) {
        GridLengths lengths(Precision::kDouble, count);
        lengths.Set(0, 0.3);
        lengths.Set(count - 1, 123.456);
        ASSERT_TRUE(lengths.SetTotal(total, equal));
        ASSERT_EQ(SumOf(lengths), total) << count << " parts of " << total;
        ASSERT_EQ(lengths.Total(), total);
        for (const double length : lengths.All()) {
          ASSERT_TRUE(GridLengths::IsGood(length, Precision::kDouble));
        }

        GridLengths single(Precision::kSingle, count);
        single.Set(0, 0.3);
        const auto floatTotal = static_cast<float>(total);
        ASSERT_TRUE(single.SetTotal(floatTotal, equal));
        ASSERT_EQ(FloatSumOf(single), floatTotal) << count << " parts of " << total;
        ASSERT_EQ(SumOf(single), floatTotal);
        for (const double length : single.All()) {
          ASSERT_TRUE(GridLengths::IsGood(length, Precision::kSingle));
        }
      }
    }
  }
}

TEST(GridLengths, EqualPartsDifferByNoMoreThanTheTotalsLastBit) {
  GridLengths lengths(Precision::kDouble, 3);
  lengths.SetTotal(100, true);
  for (const double length : lengths.All()) {
    EXPECT_NEAR(length, 100.0 / 3, 1.5e-14);
  }
}

TEST(GridLengths, NewOnesHaveTheAverage) {
  GridLengths lengths(Precision::kDouble, {10, 20, 60});
  lengths.Resize(5);
  EXPECT_EQ(lengths.All(), (std::vector<double>{10, 20, 60, 30, 30}));
  lengths.Resize(2);
  EXPECT_EQ(lengths.All(), (std::vector<double>{10, 20}));
  lengths.Resize(0);
  lengths.Resize(2);
  EXPECT_EQ(lengths.All(), (std::vector<double>{10, 10}));
  GridLengths single(Precision::kSingle, {0, 0, 1});
  single.Resize(4);
  EXPECT_EQ(single.At(3), 1.0F / 3);
}

TEST(GridLengths, AnInsertedOneIsAsLongAsTheOneItDisplaces) {
  GridLengths lengths(Precision::kDouble, {10, 20});
  EXPECT_TRUE(lengths.InsertBefore(1));
  EXPECT_EQ(lengths.All(), (std::vector<double>{10, 20, 20}));
  EXPECT_FALSE(lengths.InsertBefore(3));
  EXPECT_FALSE(lengths.InsertBefore(-1));
  EXPECT_TRUE(lengths.Delete(0));
  EXPECT_EQ(lengths.All(), (std::vector<double>{20, 20}));
  EXPECT_FALSE(lengths.Delete(2));
  EXPECT_FALSE(lengths.Delete(-1));
}

TEST(GridLengths, EqualisingKeepsTheSumOfTheChosen) {
  GridLengths lengths(Precision::kDouble, {10, 20, 60, 7});
  lengths.Equalise({true, false, true, false});
  EXPECT_EQ(lengths.All(), (std::vector<double>{35, 20, 35, 7}));
  lengths.Equalise({false, false, false, false});
  EXPECT_EQ(lengths.All(), (std::vector<double>{35, 20, 35, 7}));
  lengths.Equalise({});
  EXPECT_EQ(lengths.All(), (std::vector<double>{35, 20, 35, 7}));
  lengths.Equalise({true, true, true, true, true, true});
  EXPECT_EQ(SumOf(lengths), 97);
}

TEST(GridLengths, EdgesAreTheRoundedCumulatedLengths) {
  EXPECT_EQ(GridLengths(Precision::kDouble, 3).Edges(10, 110),
            (std::vector<int>{10, 43, 77, 110}));
  EXPECT_EQ(GridLengths(Precision::kDouble, {1, 3}).Edges(0, 2), (std::vector<int>{0, 1, 2}))
      << "half a pixel is rounded up";
  EXPECT_EQ(GridLengths(Precision::kDouble, {0, 5, 0}).Edges(-5, 5),
            (std::vector<int>{-5, -5, 5, 5}));
}

TEST(GridLengths, EdgesOfNothingAreEqualParts) {
  EXPECT_EQ(GridLengths(Precision::kDouble, {0, 0}).Edges(0, 10), (std::vector<int>{0, 5, 10}));
  EXPECT_EQ(GridLengths(Precision::kDouble, 0).Edges(3, 9), (std::vector<int>{3}));
}

TEST(GridLengths, EdgesStayWithinAnyArea) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(GridLengths(Precision::kDouble, 2).Edges(kLeast, kMost),
            (std::vector<int>{kLeast, 0, kMost}));
  EXPECT_EQ(GridLengths(Precision::kDouble, 2).Edges(kMost, kLeast),
            (std::vector<int>{kMost, kMost, kMost}))
      << "an area turned round is empty";
  EXPECT_EQ(GridLengths(Precision::kDouble, {1e12, 1e-300}).Edges(0, 100),
            (std::vector<int>{0, 100, 100}));
}

}  // namespace
