// The main function of tests that count what the product's DLLs set and end.
#include "driver/crash_guard.h"
#include "driver/leak_counters.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  quorvel::driver::InstallCrashGuard();
  ::testing::InitGoogleTest(&argc, argv);
  for (const wchar_t* const module : {L"Frame64.dll", L"KivFcl64.dll", L"Quorvel.dll"}) {
    quorvel::driver::WatchHooksAndTimers(::GetModuleHandleW(module));
  }
  return RUN_ALL_TESTS();
}
