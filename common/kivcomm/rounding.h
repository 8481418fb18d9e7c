// Rounding to a number of decimals, on the decimal value that a user sees.
//
//   __KivComm_CutValue2(2.675, 2, quorvel::kCutHalfAwayFromZero);   // 2.68
//   __KivComm_CutValue2(1500, -3, quorvel::kCutHalfAwayFromZero);   // 2000
#pragma once

#include "kivcomm/kivcomm_export.h"

namespace quorvel {

/// The rounding mode that takes the nearest decimal and, of two equally near ones, the one farther
/// from zero.
inline constexpr int kCutHalfAwayFromZero = 1;

}  // namespace quorvel

/// Rounds `value` to `digits` decimals. What is rounded is the shortest decimal text that reads
/// back as `value`, so 2.675 to 2 digits is 2.68 although the double lies just below 2.675.
/// Negative `digits` round to tens, hundreds and so on; any int is allowed.
///
/// A result of zero is +0.0. Infinities and NaN pass through. A value whose rounded decimal would
/// exceed the largest double is returned unchanged, so a finite value stays finite.
/// A `mode` other than quorvel::kCutHalfAwayFromZero returns `value` unchanged.
KIVCOMM_API double __KivComm_CutValue2(double value, int digits, int mode);

/// The same as __KivComm_CutValue2.
KIVCOMM_API double __KivComm_CutValue(double value, int digits, int mode);
