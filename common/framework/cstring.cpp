#include "framework/cstring.h"

#include <cstdarg>
#include <cstdio>

void CString::Format(const char* format, ...) {
  // NOLINTNEXTLINE(cppcoreguidelines-init-variables): va_start does it
  std::va_list arguments;
  va_start(arguments, format);
  // NOLINTNEXTLINE(cppcoreguidelines-init-variables): va_copy does it
  std::va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
  if (!text.empty()) {
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  }
  va_end(arguments);
  m_text = std::move(text);  // last: an argument may be this very text
}
