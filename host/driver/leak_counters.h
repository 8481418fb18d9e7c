// What a process holds of everything that a call could leave behind.
//
//   RunDialog();                                // warm up: a first run fills the system's caches
//   const LeakCounters before = CountResources();
//   RunDialog();
//   EXPECT_EQ(CountResources(), before);
#pragma once

#include "driver/platform.h"

#include <cstddef>
#include <ostream>

namespace quorvel::driver {

/// Numbers of objects of this process.
struct LeakCounters {
  /// Pens, brushes, fonts, bitmaps, regions, device contexts.
  std::size_t graphicsObjects = 0;
  /// Windows, menus, icons and cursors together, as far as the platform counts them.
  std::size_t userObjects = 0;
  std::size_t windows = 0;
  std::size_t menus = 0;
  std::size_t icons = 0;
  /// Hooks and timers that the modules given to WatchHooksAndTimers have set and not ended.
  std::size_t hooks = 0;
  std::size_t timers = 0;
  /// Blocks in use on the heap of the C run-time.
  std::size_t heapBlocks = 0;

  friend bool operator==(const LeakCounters&, const LeakCounters&) = default;
};

std::ostream& operator<<(std::ostream& out, const LeakCounters& counters);

/// Counts; takes a few milliseconds. Under Wine userObjects is 0; elsewhere it stands for windows,
/// menus and icons, which are 0 then.
LeakCounters CountResources();

/// From now on counts the hooks and timers that `module` sets and ends (calls bound by its import
/// table). Call it once for a module, on the thread that shows its dialogs. False if the module imports
/// no function that sets either.
bool WatchHooksAndTimers(HMODULE module);

/// Whether the process runs under Wine.
bool RunsUnderWine();

}  // namespace quorvel::driver
