// A colour in RGB, in HSB (hue, saturation, brightness) and in CMYK, all in whole numbers.
//
//   int hue, saturation, brightness;
//   __KivComm_RGBtoHSB(128, 0, 0, &hue, &saturation, &brightness);   // 0, 255, 128
//
// Hue is 0 to 360 degrees, every other component 0 to 255. What lies outside counts as the nearest
// value inside; a null result pointer is skipped. No floating point takes part.
#pragma once

#include "kivcomm/kivcomm_export.h"

#include <algorithm>

/// Brightness is the highest channel, saturation 255 times the part of it by which the lowest
/// channel is less; hue leads from red (0) over green (120) and blue (240) back to red. Each is the
/// nearest whole number, the higher of two equally near ones. Hue is 360 only for colours at most
/// half a degree short of red; greys have hue 0 and saturation 0, black all three 0.
///
/// There and back again, the highest and the lowest channel are what they were and the middle one
/// differs by 2 at most. Less is not possible: the 256 colours from red to yellow share 61 hues.
KIVCOMM_API void __KivComm_RGBtoHSB(int red, int green, int blue, int* hue, int* saturation,
                                    int* brightness);

/// Each channel is the nearest whole number to what the three define, the higher of two equally
/// near ones. Hue 360 is red like hue 0.
KIVCOMM_API void __KivComm_HSBtoRGB(int hue, int saturation, int brightness, int* red, int* green,
                                    int* blue);

/// Black is what the highest channel lacks of 255; cyan is 255 times the part of the highest
/// channel by which red is less, magenta and yellow the same of green and blue, to the nearest
/// whole number. Black as a colour is (0, 0, 0, 255). __KivComm_CMYKtoRGB gives back exactly the
/// same colour.
KIVCOMM_API void __KivComm_RGBtoCMYK(int red, int green, int blue, int* cyan, int* magenta,
                                     int* yellow, int* black);

/// Red is (255 - cyan) x (255 - black) / 255, green and blue the same of magenta and yellow, to the
/// nearest whole number.
KIVCOMM_API void __KivComm_CMYKtoRGB(int cyan, int magenta, int yellow, int black, int* red,
                                     int* green, int* blue);

namespace quorvel {

/// A colour's channels, each 0 to 255.
struct RgbColour {
  int red = 0;
  int green = 0;
  int blue = 0;

  friend constexpr bool operator==(const RgbColour&, const RgbColour&) = default;
};

// __KivComm_HSBtoRGB in two steps, for a picture whose columns share a hue and whose rows share
// saturation and brightness: MixedColour(TermsOfHue(h), TermsOfTone(s, b)) is the same colour.

/// What the channels of a pure hue lack, in sixtieths: 0 of a full channel, 60 of an absent one.
struct HueTerms {
  int red = 0;
  int green = 0;
  int blue = 0;
};

/// A channel is (full - drop x what it lacks) / kToneUnit; `full` includes the half for rounding.
struct ToneTerms {
  int full = 0;
  int drop = 0;
};

inline constexpr int kHighestHue = 360;
inline constexpr int kHighestComponent = 255;
/// From a channel's own hue to where the channel begins to fade, and from there to where it is
/// gone.
inline constexpr int kHueSextant = 60;
inline constexpr int kToneUnit = kHighestComponent * kHueSextant;

/// What a channel lacks in the pure colour of `hue`; the channel is fullest at `ownHue`. Both in
/// 0 to 360.
constexpr int LackOfChannel(int hue, int ownHue) {
  const int distance = hue < ownHue ? ownHue - hue : hue - ownHue;
  const int shortestWay = std::min(distance, kHighestHue - distance);
  return std::clamp(shortestWay - kHueSextant, 0, kHueSextant);
}

constexpr HueTerms TermsOfHue(int hue) {
  const int known = std::clamp(hue, 0, kHighestHue);
  return {LackOfChannel(known, 0), LackOfChannel(known, 2 * kHueSextant),
          LackOfChannel(known, 4 * kHueSextant)};
}

constexpr ToneTerms TermsOfTone(int saturation, int brightness) {
  const int highest = std::clamp(brightness, 0, kHighestComponent);
  return {highest * kToneUnit + kToneUnit / 2,
          highest * std::clamp(saturation, 0, kHighestComponent)};
}

constexpr RgbColour MixedColour(const HueTerms& hue, const ToneTerms& tone) {
  return {(tone.full - tone.drop * hue.red) / kToneUnit,
          (tone.full - tone.drop * hue.green) / kToneUnit,
          (tone.full - tone.drop * hue.blue) / kToneUnit};
}

}  // namespace quorvel
