#include "kivfcl/wheel_steps.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(WheelStepsTest, ANotchIsItsSteps) {
  WheelSteps wheel;
  EXPECT_EQ(wheel.Add(120, 1), 1);
  EXPECT_EQ(wheel.Add(-120, 1), -1);
  EXPECT_EQ(wheel.Add(360, 3), 9);
  EXPECT_EQ(wheel.Add(120, 0), 0);
  EXPECT_EQ(wheel.Add(0, 3), 0);
}

TEST(WheelStepsTest, PartsOfANotchAddUp) {
  WheelSteps wheel;
  EXPECT_EQ(wheel.Add(50, 1), 0);
  EXPECT_EQ(wheel.Add(50, 1), 0);
  EXPECT_EQ(wheel.Add(50, 1), 1);
  EXPECT_EQ(wheel.Add(90, 1), 1) << "30 were left";
  EXPECT_EQ(wheel.Add(40, 3), 1) << "a third of a notch is one of three rows";
}

TEST(WheelStepsTest, TurningBackBeginsAnew) {
  WheelSteps wheel;
  EXPECT_EQ(wheel.Add(110, 1), 0);
  EXPECT_EQ(wheel.Add(-110, 1), 0);
  EXPECT_EQ(wheel.Add(-10, 1), -1);
}

TEST(WheelStepsTest, TakesTheLargestTurns) {
  WheelSteps wheel;
  EXPECT_EQ(wheel.Add(32'767, 32'767), 32'767 * 32'767 / 120);
  EXPECT_EQ(wheel.Add(-32'768, 32'767), -(32'768 * 32'767 / 120));
}

}  // namespace
}  // namespace quorvel
