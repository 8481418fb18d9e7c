#include "gallery/settings.h"

namespace quorvel::gallery {

namespace {

constexpr const wchar_t* kKey = L"Software\\Quorvel\\Gallery\\Settings";

}  // namespace

std::optional<Bytes> LoadSetting(const std::wstring& name) {
  DWORD size = 0;
  if (::RegGetValueW(HKEY_CURRENT_USER, kKey, name.c_str(), RRF_RT_REG_BINARY, nullptr, nullptr,
                     &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  Bytes bytes(size);
  if (::RegGetValueW(HKEY_CURRENT_USER, kKey, name.c_str(), RRF_RT_REG_BINARY, nullptr,
                     bytes.data(), &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  bytes.resize(size);
  return bytes;
}

bool SaveSetting(const std::wstring& name, const Bytes& bytes) {
  return ::RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name.c_str(), REG_BINARY, bytes.data(),
                           static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}

}  // namespace quorvel::gallery
