// Where the values of CKivRegistry are kept: kiv_registry_windows.cpp keeps them in the registry,
// kiv_registry_native.cpp, where there is no registry, in this process. Every rule about them is
// above, in kiv_registry.cpp.
#pragma once

#include "framework/base_types.h"
#include "framework/cstring.h"
#include "kivdata/kiv_registry.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvel {

/// A value as it is stored.
struct RegistryValue {
  DWORD type = 0;
  std::vector<BYTE> data;
};

/// The value of that name in the key; nothing where there is none or it has more than `maxSize`
/// bytes. Throws std::exception where that cannot be told, so that a failure is not taken for an
/// absent value and then written over. `key` and `name` are not empty.
std::optional<RegistryValue> LoadRegistryValue(const CString& key, const char* name, DWORD maxSize);

/// Stores the value and creates the key where there is none. Whether it could; may throw
/// std::bad_alloc, nothing being stored then. `key` and `name` are not empty.
bool StoreRegistryValue(const CString& key, const char* name, DWORD type,
                        std::span<const BYTE> data);

/// The bytes of a REG_BINARY value, for readers that do not know its size; nothing where there is
/// no value of that name and type with at most `maxSize` bytes, or a name of the registry is empty.
/// Throws as LoadRegistryValue does.
std::optional<std::vector<BYTE>> LoadBinaryValue(const CKivRegistry& registry, const char* name,
                                                 DWORD maxSize);

/// What `work` returns, or 0, the failure value of the calls of hosts, where it throws.
template <class Work>
int ZeroIfThrown(const Work& work) {
  try {
    return work();
  } catch (...) {
    return 0;
  }
}

}  // namespace quorvel
