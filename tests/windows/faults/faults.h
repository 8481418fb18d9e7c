// Lets single calls of the platform fail, as they do on a machine that is out of something.
//
//   WatchCalls();                                  // once
//   const std::size_t calls = CallsOf(function, run);
//   for (std::size_t i = 0; i < calls; ++i) {
//     FaultScope fault(function, i);
//     run();                                       // the call number i fails
//   }
#pragma once

#include <cstddef>

namespace quorvel::test {

/// The functions that can fail. Allocations are those of the C++ run-time, on whoever's behalf.
std::size_t FaultyFunctionCount();
const char* FaultyFunctionName(std::size_t function);

/// From now on the product's calls of these functions, and the run-time's of its allocator, go by
/// way of this file. Throws std::runtime_error where one of the modules is missing.
void WatchCalls();

/// Counts the calls of each function on this thread while it lives. One at a time, and no FaultScope
/// beside it.
class CallCounter {
public:
  CallCounter();
  ~CallCounter();
  CallCounter(const CallCounter&) = delete;
  CallCounter& operator=(const CallCounter&) = delete;

  /// Still after the end of the object.
  static std::size_t CallsOf(std::size_t function);
};

/// While it lives, the call number `call` (from 0) of a function on this thread fails.
class FaultScope {
public:
  FaultScope(std::size_t function, std::size_t call);
  ~FaultScope();
  FaultScope(const FaultScope&) = delete;
  FaultScope& operator=(const FaultScope&) = delete;

  /// Whether the call has come and failed.
  bool HasFailed() const;
};

/// What the test itself does meanwhile neither counts nor fails.
class FaultPause {
public:
  FaultPause();
  ~FaultPause();
  FaultPause(const FaultPause&) = delete;
  FaultPause& operator=(const FaultPause&) = delete;

private:
  bool m_wasArmed;
};

}  // namespace quorvel::test
