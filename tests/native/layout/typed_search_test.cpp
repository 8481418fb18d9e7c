#include "dialogs/layout/typed_search.h"

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

void Expect(const TypedSearch::Wanted& wanted, const wchar_t* beginning, bool fromSelected) {
  EXPECT_EQ(wanted.beginning, beginning);
  EXPECT_EQ(wanted.fromSelected, fromSelected);
}

TEST(TypedSearch, QuickLettersAreOneBeginning) {
  TypedSearch search;
  Expect(search.Add(L'p', 1000), L"p", false);
  Expect(search.Add(L'r', 1900), L"pr", true);
  Expect(search.Add(L'i', 2899), L"pri", true);
}

TEST(TypedSearch, APauseBeginsAnew) {
  TypedSearch search;
  search.Add(L'p', 1000);
  EXPECT_TRUE(search.IsUnderWay(1999));
  EXPECT_FALSE(search.IsUnderWay(2000));
  Expect(search.Add(L'r', 2000), L"r", false);
}

TEST(TypedSearch, TheSameLetterLeadsOn) {
  TypedSearch search;
  Expect(search.Add(L'a', 0), L"a", false);
  Expect(search.Add(L'a', 100), L"a", false);
  Expect(search.Add(L'a', 200), L"a", false);
  Expect(search.Add(L'b', 300), L"aaab", true);
}

TEST(TypedSearch, TheClockMayRunOver) {
  TypedSearch search;
  search.Add(L'p', 0xFFFFFFF0U);
  EXPECT_TRUE(search.IsUnderWay(5));
  Expect(search.Add(L'q', 5), L"pq", true);
}

TEST(TypedSearch, ResetForgets) {
  TypedSearch search;
  search.Add(L'p', 0);
  search.Reset();
  EXPECT_FALSE(search.IsUnderWay(1));
  Expect(search.Add(L'q', 1), L"q", false);
}

}  // namespace
}  // namespace quorvel::test
