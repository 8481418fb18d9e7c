#include "driver/leak_counters.h"

#include <malloc.h>

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

template <class Function>
void* Address(Function* function) {
  return reinterpret_cast<void*>(function);
}

/// What is called instead of an imported function; null for a function that is left alone.
void* CountingFunction(std::string_view imported) {
  if (imported == "SetWindowsHookExA") {
    return Address(CountingSetHookA);
  }
  if (imported == "SetWindowsHookExW") {
    return Address(CountingSetHookW);
  }
  return imported == "UnhookWindowsHookEx" ? Address(CountingUnhook) : nullptr;
}

void Replace(ULONGLONG& slot, void* function) {
  DWORD protection = 0;
  VirtualProtect(&slot, sizeof(slot), PAGE_READWRITE, &protection);
  slot = reinterpret_cast<ULONGLONG>(function);
  VirtualProtect(&slot, sizeof(slot), protection, &protection);
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const LeakCounters& counters) {
  return out << "{graphics objects " << counters.graphicsObjects << ", user objects "
             << counters.userObjects << ", windows " << counters.windows << ", menus "
             << counters.menus << ", icons " << counters.icons << ", hooks " << counters.hooks
             << ", heap blocks " << counters.heapBlocks << "}";
}

LeakCounters CountResources() {
  LeakCounters counters;
  counters.hooks = static_cast<std::size_t>(g_hooks.load());
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

bool WatchHooks(HMODULE module) {
  auto* base = reinterpret_cast<std::byte*>(module);
  const auto* dosHeader = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dosHeader->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (imports.Size == 0) {
    return false;
  }
  bool setsHooks = false;
  const auto* descriptor =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; descriptor->Name != 0; ++descriptor) {
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + descriptor->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + descriptor->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) {
        continue;
      }
      const auto* import =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      const std::string_view imported(reinterpret_cast<const char*>(import->Name));
      if (void* counting = CountingFunction(imported)) {
        Replace(slot->u1.Function, counting);
        setsHooks = true;
      }
    }
  }
  return setsHooks;
}

bool RunsUnderWine() {
  static const bool runs =
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return runs;
}

}  // namespace quorvel::driver
