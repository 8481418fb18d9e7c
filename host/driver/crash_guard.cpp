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

/// A line with the file name of the module that holds `address`, and the offset in it.
void WritePlace(const char* what, const void* address) {
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
  std::snprintf(line.data(), line.size(), "%s in %s at offset 0x%llX\n", what,
                lastSlash == nullptr ? path.data() : lastSlash + 1,
                static_cast<unsigned long long>(offset));
  WriteLine(line.data());
}

/// From where it crashed up to what was called first, as far as it can be told.
void WriteStack(const CONTEXT& crashed) {
  constexpr int kMostFrames = 30;
  CONTEXT context = crashed;
  for (int frame = 0; frame < kMostFrames && context.Rip != 0; ++frame) {
    WritePlace("  called", reinterpret_cast<const void*>(context.Rip));
    DWORD64 base = 0;
    RUNTIME_FUNCTION* const function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
    if (function == nullptr) {
      return;
    }
    void* handlerData = nullptr;
    DWORD64 establisher = 0;
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handlerData,
                     &establisher, nullptr);
  }
}

LONG WINAPI OnUnhandled(EXCEPTION_POINTERS* exception) {
  constexpr std::size_t kLineSize = 40;
  std::array<char, kLineSize> what{};
  std::snprintf(what.data(), what.size(), "crash: exception 0x%08lX",
                exception->ExceptionRecord->ExceptionCode);
  WritePlace(what.data(), exception->ExceptionRecord->ExceptionAddress);
  WriteStack(*exception->ContextRecord);
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
