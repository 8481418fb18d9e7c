#include "dialogs/layout/cel_sizes.h"

#include "framework/number_text.h"
#include "kivcomm/rounding.h"

namespace quorvel {

namespace {

constexpr int kDecimals = 1;
constexpr double kNearZero = 1e-6;

}  // namespace

CString CelSizeText(double length) { return FixedText(length, kDecimals); }

CelSizes::Texts CelSizes::AfterLeaving(const CString& text) const {
  const double length =
      __KivComm_CutValue(ReadLeadingNumber(text.View()), kDecimals, kCutHalfAwayFromZero);
  return {CelSizeText(length), CelSizeText(m_total - length)};
}

std::optional<CelSizes::Lengths> CelSizes::Confirmed(const CString& firstText) const {
  const double first = ReadLeadingNumber(firstText.View());
  const double second = m_total - first;
  if (!(first > kNearZero && second > kNearZero)) {
    return std::nullopt;
  }
  return Lengths{static_cast<float>(first), static_cast<float>(second)};
}

}  // namespace quorvel
