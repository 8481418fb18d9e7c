#include "driver/crash_guard.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  quorvel::driver::InstallCrashGuard();
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
