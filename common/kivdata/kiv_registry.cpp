#include "kivdata/kiv_registry.h"

#include "kivdata/kiv_registry_store.h"

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

/// Without a key the values would stand among those of all programs; without a name they would be
/// the key's default value.
bool NamesAValue(const CString& key, const char* name) {
  return !key.IsEmpty() && name != nullptr && *name != '\0';
}

}  // namespace

std::optional<std::vector<BYTE>> LoadBinaryValue(const CKivRegistry& registry, const char* name,
                                                 DWORD maxSize) {
  if (!NamesAValue(registry.GetKey(), name)) {
    return std::nullopt;
  }
  std::optional<RegistryValue> value = LoadRegistryValue(registry.GetKey(), name, maxSize);
  if (!value || value->type != REG_BINARY) {
    return std::nullopt;
  }
  return std::move(value->data);
}

}  // namespace quorvel

CKivRegistry::CKivRegistry(CString key) : m_strKey(std::move(key)) {}

int CKivRegistry::ReadRegistry(const char* name, void* data, DWORD size) const {
  return quorvel::ZeroIfThrown([&] {
    if (data == nullptr) {
      return 0;
    }
    const std::optional<std::vector<BYTE>> stored = quorvel::LoadBinaryValue(*this, name, size);
    if (!stored || stored->size() != size) {
      return 0;
    }
    std::ranges::copy(*stored, static_cast<BYTE*>(data));
    return 1;
  });
}

int CKivRegistry::WriteRegistry(const char* name, DWORD type, const void* data, DWORD size) {
  return quorvel::ZeroIfThrown([&] {
    if (!quorvel::NamesAValue(m_strKey, name) || (data == nullptr && size > 0)) {
      return 0;
    }
    const std::span<const BYTE> bytes(static_cast<const BYTE*>(data), size);
    return quorvel::StoreRegistryValue(m_strKey, name, type, bytes) ? 1 : 0;
  });
}
