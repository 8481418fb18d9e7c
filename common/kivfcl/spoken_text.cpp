#include "kivfcl/spoken_text.h"

#include <algorithm>

namespace quorvel {

std::wstring SpokenColor(COLORREF color) {
  return L"赤 " + std::to_wstring(GetRValue(color)) + L" 緑 " + std::to_wstring(GetGValue(color)) +
         L" 青 " + std::to_wstring(GetBValue(color));
}

std::wstring Named(const std::wstring& name, const std::wstring& value) {
  return name.empty() || value.empty() ? name + value : name + L" " + value;
}

LRESULT AnswerWithText(UINT message, WPARAM wParam, LPARAM lParam, const std::wstring& text) {
  if (message == WM_GETTEXTLENGTH) {
    return static_cast<LRESULT>(text.size());
  }
  const std::size_t capacity = wParam;
  auto* buffer = reinterpret_cast<wchar_t*>(lParam);
  if (capacity == 0 || buffer == nullptr) {
    return 0;
  }
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::copy_n(text.begin(), length, buffer);
  buffer[length] = L'\0';
  return static_cast<LRESULT>(length);
}

}  // namespace quorvel
