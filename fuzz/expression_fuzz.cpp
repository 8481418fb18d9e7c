// Any text typed into a number field: no result is beyond all bounds, a number is what it is alone
// and in brackets, what is calculated is read back from its text, and int and float agree.
#include "framework/number_text.h"
#include "kivfcl/expression.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

using quorvel::Calculation;
using quorvel::CalculationFault;

/// Ends the process, which the fuzzer reports with the input.
void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void CheckThatResultsAreFinite(const Calculation& result) {
  Require(std::isfinite(result.value));
  Require(result.fault == CalculationFault::kNone || result.value == 0.0);
}

void CheckThatANumberIsTakenAsItIs(std::string_view text, const Calculation& result) {
  if (const std::optional<double> number = quorvel::ParseNumber(text)) {
    Require(result.fault == CalculationFault::kNone && result.value == *number);
  }
}

void CheckThatSignsAndBracketsKeepTheValue(const std::string& text, const Calculation& result) {
  const Calculation bracketed = quorvel::Calculate("-(" + text + ")");
  if (result.fault == CalculationFault::kNone) {
    // Brackets around the deepest nesting are too many.
    Require(bracketed.fault == CalculationFault::kNoCalculation ||
            bracketed.value == -result.value);
  }
}

void CheckThatTheResultIsReadBack(const Calculation& result) {
  const CString shown = quorvel::DecimalText(result.value, 0);
  const double back = quorvel::Calculate(shown.View()).value;
  // A number that a float holds shows the float's decimals.
  Require(back == result.value || static_cast<float>(back) == static_cast<float>(result.value));
}

void CheckThatNarrowerTypesAgree(const std::string& text, const Calculation& result) {
  const Calculation whole = quorvel::CalculateInt(text);
  CheckThatResultsAreFinite(whole);
  Require(whole.value == std::trunc(whole.value) &&
          std::abs(whole.value) <= -static_cast<double>(std::numeric_limits<int>::min()));
  Require(whole.fault != CalculationFault::kNone || whole.value == result.value);
  const Calculation narrow = quorvel::CalculateFloat(text);
  CheckThatResultsAreFinite(narrow);
  Require(std::isfinite(static_cast<float>(narrow.value)));
  Require(narrow.fault != CalculationFault::kNone || narrow.value == result.value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int kQuotation = 40;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const Calculation result = quorvel::Calculate(text);
  CheckThatResultsAreFinite(result);
  CheckThatANumberIsTakenAsItIs(text, result);
  CheckThatSignsAndBracketsKeepTheValue(text, result);
  CheckThatTheResultIsReadBack(result);
  CheckThatNarrowerTypesAgree(text, result);
  Require(quorvel::Shortened(text, kQuotation).GetLength() <= kQuotation + 3);
  return 0;
}
