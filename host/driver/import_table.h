// The functions that a module imports, and others in their place.
//
//   ForEachImport(GetModuleHandleW(L"Quorvel.dll"), [](std::string_view name, ULONGLONG& slot) {
//     if (name == "SetTimer") { ReplaceImport(slot, &CountingSetTimer); }
//   });
#pragma once

#include "driver/platform.h"

#include <cstddef>
#include <string_view>

namespace quorvel::driver {

/// Calls `visit` with the name and the slot of each function that a module of this process imports
/// by name. The slot holds the function's address and is read-only: see ReplaceImport.
template <class Visit>
void ForEachImport(HMODULE module, Visit visit) {
  auto* const base = reinterpret_cast<std::byte*>(module);
  const auto* const dosHeader = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const headers =
      reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dosHeader->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (imports.Size == 0) {
    return;
  }
  const auto* descriptor =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; descriptor->Name != 0; ++descriptor) {
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + descriptor->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + descriptor->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (!IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) {
        const auto* const import =
            reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
        visit(std::string_view(reinterpret_cast<const char*>(import->Name)), slot->u1.Function);
      }
    }
  }
}

/// From now on the module's calls by that slot go to `function`, which must have the same signature.
inline void ReplaceImport(ULONGLONG& slot, void* function) {
  DWORD protection = 0;
  VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &protection);
  slot = reinterpret_cast<ULONGLONG>(function);
  VirtualProtect(&slot, sizeof slot, protection, &protection);
}

}  // namespace quorvel::driver
