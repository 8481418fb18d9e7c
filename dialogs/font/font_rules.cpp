#include "dialogs/font/font_rules.h"

#include "framework/number_text.h"
#include "kivdata/kiv_font.h"

#include <cmath>
#include <string_view>

namespace quorvel {

namespace {

constexpr double kNoResolution = 0.000001;
constexpr double kSamplePointsPerMm = 3.25;
constexpr int kDecimals = 3;

}  // namespace

double EffectiveDotsPerMm(double dotsPerMm) {
  return std::fabs(dotsPerMm) < kNoResolution ? kUsualDotsPerMm : dotsPerMm;
}

CString MillimetreText(double millimetres) {
  const CString fixed = FixedText(millimetres, kDecimals);
  std::string_view text = fixed.View();
  text = text.substr(0, text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) {
    text.remove_suffix(1);
  }
  return CString(text);
}

double MillimetresOfText(const CString& text, double shown) {
  return text == MillimetreText(shown) ? shown : ReadLeadingNumber(text.View());
}

int SamplePoints(double millimetres) {
  constexpr double kHalf = 0.5;
  return TruncatedToInt(millimetres * kSamplePointsPerMm + kHalf);
}

}  // namespace quorvel
