// Values that no host should give and some do: numbers at and beyond all bounds, texts of any bytes.
#pragma once

#include "driver/platform.h"

#include "framework/cstring.h"
#include "framework/geometry.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace quorvel::test {

template <class Value>
struct Named {
  std::string name;  ///< of letters and digits, for the test's name
  Value value;
};

inline constexpr std::size_t kMegabyte = 1'000'000;

inline const std::vector<Named<double>>& HostileNumbers() {
  using Limits = std::numeric_limits<double>;
  static const std::vector<Named<double>> numbers{
      {"NaN", Limits::quiet_NaN()},
      {"NegativeNaN", -Limits::quiet_NaN()},
      {"Infinity", Limits::infinity()},
      {"NegativeInfinity", -Limits::infinity()},
      {"Zero", 0.0},
      {"NegativeZero", -0.0},
      {"Denormal", Limits::denorm_min()},
      {"NegativeDenormal", -Limits::denorm_min()},
      {"Smallest", Limits::min()},
      {"Largest", Limits::max()},
      {"Lowest", Limits::lowest()},
      {"BeyondInt", 2147483648.5},
      {"BelowInt", -2147483649.5},
      {"Negative", -1.0},
      {"Huge", 1e308},
  };
  return numbers;
}

inline const std::vector<Named<int>>& HostileInts() {
  static const std::vector<Named<int>> numbers{
      {"Lowest", std::numeric_limits<int>::min()},
      {"Negative", -1},
      {"Zero", 0},
      {"HighBit", 0x40000000},
      {"Highest", std::numeric_limits<int>::max()},
  };
  return numbers;
}

/// Texts in code page 932, or what is taken for it. Without a zero byte.
inline const std::vector<Named<std::string>>& HostileTexts() {
  static const std::vector<Named<std::string>> texts{
      {"Empty", ""},
      {"LoneLeadByte", "\x83"},
      {"LeadByteAtItsEnd", "\x95\x5C\x83"},
      {"BrokenPairs", "\x81\x20\x81\x81\xFF\xFE\xA0\x80\xFD\xFC\xFF\xF0\x3F"},
      {"ControlCharacters", "a\r\nb\tc\x01\x02\x08\x1B\x7F"},
      {"Formats", "%s%n%d%x%%100%hn%999999999d"},
      {"AccessKeys", "&a&&b&"},
      {"Tags", "<M>0 </M><M>9999999999999 x</M><M><M>\\\\\"'"},
      {"OneMegabyte", std::string(kMegabyte, 'x')},
      {"OneMegabyteOfLeadBytes", std::string(kMegabyte + 1, '\x83')},
      {"OneMegabyteOfAccessKeys", std::string(kMegabyte, '&')},
      {"OneMegabyteOfLines", std::string(kMegabyte, '\n')},
      {"OneMegabyteOfTabs", std::string(kMegabyte, '\t')},
  };
  return texts;
}

/// One of each kind, where each opening takes long.
inline std::vector<Named<std::string>> FewHostileTexts() {
  std::vector<Named<std::string>> few;
  for (const Named<std::string>& text : HostileTexts()) {
    for (const char* const name : {"BrokenPairs", "ControlCharacters", "OneMegabyteOfTabs"}) {
      if (text.name == name) {
        few.push_back(text);
      }
    }
  }
  return few;
}

/// All of them and a text with a zero byte in it, for what is told with its length.
inline std::vector<Named<CString>> HostileStrings() {
  std::vector<Named<CString>> strings;
  for (const Named<std::string>& text : HostileTexts()) {
    strings.push_back({text.name, CString(text.value.c_str())});
  }
  constexpr int kLength = 5;
  strings.push_back({"ZeroByte", CString("ab\0cd", kLength)});
  strings.push_back({"OnlyAZeroByte", CString("\0", 1)});
  return strings;
}

inline std::vector<Named<CPoint>> HostilePositions() {
  constexpr LONG kLowest = std::numeric_limits<LONG>::min();
  constexpr LONG kHighest = std::numeric_limits<LONG>::max();
  return {{"LowestBoth", {kLowest, kLowest}},     {"HighestBoth", {kHighest, kHighest}},
          {"LowestHighest", {kLowest, kHighest}}, {"HighestLowest", {kHighest, kLowest}},
          {"Halves", {kLowest / 2, kHighest / 2}}};
}

inline constexpr std::array kHostileColors{COLORREF{0xFFFFFFFF}, COLORREF{0xFF000000},
                                           COLORREF{0x01000005}, COLORREF{0x02123456},
                                           COLORREF{0x10FF00FF}};

}  // namespace quorvel::test
