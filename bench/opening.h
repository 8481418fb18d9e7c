// How long a modal dialog takes from the call to its first full paint and from the answer to the
// return, against the same template run bare by the platform in the same process.
#pragma once

#include "bench/report.h"
#include "driver/dialog_owner.h"
#include "framework/base_types.h"

#include <functional>
#include <string>
#include <vector>

namespace quorvel::bench {

/// Milliseconds.
struct OpeningTimes {
  double openToPaint = 0.0;
  double confirmToReturn = 0.0;
};

/// Runs one modal dialog owned by `owner`, which confirms it as soon as it has been painted. Throws
/// std::runtime_error when it never was.
OpeningTimes TimeOpening(driver::DialogOwner& owner, const std::function<void()>& call);

/// The two rows of a dialog: `call` and the bare template of Quorvel.dll in turn, `runs` times each
/// after a warm-up, medians compared. Throws std::runtime_error when a dialog was never painted.
std::vector<Row> CompareOpening(const std::string& name, UINT templateId, int runs,
                                const std::function<void()>& call);

/// The same against another dialog, named `against`, which `bare` runs for the owner that it gets.
/// Opening may take `mostTimesBare` times as long, and `uncounted` milliseconds, which are taken
/// off first.
std::vector<Row> CompareOpening(const std::string& name, const std::string& against,
                                double mostTimesBare, int runs,
                                const std::function<void()>& call,
                                const std::function<void(HWND owner)>& bare,
                                double uncounted = 0.0);

}  // namespace quorvel::bench
