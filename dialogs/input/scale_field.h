// The field of the scale dialog: the denominator of "1 /" n as text.
#pragma once

#include "framework/cstring.h"

namespace quorvel {

/// The scale rounded to a whole number, half away from zero. Beyond the range of int the nearest
/// int, NaN as 0.
CString ScaleText(double scale);

/// The number that the text begins with, 0.0 where it begins with none; decimals are kept.
double ScaleOfText(const CString& text);

}  // namespace quorvel
