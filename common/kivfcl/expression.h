// Calculations as they are typed into number fields: "1000/3", "210-2*15.5", "(297-20)/4".
//
//   const quorvel::Calculation width = quorvel::Calculate("(297-20)/4");
//   if (width.fault == quorvel::CalculationFault::kNone) { use(width.value); }
#pragma once

#include "framework/cstring.h"
#include "kivfcl/kivfcl_export.h"

#include <string_view>

namespace quorvel {

enum class CalculationFault {
  kNone,
  kNoCalculation,  ///< no number and no calculation, or nested too deeply
  kDivisionByZero,
  kTooLarge,       ///< a number or a result that the type asked for cannot hold
  kNoWholeNumber,  ///< the result has decimals
};

struct Calculation {
  double value = 0.0;  ///< always finite; 0.0 with a fault
  CalculationFault fault = CalculationFault::kNone;
};

/// Brackets may be nested so deeply.
inline constexpr int kDeepestNesting = 100;

/// `text` is in code page 932: a decimal number, or numbers with + - * / and brackets, multiplication
/// and division before addition and subtraction, each from left to right. Blanks may stand between,
/// any number of signs before each number and bracket. Full-width forms count as half-width ones,
/// "×" and "÷" as "*" and "/". A number alone is read exactly; the result of a calculation is rounded
/// to 15 digits, which hides that 0.1 * 3 is not 0.3 in binary.
KIVFCL_API Calculation Calculate(std::string_view text);
/// The same for a result that an int or a float is to hold. A float's value is not rounded yet.
KIVFCL_API Calculation CalculateInt(std::string_view text);
KIVFCL_API Calculation CalculateFloat(std::string_view text);

/// `value` with as many decimals as it takes to read it back exactly, at least `fewestDecimals`, and
/// without exponent: 12.3, not 1.23e1. A number that a float holds shows the float's decimals: 0.1,
/// not 0.10000000149011612.
KIVFCL_API CString DecimalText(double value, int fewestDecimals);
KIVFCL_API CString DecimalText(float value, int fewestDecimals);

/// The first `bytes` bytes of a text in code page 932 and "...", with no character cut in two; the
/// text itself when it is no longer.
KIVFCL_API CString Shortened(std::string_view text, int bytes);

}  // namespace quorvel
