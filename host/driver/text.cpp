#include "driver/text.h"

#include "driver/platform.h"

namespace quorvel::driver {

std::string Utf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
  return result;
}

std::wstring Utf16(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, result.data(), size);
  return result;
}

}  // namespace quorvel::driver
