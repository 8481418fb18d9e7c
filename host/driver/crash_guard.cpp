#include "driver/crash_guard.h"

#include "driver/platform.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>

namespace quorvel::driver {

namespace {

/// Writes past the C library, whose state may be what broke.
void WriteLine(const char* line) {
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_ERROR_HANDLE), line, static_cast<DWORD>(std::strlen(line)), &written,
            nullptr);
}

/// The file name of the module that holds `address`, and the offset in it.
void WriteCrash(DWORD code, const void* address) {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<LPCWSTR>(address), &module);
  std::array<char, MAX_PATH> path{"unknown module"};
  if (module != nullptr) {
    GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size()));
  }
  const char* lastSlash = std::strrchr(path.data(), '\\');
  const auto offset =
      reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(module);
  constexpr std::size_t kBesidesPath = 80;
  std::array<char, MAX_PATH + kBesidesPath> line{};
  std::snprintf(line.data(), line.size(), "crash: exception 0x%08lX in %s at offset 0x%llX\n", code,
                lastSlash == nullptr ? path.data() : lastSlash + 1,
                static_cast<unsigned long long>(offset));
  WriteLine(line.data());
}

LONG WINAPI OnUnhandled(EXCEPTION_POINTERS* exception) {
  WriteCrash(exception->ExceptionRecord->ExceptionCode,
             exception->ExceptionRecord->ExceptionAddress);
  ExitProcess(kCrashStatus);
}

[[noreturn]] void OnTerminate() {
  WriteLine("crash: a C++ exception was not caught\n");
  ExitProcess(kCrashStatus);
}

}  // namespace

void InstallCrashGuard() {
  SetUnhandledExceptionFilter(OnUnhandled);
  std::set_terminate(OnTerminate);
}

}  // namespace quorvel::driver
