#include "kivdata/sys_env.h"

#include <gtest/gtest.h>

namespace {

TEST(KivSysEnv, NamesItsKey) {
  EXPECT_STREQ(CKivSysEnv("Software\\Maker\\Product").GetKey(), "Software\\Maker\\Product");
  EXPECT_TRUE(CKivSysEnv(nullptr).GetKey().IsEmpty());
}

}  // namespace
