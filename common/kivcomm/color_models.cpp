#include "kivcomm/color_models.h"

#include <algorithm>

namespace {

using quorvel::kHighestComponent;
using quorvel::kHighestHue;
using quorvel::kHueSextant;

int Known(int component) {
  return std::clamp(component, 0, kHighestComponent);
}

/// The nearest whole number, the higher of two equally near ones. `dividend` is not negative,
/// `divisor` is positive.
int Divided(int dividend, int divisor) {
  return (2 * dividend + divisor) / (2 * divisor);
}

void Give(int* result, int value) {
  if (result != nullptr) {
    *result = value;
  }
}

/// The hue of known channels, of which `highest` and `lowest` are the extremes.
int Hue(int red, int green, int blue, int highest, int lowest) {
  const int spread = highest - lowest;
  if (spread == 0) {
    return 0;
  }
  // Degrees times the spread: from the highest channel's own hue towards the one that follows it.
  int scaled = 0;
  if (highest == red) {
    scaled = kHueSextant * (green - blue);
  } else if (highest == green) {
    scaled = kHueSextant * (2 * spread + blue - red);
  } else {
    scaled = kHueSextant * (4 * spread + red - green);
  }
  return Divided(scaled < 0 ? scaled + kHighestHue * spread : scaled, spread);
}

/// The part of `highest` by which `channel` is less, 0 to 255; 0 of black, where `highest` is 0.
int PartLacking(int channel, int highest) {
  return highest == 0 ? 0 : Divided(kHighestComponent * (highest - channel), highest);
}

/// What an ink and the black ink, both 0 to 255, leave of a channel.
int PartLeft(int ink, int black) {
  return Divided((kHighestComponent - ink) * (kHighestComponent - black), kHighestComponent);
}

}  // namespace

void __KivComm_RGBtoHSB(int red, int green, int blue, int* hue, int* saturation, int* brightness) {
  const int knownRed = Known(red);
  const int knownGreen = Known(green);
  const int knownBlue = Known(blue);
  const int highest = std::max({knownRed, knownGreen, knownBlue});
  const int lowest = std::min({knownRed, knownGreen, knownBlue});
  Give(hue, Hue(knownRed, knownGreen, knownBlue, highest, lowest));
  Give(saturation, PartLacking(lowest, highest));
  Give(brightness, highest);
}

void __KivComm_HSBtoRGB(int hue, int saturation, int brightness, int* red, int* green, int* blue) {
  const quorvel::RgbColour colour =
      quorvel::MixedColour(quorvel::TermsOfHue(hue), quorvel::TermsOfTone(saturation, brightness));
  Give(red, colour.red);
  Give(green, colour.green);
  Give(blue, colour.blue);
}

void __KivComm_RGBtoCMYK(int red, int green, int blue, int* cyan, int* magenta, int* yellow,
                         int* black) {
  const int knownRed = Known(red);
  const int knownGreen = Known(green);
  const int knownBlue = Known(blue);
  const int highest = std::max({knownRed, knownGreen, knownBlue});
  Give(cyan, PartLacking(knownRed, highest));
  Give(magenta, PartLacking(knownGreen, highest));
  Give(yellow, PartLacking(knownBlue, highest));
  Give(black, kHighestComponent - highest);
}

void __KivComm_CMYKtoRGB(int cyan, int magenta, int yellow, int black, int* red, int* green,
                         int* blue) {
  const int knownBlack = Known(black);
  Give(red, PartLeft(Known(cyan), knownBlack));
  Give(green, PartLeft(Known(magenta), knownBlack));
  Give(blue, PartLeft(Known(yellow), knownBlack));
}
