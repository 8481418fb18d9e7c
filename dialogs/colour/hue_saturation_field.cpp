#include "dialogs/colour/hue_saturation_field.h"

#include "kivcomm/color_models.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quorvel {

namespace {

constexpr std::size_t kBytesOfPixel = 3;

/// What a channel lacks is a whole number of sixtieths: a row has no more channel values than these.
constexpr std::size_t kLacks = kHueSextant + 1;

/// The lacks of one line's bytes: blue, green and red of each pixel. All lines have the same.
std::vector<BYTE> LacksOfLine(int width) {
  std::vector<BYTE> lacks;
  lacks.reserve(static_cast<std::size_t>(width) * kBytesOfPixel);
  for (int x = 0; x < width; ++x) {
    const HueTerms terms = TermsOfHue(x * kHighestHue / width);
    for (const int lack : {terms.blue, terms.green, terms.red}) {
      lacks.push_back(static_cast<BYTE>(lack));
    }
  }
  return lacks;
}

}  // namespace

HsbValues ValuesAtPoint(const CRect& field, CPoint point, const HsbValues& before) {
  const int x = std::clamp(point.x, field.left, field.right) - field.left;
  const int y = std::clamp(point.y, field.top, field.bottom) - field.top;
  return {x * kHighestHue / std::max(field.Width(), 1),
          y * kHighestComponent / std::max(field.Height(), 1), before.brightness};
}

CPoint MarkerOfHsb(const CRect& field, const HsbValues& values) {
  return {field.left + field.Width() * values.hue / kHighestHue,
          field.top + field.Height() * values.saturation / kHighestComponent};
}

void FillHueSaturationPicture(const CSize& size, int brightness,
                              const std::function<BYTE*(int)>& lineAt) {
  const std::vector<BYTE> lacks = LacksOfLine(size.cx);
  std::array<BYTE, kLacks> channels{};
  for (int y = 0; y < size.cy; ++y) {
    const ToneTerms tone = TermsOfTone(y * kHighestComponent / size.cy, brightness);
    int lack = 0;
    for (BYTE& channel : channels) {
      channel = static_cast<BYTE>((tone.full - tone.drop * lack) / kToneUnit);
      ++lack;
    }
    const BYTE* const channelOf = channels.data();
    std::ranges::transform(lacks, lineAt(y), [channelOf](BYTE lack) { return channelOf[lack]; });
  }
}

}  // namespace quorvel
