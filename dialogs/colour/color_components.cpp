#include "dialogs/colour/color_components.h"

#include "kivcomm/color_models.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr int kHueComponent = 0;

// The channels of a COLORREF, also where there is no Windows.
constexpr int kByteBits = 8;
constexpr COLORREF kByteMask = 0xFF;

int ChannelOf(COLORREF color, int place) {
  return static_cast<int>((color >> (kByteBits * place)) & kByteMask);
}

}  // namespace

EditedColor::EditedColor(ColorModel model, COLORREF color) : m_model(model) {
  const int red = ChannelOf(color, 0);
  const int green = ChannelOf(color, 1);
  const int blue = ChannelOf(color, 2);
  auto& [first, second, third, fourth] = m_values;
  switch (model) {
    case ColorModel::kRgb:
      m_values = {red, green, blue, 0};
      break;
    case ColorModel::kCmyk:
      __KivComm_RGBtoCMYK(red, green, blue, &first, &second, &third, &fourth);
      break;
    case ColorModel::kHsb:
      __KivComm_RGBtoHSB(red, green, blue, &first, &second, &third);
      break;
  }
}

int EditedColor::Count() const { return m_model == ColorModel::kCmyk ? kMostComponents : 3; }

int EditedColor::Highest(int component) const {
  return m_model == ColorModel::kHsb && component == kHueComponent ? kHighestHue
                                                                   : kHighestComponent;
}

void EditedColor::Set(int component, int value) {
  m_values[static_cast<std::size_t>(component)] = std::clamp(value, 0, Highest(component));
}

COLORREF EditedColor::Color() const {
  const auto& [first, second, third, fourth] = m_values;
  int red = first;
  int green = second;
  int blue = third;
  switch (m_model) {
    case ColorModel::kRgb:
      break;
    case ColorModel::kCmyk:
      __KivComm_CMYKtoRGB(first, second, third, fourth, &red, &green, &blue);
      break;
    case ColorModel::kHsb:
      __KivComm_HSBtoRGB(first, second, third, &red, &green, &blue);
      break;
  }
  return RGB(static_cast<BYTE>(red), static_cast<BYTE>(green), static_cast<BYTE>(blue));
}

ComponentGradient EditedColor::Gradient(int component) const {
  ComponentGradient gradient{m_values, m_values};
  const auto place = static_cast<std::size_t>(component);
  gradient.start[place] = 0;
  gradient.end[place] = Highest(component);
  return gradient;
}

}  // namespace quorvel
