// The lengths of two neighbouring rows or columns, which keep their sum.
//
//   const CelSizes sizes(first, second);
//   sizes.AfterLeaving("12.34");      // {"12.3", "2.7"} for a sum of 15 mm
#pragma once

#include "framework/cstring.h"

#include <optional>

namespace quorvel {

/// Of millimetres, as the fields show it: "12.3".
CString CelSizeText(double length);

class CelSizes {
public:
  /// The sum is that of floats, as pages keep lengths.
  CelSizes(float first, float second) : m_total(first + second) {}

  struct Texts {
    CString left;   ///< of the field that was left
    CString other;  ///< of the field beside it
  };
  /// What both fields show after one with this text has been left: its number cut to one decimal,
  /// and the rest of the sum.
  Texts AfterLeaving(const CString& text) const;

  struct Lengths {
    float first;
    float second;
  };
  /// The lengths for this text of the first field, whose number is taken with all its decimals;
  /// empty where either is not above 0 by more than a millionth.
  std::optional<Lengths> Confirmed(const CString& firstText) const;

private:
  double m_total;
};

}  // namespace quorvel
