// Random messages to each colour dialog, and to whatever it opens, do no harm: no crash, no hang,
// nothing left behind, and a cancelled dialog has not changed the caller's variable.
//
// The environment variable QUORVEL_RANDOM_MESSAGES tells how many for each dialog,
// QUORVEL_RANDOM_SEED another seed.
#include "driver/leak_counters.h"
#include "support/entries.h"
#include "support/random_messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::LeakCounters;

constexpr int kWarmUps = 2'000;

std::vector<Entry> ColourEntries() {
  std::vector<Entry> entries;
  std::ranges::copy_if(AllEntries(), std::back_inserter(entries), [](const Entry& entry) {
    return entry.name.find("Color") != std::string::npos ||
           entry.name.find("Rgb") != std::string::npos;
  });
  return entries;
}

class RandomMessagesToColours : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, RandomMessagesToColours, ::testing::ValuesIn(ColourEntries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(RandomMessagesToColours, DoNoHarm) {
  const Watchdog watchdog;
  const auto run = [&](unsigned seed, int count) {
    RandomMessages messages(seed, count);
    int openings = 0;
    while (!messages.AreAllSent()) {
      const Outcome outcome = GetParam().run(nullptr);
      ASSERT_TRUE(outcome.confirmed || outcome.unchanged);
      ++openings;
      watchdog.Postpone();
    }
    std::printf("%s: %d openings\n", GetParam().name.c_str(), openings);
  };
  FillSystemCaches();
  run(MessageSeed(), kWarmUps);  // the first dialogs of a kind fill the system's caches
  const LeakCounters before = CountResources();
  run(MessageSeed() + 1, MessageCount());
  EXPECT_EQ(CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
