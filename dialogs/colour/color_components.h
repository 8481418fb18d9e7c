// A colour's components in the three models of the colour editor, apart from windows.
//
//   EditedColor edited(ColorModel::kHsb, RGB(255, 0, 0));      // hue 0, saturation 255, brightness 255
//   edited.Set(2, 128);                                        // half as bright
//   edited.Color();                                            // RGB(128, 0, 0)
#pragma once

#include "framework/base_types.h"

#include <array>

namespace quorvel {

/// With the numbers that the editor's drop-down list and the sliders' gradients give them.
enum class ColorModel {
  kRgb = 0,
  kCmyk = 1,
  kHsb = 2,
};

inline constexpr int kColorModelCount = 3;
inline constexpr int kMostComponents = 4;

using ColorComponents = std::array<int, kMostComponents>;

struct ColorModelTexts {
  const char* name;
  std::array<const char*, kMostComponents> components;
};

/// In the order of the models. RGB and HSB have no fourth component.
inline constexpr std::array<ColorModelTexts, kColorModelCount> kColorModelTexts{{
    {"RGB", {"R", "G", "B", ""}},
    {"CMYK", {"C", "M", "Y", "K"}},
    {"HSB", {"H", "S", "B", ""}},
}};

/// What one slider shows: the colours from its lowest to its highest position.
struct ComponentGradient {
  ColorComponents start{};
  ColorComponents end{};
};

/// A colour by its components in one model. They stay as they were set: the hue of a grey, too, which
/// the colour alone could not tell.
class EditedColor {
public:
  EditedColor(ColorModel model, COLORREF color);

  ColorModel Model() const { return m_model; }
  /// 3 or 4.
  int Count() const;
  /// The highest value of a component; the lowest is 0.
  int Highest(int component) const;

  /// 0 for a component that the model has not.
  int Component(int component) const { return m_values[static_cast<std::size_t>(component)]; }
  /// Values out of range become the nearest in range.
  void Set(int component, int value);

  COLORREF Color() const;

  /// The colour at hand with one component led through its whole range.
  ComponentGradient Gradient(int component) const;

private:
  ColorModel m_model;
  ColorComponents m_values{};
};

}  // namespace quorvel
