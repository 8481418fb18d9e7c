// Makes a crash visible: without it, a crashed process may end with status 0.
//
//   int main() { InstallCrashGuard(); ... }
#pragma once

namespace quorvel::driver {

/// The exit status of a process that crashed.
inline constexpr int kCrashStatus = 98;

/// From now on an unhandled exception of the machine or of C++ prints one line on stderr and ends
/// the process with kCrashStatus. For the whole process, for good.
void InstallCrashGuard();

}  // namespace quorvel::driver
