#include "kivdata/kiv_registry_native.h"

#include "kivdata/kiv_registry_store.h"

#include <map>
#include <new>
#include <string>
#include <utility>

namespace quorvel {

namespace {

using KeyAndName = std::pair<std::string, std::string>;

/// Compares keys and names byte by byte, where the registry takes capital and small letters as one.
std::map<KeyAndName, RegistryValue>& Values() {
  static std::map<KeyAndName, RegistryValue> values;
  return values;
}

std::optional<RegistryFault::Of> g_fault;

}  // namespace

std::optional<RegistryValue> LoadRegistryValue(const CString& key, const char* name,
                                               DWORD maxSize) {
  if (g_fault == RegistryFault::Of::kReading) {
    throw std::bad_alloc();
  }
  const auto found = Values().find({std::string(key.View()), name});
  if (found == Values().end() || found->second.data.size() > maxSize) {
    return std::nullopt;
  }
  return found->second;
}

bool StoreRegistryValue(const CString& key, const char* name, DWORD type,
                        std::span<const BYTE> data) {
  if (g_fault == RegistryFault::Of::kWriting) {
    return false;
  }
  Values().insert_or_assign({std::string(key.View()), name},
                            RegistryValue{type, {data.begin(), data.end()}});
  return true;
}

void ClearRegistry() {
  Values().clear();
}

RegistryFault::RegistryFault(Of failing) {
  g_fault = failing;
}

RegistryFault::~RegistryFault() {
  g_fault.reset();
}

}  // namespace quorvel
