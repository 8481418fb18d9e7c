// A window's whole text in UTF-16, whatever its length.
#pragma once

#include "framework/base_types.h"

#include <string>

namespace quorvel {

inline std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)), L'\0');
  const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace quorvel
