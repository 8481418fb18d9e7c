#include "faults/faults.h"

#include "driver/import_table.h"
#include "driver/platform.h"

#include <commctrl.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace quorvel::test {

namespace {

// ---- Which call fails

constexpr std::size_t kMostFunctions = 64;
constexpr std::size_t kNoCall = static_cast<std::size_t>(-1);

struct State {
  bool armed = false;
  std::array<std::size_t, kMostFunctions> calls{};
  std::size_t faultyFunction = kNoCall;
  std::size_t faultyCall = kNoCall;
  bool failed = false;
};
thread_local State g_state;

/// Counts a call and tells whether it is the one that fails.
bool FailsNow(std::size_t function) {
  if (!g_state.armed) {
    return false;
  }
  const std::size_t call = g_state.calls[function]++;
  const bool fails = function == g_state.faultyFunction && call == g_state.faultyCall;
  g_state.failed = g_state.failed || fails;
  return fails;
}

// ---- The functions

/// Stands in the place of an imported function; `Index` makes one of each type for each function.
template <std::size_t Index, class Function>
struct StandIn;

template <std::size_t Index, class Result, class... Arguments>
struct StandIn<Index, Result(Arguments...)> {
  static inline Result (*s_original)(Arguments...) = nullptr;
  static inline Result s_failure{};
  static inline DWORD s_error = 0;

  static Result Call(Arguments... arguments) {
    if (FailsNow(Index)) {
      SetLastError(s_error);
      return s_failure;
    }
    return s_original(arguments...);
  }
};

struct Faulty {
  const char* name = nullptr;
  const char* module = nullptr;  ///< whose calls are watched; null for those of the product
  void* standIn = nullptr;
  void (*keepOriginal)(void* original) = nullptr;
};

template <std::size_t Index, class Function, class Failure>
Faulty Row(const char* name, Failure failure, DWORD error, const char* module = nullptr) {
  using Own = StandIn<Index, Function>;
  Own::s_failure = failure;
  Own::s_error = error;
  return {name, module, reinterpret_cast<void*>(&Own::Call), [](void* original) {
            Own::s_original = reinterpret_cast<decltype(Own::s_original)>(original);
          }};
}

constexpr DWORD kMemory = ERROR_NOT_ENOUGH_MEMORY;
constexpr LSTATUS kDenied = ERROR_ACCESS_DENIED;

const auto& AllFaulty() {
  static const std::array all{
      Row<0, void*(std::size_t)>("malloc", nullptr, kMemory, "libstdc++-6.dll"),
      Row<1, decltype(CreateWindowExW)>("CreateWindowExW", nullptr, kMemory),
      Row<2, decltype(CreateDialogIndirectParamW)>("CreateDialogIndirectParamW", nullptr, kMemory),
      Row<3, decltype(CreateFontIndirectW)>("CreateFontIndirectW", nullptr, kMemory),
      Row<4, decltype(CreatePen)>("CreatePen", nullptr, kMemory),
      Row<5, decltype(CreateSolidBrush)>("CreateSolidBrush", nullptr, kMemory),
      Row<6, decltype(CreateCompatibleDC)>("CreateCompatibleDC", nullptr, kMemory),
      Row<7, decltype(CreateCompatibleBitmap)>("CreateCompatibleBitmap", nullptr, kMemory),
      Row<8, decltype(CreateDIBSection)>("CreateDIBSection", nullptr, kMemory),
      Row<9, decltype(CreateRectRgn)>("CreateRectRgn", nullptr, kMemory),
      Row<10, decltype(LoadImageW)>("LoadImageW", nullptr, kMemory),
      Row<11, decltype(CreatePopupMenu)>("CreatePopupMenu", nullptr, kMemory),
      Row<12, decltype(AppendMenuW)>("AppendMenuW", FALSE, kMemory),
      Row<13, decltype(GetDC)>("GetDC", nullptr, kMemory),
      Row<14, decltype(SetTimer)>("SetTimer", UINT_PTR{0}, kMemory),
      Row<15, decltype(SetWindowsHookExW)>("SetWindowsHookExW", nullptr, kMemory),
      Row<16, decltype(RegisterClassExW)>("RegisterClassExW", ATOM{0}, kMemory),
      Row<17, decltype(RegisterClassW)>("RegisterClassW", ATOM{0}, kMemory),
      Row<18, decltype(ImageList_Create)>("ImageList_Create", nullptr, kMemory),
      Row<19, decltype(ImageList_AddMasked)>("ImageList_AddMasked", -1, kMemory),
      Row<20, decltype(RegOpenKeyExW)>("RegOpenKeyExW", kDenied, 0),
      Row<21, decltype(RegCreateKeyExW)>("RegCreateKeyExW", kDenied, 0),
      Row<22, decltype(RegQueryValueExW)>("RegQueryValueExW", kDenied, 0),
      Row<23, decltype(RegSetValueExW)>("RegSetValueExW", kDenied, 0),
      Row<24, decltype(RegGetValueW)>("RegGetValueW", kDenied, 0),
      Row<25, decltype(RegSetKeyValueW)>("RegSetKeyValueW", kDenied, 0),
      Row<26, decltype(CreateFileW)>("CreateFileW", INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED),
      Row<27, decltype(ReadFile)>("ReadFile", FALSE, ERROR_READ_FAULT),
      Row<28, decltype(WriteFile)>("WriteFile", FALSE, ERROR_DISK_FULL),
      Row<29, decltype(FlushFileBuffers)>("FlushFileBuffers", FALSE, ERROR_WRITE_FAULT),
      Row<30, decltype(MoveFileExW)>("MoveFileExW", FALSE, ERROR_ACCESS_DENIED),
      Row<31, decltype(CreateActCtxW)>("CreateActCtxW", INVALID_HANDLE_VALUE, kMemory),
      Row<32, decltype(LoadResource)>("LoadResource", nullptr, kMemory),
      Row<33, decltype(FindResourceW)>("FindResourceW", nullptr, ERROR_RESOURCE_NAME_NOT_FOUND),
      Row<34, decltype(GetTextExtentPoint32W)>("GetTextExtentPoint32W", FALSE, kMemory),
      Row<35, decltype(SaveDC)>("SaveDC", 0, kMemory),
  };
  static_assert(std::tuple_size_v<std::remove_cvref_t<decltype(all)>> <= kMostFunctions);
  return all;
}

// ---- The import tables

constexpr std::array kProduct{"Quorvel.dll", "KivFcl64.dll", "KivData64.dll", "Frame64.dll"};

void Watch(const char* moduleName, bool isProduct) {
  const HMODULE module = GetModuleHandleA(moduleName);
  if (module == nullptr) {
    throw std::runtime_error(std::string(moduleName) + " is not there");
  }
  driver::ForEachImport(module, [&](std::string_view name, ULONGLONG& slot) {
    for (const Faulty& faulty : AllFaulty()) {
      const bool isWatched =
          faulty.module == nullptr ? isProduct : std::string_view(faulty.module) == moduleName;
      if (isWatched && name == faulty.name &&
          slot != reinterpret_cast<ULONGLONG>(faulty.standIn)) {
        faulty.keepOriginal(reinterpret_cast<void*>(slot));
        driver::ReplaceImport(slot, faulty.standIn);
      }
    }
  });
}

}  // namespace

std::size_t FaultyFunctionCount() { return AllFaulty().size(); }
const char* FaultyFunctionName(std::size_t function) { return AllFaulty().at(function).name; }

void WatchCalls() {
  for (const char* const module : kProduct) {
    Watch(module, true);
  }
  Watch("libstdc++-6.dll", false);
}

CallCounter::CallCounter() {
  g_state = {};
  g_state.armed = true;
}
CallCounter::~CallCounter() { g_state.armed = false; }
std::size_t CallCounter::CallsOf(std::size_t function) { return g_state.calls.at(function); }

FaultScope::FaultScope(std::size_t function, std::size_t call) {
  g_state = {};
  g_state.faultyFunction = function;
  g_state.faultyCall = call;
  g_state.armed = true;
}
FaultScope::~FaultScope() { g_state.armed = false; }
bool FaultScope::HasFailed() const { return g_state.failed; }

FaultPause::FaultPause() : m_wasArmed(g_state.armed) { g_state.armed = false; }
FaultPause::~FaultPause() { g_state.armed = m_wasArmed; }

}  // namespace quorvel::test
