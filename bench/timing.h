// The clock of the benchmarks, and what they make of its times.
//
//   const LONGLONG start = Ticks();
//   DoTheWork();
//   took.push_back(Seconds(start, Ticks()));
//   Median(took);
#pragma once

#include "bench/report.h"
#include "framework/base_types.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quorvel::bench {

/// As QueryPerformanceCounter counts.
inline LONGLONG Ticks() {
  LARGE_INTEGER count{};
  ::QueryPerformanceCounter(&count);
  return count.QuadPart;
}

inline double Seconds(LONGLONG from, LONGLONG to) {
  LARGE_INTEGER perSecond{};
  ::QueryPerformanceFrequency(&perSecond);
  return static_cast<double>(to - from) / static_cast<double>(perSecond.QuadPart);
}

/// Of at least one value.
inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// The medians of two timed works, each of which gives the seconds that it took, done in turn.
inline Row Compare(const std::string& name, const std::string& against, double limit, int runs,
                   const std::function<double()>& ours, const std::function<double()>& bare) {
  std::vector<double> oursTook;
  std::vector<double> bareTook;
  ours();  // warm-up
  bare();
  for (int run = 0; run < runs; ++run) {
    oursTook.push_back(ours());
    bareTook.push_back(bare());
  }
  return TimesAsLong(name, against, {Median(oursTook), Median(bareTook)}, limit, runs);
}

}  // namespace quorvel::bench
