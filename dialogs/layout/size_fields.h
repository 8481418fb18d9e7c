// The fields for counts and lengths of the layout editors. A refused number leaves the member as it
// was.
//
//   DDX_Count(pDX, IDC_LAYOUT_ROWS, m_nRows, 20);
//   DDX_Length(pDX, IDC_LAYOUT_WIDTH, m_fWidth, 0);
#pragma once

#include "kivfcl/calc_text.h"

#include <cmath>

namespace quorvel {

/// That a page takes, millimetres.
inline constexpr double kLongestLength = 1e12;

/// Totals that differ by less are one: dragged lengths need not sum to the last bit.
inline bool IsSameLength(double one, double other) {
  constexpr double kSame = 1e-9;
  return std::abs(one - other) <= kSame;
}

}  // namespace quorvel

/// A whole number from 1 to `most`. A page may have more rows than can be made here: they are not
/// refused as long as they stay.
inline void DDX_Count(CDataExchange* pDX, int id, int& count, int most) {
  int read = count;
  DDX_CalcText(pDX, id, read);
  if (read != count) {
    DDV_MinMaxInt(pDX, read, 1, most);
  }
  count = read;
}

/// Millimetres, with so many decimals at least.
template <class Number>
void DDX_Length(CDataExchange* pDX, int id, Number& length, short fewestDecimals) {
  Number read = length;
  DDX_CalcText(pDX, id, read, fewestDecimals, 0);
  DDV_MinMaxDouble(pDX, read, 0.0, quorvel::kLongestLength);
  length = read;
}
