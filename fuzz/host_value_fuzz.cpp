// Any bytes as what hosts, users and the registry give without a form of its own: a number's text, a
// number, the palette of made colours, a font's record. What is taken is sound and comes back the same.
#include "framework/number_text.h"
#include "kivcomm/rounding.h"
#include "kivdata/kiv_font.h"
#include "kivdata/made_colours.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace {

/// Ends the process, which the fuzzer reports with the input.
void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void CheckNumberText(std::string_view text) {
  const double leading = quorvel::ReadLeadingNumber(text);
  Require(!std::isnan(leading));
  if (const std::optional<double> number = quorvel::ParseNumber(text)) {
    Require(std::isfinite(*number) && *number == leading);
    Require(quorvel::ParseNumber(quorvel::ShortestText(*number).View()) == number);
  }
  if (const std::optional<int> whole = quorvel::ParseInteger(text)) {
    Require(quorvel::ParseNumber(text) == static_cast<double>(*whole));
    Require(quorvel::TruncatedToInt(leading) == *whole);
  }
  const std::string half = quorvel::HalfWidthForm(text);
  Require(half.size() <= text.size());
  Require(std::all_of(half.begin(), half.end(),
                      [](char byte) { return static_cast<unsigned char>(byte) < 0x80; }));
}

void CheckNumber(double value) {
  constexpr int kDecimals = 3;
  const double cut = __KivComm_CutValue2(value, kDecimals, quorvel::kCutHalfAwayFromZero);
  Require(std::isfinite(cut) == std::isfinite(value));
  if (!std::isfinite(value)) {
    // Shown as a word, which is read as none.
    Require(quorvel::ReadLeadingNumber(quorvel::FixedText(cut, kDecimals).View()) == 0.0);
    return;
  }
  Require(cut == __KivComm_CutValue2(cut, kDecimals, quorvel::kCutHalfAwayFromZero));
  // What a coordinate's field shows is read back as what it stands for.
  Require(quorvel::ReadLeadingNumber(quorvel::FixedText(cut, kDecimals).View()) == cut);
  Require(quorvel::ReadLeadingNumber(quorvel::ShortestText(value).View()) == value);
  const int whole = quorvel::TruncatedToInt(value);
  Require(std::abs(value) >= 2147483647.0 || whole == std::trunc(value));
}

void CheckPalette(std::span<const std::uint8_t> bytes) {
  constexpr COLORREF kHighestByte = 0xFF000000;
  const std::vector<COLORREF> palette =
      quorvel::PaletteFromStored(std::vector<BYTE>(bytes.begin(), bytes.end()));
  Require(palette.size() <= static_cast<std::size_t>(quorvel::kMaxPaletteCount));
  Require(std::all_of(palette.begin(), palette.end(),
                      [](COLORREF color) { return (color & kHighestByte) == 0; }));
  Require(quorvel::PaletteFromStored(quorvel::StoredFromPalette(palette)) == palette);
}

bool IsSameRecord(const LOGFONTA& one, const LOGFONTA& other) {
  return std::memcmp(&one, &other, sizeof one) == 0;
}

void CheckFont(std::span<const std::uint8_t> bytes, double dotsPerMm) {
  LOGFONTA record{};
  std::memcpy(&record, bytes.data(), std::min(bytes.size(), sizeof record));
  CKivFont font;
  font.SetLogFont(&record);
  const LOGFONTA tidy = font.GetLogFont(0);
  Require(std::memchr(tidy.lfFaceName, 0, sizeof tidy.lfFaceName) != nullptr);
  font.SetLogFont(&tidy);
  Require(IsSameRecord(font.GetLogFont(0), tidy));
  font.SetV(dotsPerMm);
  font.SetH(dotsPerMm);
  Require(std::isfinite(font.GetV()) && font.GetV() >= 0);
  Require(std::isfinite(font.GetH()) && font.GetH() >= 0);
  font.CalcMmToLogFont(dotsPerMm);
  font.CalcLogFontToMm(dotsPerMm);
  Require(std::isfinite(font.GetV()) && font.GetV() >= 0);
  Require(std::isfinite(font.GetH()) && font.GetH() >= 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  CheckNumberText({reinterpret_cast<const char*>(data), size});
  CheckPalette(bytes);
  double number = 0.0;
  std::memcpy(&number, data, std::min(size, sizeof number));
  CheckNumber(number);
  CheckFont(bytes, number);
  return 0;
}
