// 1,000 openings of each entry, and of each dialog that the layout editors open, half confirmed and
// half cancelled, leave nothing behind.
//
// The dialogs are worked by their owner, once they have been painted whole.
#include "driver/dialog_owner.h"
#include "driver/leak_counters.h"
#include "support/layout_dialogs.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::BareDialog;
using driver::CountResources;
using driver::DialogOwner;
using driver::LeakCounters;

/// Confirmed, and as many cancelled.
constexpr int kOpenings = 500;
constexpr int kBareOpenings = 250;
constexpr int kWarmUps = 20;

/// Committed private memory of the process, by walking its address space.
std::size_t PrivateBytes() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* address = nullptr; ::VirtualQuery(address, &region, sizeof region) != 0;
       address = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) {
      bytes += region.RegionSize;
    }
  }
  return bytes;
}

class Openings : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, Openings, ::testing::ValuesIn(AllEntries()),
                         [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(LayoutDialogs, Openings, ::testing::ValuesIn(LayoutDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Openings, LeaveNothingBehind) {
  DialogOwner owner;
  const auto open = [&](WORD command, int times) {
    for (int i = 0; i < times; ++i) {
      owner.SetCommand(command);
      const Outcome outcome = GetParam().run(nullptr);
      ASSERT_EQ(outcome.confirmed, command == IDOK);
      ASSERT_TRUE(outcome.confirmed || outcome.unchanged);
    }
  };
  const BareDialog bare(::GetModuleHandleW(L"Quorvel.dll"), GetParam().templateId);
  const auto openBare = [&](int times) {
    for (int i = 0; i < times; ++i) {
      owner.SetCommand(IDOK);
      if (GetParam().runBare != nullptr) {
        GetParam().runBare(owner.Window());
      } else {
        bare.Run(owner.Window());
      }
    }
  };
  // The first dialogs of a kind fill the system's caches.
  open(IDOK, kWarmUps);
  open(IDCANCEL, kWarmUps);
  openBare(kWarmUps);

  // Some platforms lose memory for every themed field: what the same template run bare loses there
  // in as many openings is not ours.
  const std::size_t bytesBeforeBare = PrivateBytes();
  openBare(kBareOpenings);
  const std::size_t lostByPlatform =
      2 * kOpenings / kBareOpenings * (PrivateBytes() - bytesBeforeBare);

  const int answeredBefore = owner.Answered();
  const LeakCounters before = CountResources();
  const std::size_t bytesBefore = PrivateBytes();
  open(IDOK, kOpenings);
  open(IDCANCEL, kOpenings);
  const std::size_t bytesAfter = PrivateBytes();
  EXPECT_EQ(CountResources(), before);
  EXPECT_EQ(owner.Answered() - answeredBefore, 2 * kOpenings) << "some dialog was never painted";

  // A loss of 160 bytes an opening would show; that memory comes in pieces of 64 KiB, on both
  // sides, does not. Whatever our own code allocates is counted exactly above.
  constexpr std::size_t kTrend = std::size_t{160} * 2 * kOpenings;
  ASSERT_GT(bytesBefore, 0U);
  EXPECT_LE(bytesAfter, bytesBefore + lostByPlatform + kTrend);
  std::printf("%s: private bytes %zu -> %zu, by the platform alone %zu more\n",
              GetParam().name.c_str(), bytesBefore, bytesAfter, lostByPlatform);
}

}  // namespace
}  // namespace quorvel::test
