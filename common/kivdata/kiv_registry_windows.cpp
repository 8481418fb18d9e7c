#include "kivdata/kiv_registry_store.h"

#include "framework/code_page.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace quorvel {

namespace {

struct KeyCloser {
  using pointer = HKEY;
  void operator()(HKEY key) const { ::RegCloseKey(key); }
};
using OpenedKey = std::unique_ptr<HKEY, KeyCloser>;

/// Whether the call found what it looked for; throws where it failed for another reason.
bool Found(LSTATUS status) {
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
    throw std::runtime_error("the registry cannot be read");
  }
  return status == ERROR_SUCCESS;
}

}  // namespace

std::optional<RegistryValue> LoadRegistryValue(const CString& key, const char* name,
                                               DWORD maxSize) {
  const std::wstring wideKey = WideFromCodePage(key.View());
  const std::wstring wideName = WideFromCodePage(name);
  HKEY handle = nullptr;
  if (!Found(::RegOpenKeyExW(HKEY_CURRENT_USER, wideKey.c_str(), 0, KEY_QUERY_VALUE, &handle))) {
    return std::nullopt;
  }
  const OpenedKey opened(handle);

  // Asks with a larger buffer until the value fits: another program may let it grow meanwhile. One
  // byte at first, since without any buffer the size alone would be told.
  RegistryValue value;
  value.data.resize(1);
  for (;;) {
    auto size = static_cast<DWORD>(value.data.size());
    const LSTATUS status = ::RegQueryValueExW(opened.get(), wideName.c_str(), nullptr, &value.type,
                                              value.data.data(), &size);
    const bool tooSmall = status == ERROR_MORE_DATA;
    if ((!tooSmall && !Found(status)) || size > maxSize) {
      return std::nullopt;
    }
    value.data.resize(size);
    if (!tooSmall) {
      return value;
    }
  }
}

bool StoreRegistryValue(const CString& key, const char* name, DWORD type,
                        std::span<const BYTE> data) {
  const std::wstring wideKey = WideFromCodePage(key.View());
  const std::wstring wideName = WideFromCodePage(name);
  HKEY handle = nullptr;
  if (::RegCreateKeyExW(HKEY_CURRENT_USER, wideKey.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_SET_VALUE, nullptr, &handle, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const OpenedKey opened(handle);
  return ::RegSetValueExW(opened.get(), wideName.c_str(), 0, type, data.data(),
                          static_cast<DWORD>(data.size())) == ERROR_SUCCESS;
}

}  // namespace quorvel
