#include "driver/leak_counters.h"

#include "driver/import_table.h"

#include <malloc.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace quorvel::driver {

namespace {

std::atomic<int> g_hooks{0};

/// The process's table of graphics handles, as the process environment block points to it.
struct GraphicsHandleEntry {
  static constexpr std::size_t kSize = 24;
  static constexpr std::size_t kBeforeType = 14;

  std::array<std::byte, kBeforeType> unused;
  std::uint8_t type;
  std::array<std::byte, kSize - kBeforeType - 1> alsoUnused;
};
static_assert(sizeof(GraphicsHandleEntry) == GraphicsHandleEntry::kSize);

template <class Value>
Value ReadAt(const std::byte* address) {
  Value value{};
  // NOLINTNEXTLINE(bugprone-sizeof-expression): a Value that is a pointer is read itself
  std::memcpy(&value, address, sizeof(Value));
  return value;
}

std::size_t CountGraphicsTable() {
  constexpr std::size_t kEnvironmentInThreadBlock = 0x60;
  constexpr std::size_t kTableInEnvironment = 0xF8;
  constexpr std::size_t kEntries = 65'536;
  const auto* threadBlock = reinterpret_cast<const std::byte*>(NtCurrentTeb());
  const auto* environment = ReadAt<const std::byte*>(threadBlock + kEnvironmentInThreadBlock);
  const auto* table = ReadAt<const GraphicsHandleEntry*>(environment + kTableInEnvironment);
  std::size_t count = 0;
  for (const GraphicsHandleEntry& entry : std::span(table, kEntries)) {
    count += entry.type != 0 ? 1 : 0;
  }
  return count;
}

BOOL CALLBACK CountOwn(HWND window, LPARAM parameter) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  *reinterpret_cast<std::size_t*>(parameter) += process == GetCurrentProcessId() ? 1 : 0;
  return TRUE;
}

/// All windows of this process: what descends from the desktop and the message-only windows.
std::size_t CountWindows() {
  std::size_t count = 0;
  const auto parameter = reinterpret_cast<LPARAM>(&count);
  EnumChildWindows(GetDesktopWindow(), CountOwn, parameter);
  if (HWND window = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    EnumChildWindows(GetAncestor(window, GA_PARENT), CountOwn, parameter);
  }
  return count;
}

bool IsIcon(HANDLE handle) {
  ICONINFO info{};
  if (GetIconInfo(static_cast<HICON>(handle), &info) == FALSE) {
    return false;
  }
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  return true;
}

/// The platform has no list of menus and icons, but their handles are small even numbers.
void CountByTryingHandles(LeakCounters& counters) {
  constexpr std::uintptr_t kFirst = 0x20;
  constexpr std::uintptr_t kLast = 0xFFFE;
  for (std::uintptr_t word = kFirst; word <= kLast; word += 2) {
    auto* const handle = reinterpret_cast<HANDLE>(word);
    counters.menus += IsMenu(static_cast<HMENU>(handle)) != FALSE ? 1 : 0;
    counters.icons += IsIcon(handle) ? 1 : 0;
  }
}

std::size_t CountHeapBlocks() {
  auto* const heap = reinterpret_cast<HANDLE>(_get_heap_handle());
  std::size_t count = 0;
  HeapLock(heap);
  PROCESS_HEAP_ENTRY entry{};
  while (HeapWalk(heap, &entry) != FALSE) {
    count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
  }
  HeapUnlock(heap);
  return count;
}

/// A function of user32.dll by its name: the import table of the module that holds this code may
/// be one of those that lead to the counting functions.
template <class Function>
Function* FromUser32(const char* name) {
  const FARPROC address = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

HHOOK Counted(HHOOK hook) {
  g_hooks += hook != nullptr ? 1 : 0;
  return hook;
}

HHOOK WINAPI CountingSetHookA(int kind, HOOKPROC procedure, HINSTANCE module, DWORD thread) {
  static const auto setHook = FromUser32<decltype(SetWindowsHookExA)>("SetWindowsHookExA");
  return Counted(setHook(kind, procedure, module, thread));
}

HHOOK WINAPI CountingSetHookW(int kind, HOOKPROC procedure, HINSTANCE module, DWORD thread) {
  static const auto setHook = FromUser32<decltype(SetWindowsHookExW)>("SetWindowsHookExW");
  return Counted(setHook(kind, procedure, module, thread));
}

BOOL WINAPI CountingUnhook(HHOOK hook) {
  static const auto unhook = FromUser32<decltype(UnhookWindowsHookEx)>("UnhookWindowsHookEx");
  const BOOL removed = unhook(hook);
  g_hooks -= removed != FALSE ? 1 : 0;
  return removed;
}

/// A timer that was set and not ended. One of a window ends with its window.
struct Timer {
  HWND window = nullptr;
  UINT_PTR id = 0;  ///< 0 where the place is free

  bool Runs() const { return id != 0 && (window == nullptr || IsWindow(window) != FALSE); }
};

/// More than these at once are not counted; of a fixed size, since it must not allocate.
constexpr std::size_t kMostTimers = 64;
std::array<Timer, kMostTimers> g_timers;  // of the thread that shows dialogs

Timer* FindTimer(HWND window, UINT_PTR id) {
  auto* const found = std::ranges::find_if(g_timers, [&](const Timer& timer) {
    return timer.Runs() && timer.window == window && timer.id == id;
  });
  return found != g_timers.end() ? found : nullptr;
}

UINT_PTR WINAPI CountingSetTimer(HWND window, UINT_PTR id, UINT interval, TIMERPROC procedure) {
  static const auto setTimer = FromUser32<decltype(SetTimer)>("SetTimer");
  const UINT_PTR made = setTimer(window, id, interval, procedure);
  const UINT_PTR kept = window != nullptr ? id : made;
  if (made != 0 && FindTimer(window, kept) == nullptr) {
    auto* const freePlace =
        std::ranges::find_if(g_timers, [](const Timer& timer) { return !timer.Runs(); });
    if (freePlace != g_timers.end()) {
      *freePlace = {window, kept};
    }
  }
  return made;
}

BOOL WINAPI CountingKillTimer(HWND window, UINT_PTR id) {
  static const auto killTimer = FromUser32<decltype(KillTimer)>("KillTimer");
  const BOOL ended = killTimer(window, id);
  Timer* const timer = ended != FALSE ? FindTimer(window, id) : nullptr;
  if (timer != nullptr) {
    *timer = {};
  }
  return ended;
}

std::size_t CountTimers() {
  return static_cast<std::size_t>(std::ranges::count_if(g_timers, &Timer::Runs));
}

/// Stands in the place of an imported function.
struct Counting {
  std::string_view name;
  void* function;
};

template <class Function>
void* Address(Function* function) {
  return reinterpret_cast<void*>(function);
}

const std::array kCounting{Counting{"SetWindowsHookExA", Address(CountingSetHookA)},
                           Counting{"SetWindowsHookExW", Address(CountingSetHookW)},
                           Counting{"UnhookWindowsHookEx", Address(CountingUnhook)},
                           Counting{"SetTimer", Address(CountingSetTimer)},
                           Counting{"KillTimer", Address(CountingKillTimer)}};

}  // namespace

std::ostream& operator<<(std::ostream& out, const LeakCounters& counters) {
  return out << "{graphics objects " << counters.graphicsObjects << ", user objects "
             << counters.userObjects << ", windows " << counters.windows << ", menus "
             << counters.menus << ", icons " << counters.icons << ", hooks " << counters.hooks
             << ", timers " << counters.timers << ", heap blocks " << counters.heapBlocks << "}";
}

LeakCounters CountResources() {
  LeakCounters counters;
  counters.hooks = static_cast<std::size_t>(g_hooks.load());
  counters.timers = CountTimers();
  counters.heapBlocks = CountHeapBlocks();
  if (RunsUnderWine()) {
    // GetGuiResources answers 0 there.
    counters.graphicsObjects = CountGraphicsTable();
    counters.windows = CountWindows();
    CountByTryingHandles(counters);
  } else {
    counters.graphicsObjects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    counters.userObjects = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
  }
  return counters;
}

bool WatchHooksAndTimers(HMODULE module) {
  bool watches = false;
  ForEachImport(module, [&](std::string_view name, ULONGLONG& slot) {
    for (const Counting& counting : kCounting) {
      if (name == counting.name) {
        ReplaceImport(slot, counting.function);
        watches = true;
      }
    }
  });
  return watches;
}

bool RunsUnderWine() {
  static const bool runs =
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return runs;
}

}  // namespace quorvel::driver
