#include "kivcomm/int_swap.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(IntSwap, ExchangesTheTwoNumbers) {
  int first = std::numeric_limits<int>::min();
  int second = std::numeric_limits<int>::max();
  __KivComm_IntSwap(&first, &second);
  EXPECT_EQ(first, std::numeric_limits<int>::max());
  EXPECT_EQ(second, std::numeric_limits<int>::min());
}

TEST(IntSwap, TheSameNumberTwiceKeepsItsValue) {
  int number = 7;
  __KivComm_IntSwap(&number, &number);
  EXPECT_EQ(number, 7);
}

TEST(IntSwap, ANullPointerLeavesTheOtherNumberAlone) {
  int number = 7;
  __KivComm_IntSwap(&number, nullptr);
  __KivComm_IntSwap(nullptr, &number);
  __KivComm_IntSwap(nullptr, nullptr);
  EXPECT_EQ(number, 7);
}

}  // namespace
