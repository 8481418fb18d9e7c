#include "gallery/value_text.h"

#include <array>
#include <charconv>

namespace quorvel::gallery {

namespace {

template <class Value>
std::wstring Shortest(Value value) {
  std::array<char, 32> digits{};  // the longest shortest form of a double has 24 characters
  char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  return {digits.data(), end};
}

}  // namespace

std::wstring Wide(const CString& text) {
  constexpr UINT kJapanese = 932;
  const int size =
      MultiByteToWideChar(kJapanese, 0, text.GetString(), text.GetLength(), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(kJapanese, 0, text.GetString(), text.GetLength(), wide.data(), size);
  return wide;
}

std::wstring NamedText(std::wstring_view name, const CString& text) {
  return std::wstring(name) + L"=\"" + Wide(text) + L"\"";
}

std::wstring Number(double value) {
  return Shortest(value);
}

std::wstring Number(float value) {
  return Shortest(value);
}

std::wstring NamedNumber(std::wstring_view name, double value) {
  return std::wstring(name) + L"=" + Number(value);
}

std::wstring ColorText(COLORREF color) {
  constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
  std::wstring code = L"#";
  for (const BYTE channel : {GetRValue(color), GetGValue(color), GetBValue(color)}) {
    code += kDigits[channel / kDigits.size()];
    code += kDigits[channel % kDigits.size()];
  }
  return code + L" (赤 " + std::to_wstring(GetRValue(color)) + L" 緑 " +
         std::to_wstring(GetGValue(color)) + L" 青 " + std::to_wstring(GetBValue(color)) + L")";
}

}  // namespace quorvel::gallery
