#include "framework/code_page.h"

#include "framework/base_types.h"

namespace quorvel {

namespace {

constexpr UINT kCodePage932 = 932;

}  // namespace

std::wstring WideFromCodePage(std::string_view text) {
  std::wstring wide;
  if (!text.empty()) {
    wide.resize(text.size());  // a character takes at least one byte and at most one unit
    const int units =
        ::MultiByteToWideChar(kCodePage932, 0, text.data(), static_cast<int>(text.size()),
                              wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(units));
  }
  return wide;
}

std::string CodePageFromWide(std::wstring_view text) {
  std::string narrow;
  if (!text.empty()) {
    narrow.resize(2 * text.size());
    const int bytes = ::WideCharToMultiByte(
        kCodePage932, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
        narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(bytes));
  }
  return narrow;
}

bool IsInCodePage(std::wstring_view text) {
  if (text.empty()) {
    return true;
  }
  BOOL usedReplacement = FALSE;
  const int bytes = ::WideCharToMultiByte(kCodePage932, WC_NO_BEST_FIT_CHARS, text.data(),
                                          static_cast<int>(text.size()), nullptr, 0, nullptr,
                                          &usedReplacement);
  return bytes > 0 && usedReplacement == FALSE;
}

}  // namespace quorvel
