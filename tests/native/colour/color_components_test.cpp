#include "dialogs/colour/color_components.h"

#include "kivcomm/color_models.h"

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

constexpr COLORREF kOrange = RGB(200, 100, 50);

ColorComponents ComponentsOf(const EditedColor& edited) {
  return {edited.Component(0), edited.Component(1), edited.Component(2), edited.Component(3)};
}

TEST(EditedColor, TakesAColourApartByTheModel) {
  EXPECT_EQ(ComponentsOf({ColorModel::kRgb, kOrange}), (ColorComponents{200, 100, 50, 0}));
  ColorComponents expected{};
  __KivComm_RGBtoCMYK(200, 100, 50, &expected[0], &expected[1], &expected[2], &expected[3]);
  EXPECT_EQ(ComponentsOf({ColorModel::kCmyk, kOrange}), expected);
  EXPECT_EQ(expected[3], 55);
  expected = {};
  __KivComm_RGBtoHSB(200, 100, 50, &expected[0], &expected[1], &expected[2]);
  EXPECT_EQ(ComponentsOf({ColorModel::kHsb, kOrange}), expected);
  EXPECT_EQ(expected[0], 20);
}

TEST(EditedColor, OnlyCmykHasFourComponents) {
  EXPECT_EQ(EditedColor(ColorModel::kRgb, 0).Count(), 3);
  EXPECT_EQ(EditedColor(ColorModel::kCmyk, 0).Count(), 4);
  EXPECT_EQ(EditedColor(ColorModel::kHsb, 0).Count(), 3);
}

TEST(EditedColor, OnlyTheHueEndsAt360) {
  for (const ColorModel model : {ColorModel::kRgb, ColorModel::kCmyk, ColorModel::kHsb}) {
    const EditedColor edited(model, kOrange);
    for (int component = 0; component < kMostComponents; ++component) {
      const bool isHue = model == ColorModel::kHsb && component == 0;
      EXPECT_EQ(edited.Highest(component), isHue ? 360 : 255);
    }
  }
}

TEST(EditedColor, PutsTheColourTogetherAgain) {
  for (const ColorModel model : {ColorModel::kRgb, ColorModel::kCmyk}) {
    for (const COLORREF color : {kOrange, RGB(0, 0, 0), RGB(255, 255, 255), RGB(1, 2, 3)}) {
      EXPECT_EQ(EditedColor(model, color).Color(), color);
    }
  }
  EXPECT_EQ(EditedColor(ColorModel::kHsb, RGB(0, 255, 255)).Color(), RGB(0, 255, 255));
}

TEST(EditedColor, SetsOneComponent) {
  EditedColor rgb(ColorModel::kRgb, kOrange);
  rgb.Set(1, 7);
  EXPECT_EQ(rgb.Color(), RGB(200, 7, 50));
  EditedColor cmyk(ColorModel::kCmyk, RGB(255, 255, 255));
  cmyk.Set(3, 255);
  EXPECT_EQ(cmyk.Color(), RGB(0, 0, 0));
  EditedColor hsb(ColorModel::kHsb, RGB(255, 0, 0));
  hsb.Set(0, 240);
  EXPECT_EQ(hsb.Color(), RGB(0, 0, 255));
}

TEST(EditedColor, KeepsTheHueOfAGrey) {
  EditedColor edited(ColorModel::kHsb, RGB(0, 0, 255));
  edited.Set(2, 0);
  EXPECT_EQ(edited.Color(), RGB(0, 0, 0));
  EXPECT_EQ(edited.Component(0), 240);
  EXPECT_EQ(edited.Component(1), 255);
  edited.Set(2, 255);
  EXPECT_EQ(edited.Color(), RGB(0, 0, 255));
}

TEST(EditedColor, KeepsValuesInTheirRange) {
  EditedColor edited(ColorModel::kHsb, kOrange);
  edited.Set(0, 1000);
  EXPECT_EQ(edited.Component(0), 360);
  edited.Set(0, -1);
  EXPECT_EQ(edited.Component(0), 0);
  edited.Set(1, 361);
  EXPECT_EQ(edited.Component(1), 255);
  EditedColor rgb(ColorModel::kRgb, kOrange);
  rgb.Set(0, 300);
  EXPECT_EQ(rgb.Color(), RGB(255, 100, 50));
}

TEST(EditedColor, GradientsLeadOneComponentThroughItsRange) {
  const EditedColor rgb(ColorModel::kRgb, kOrange);
  EXPECT_EQ(rgb.Gradient(0).start, (ColorComponents{0, 100, 50, 0}));
  EXPECT_EQ(rgb.Gradient(0).end, (ColorComponents{255, 100, 50, 0}));
  EXPECT_EQ(rgb.Gradient(2).start, (ColorComponents{200, 100, 0, 0}));
  EXPECT_EQ(rgb.Gradient(2).end, (ColorComponents{200, 100, 255, 0}));

  const EditedColor cmyk(ColorModel::kCmyk, kOrange);
  const ColorComponents values = ComponentsOf(cmyk);
  EXPECT_EQ(cmyk.Gradient(3).start, (ColorComponents{values[0], values[1], values[2], 0}));
  EXPECT_EQ(cmyk.Gradient(3).end, (ColorComponents{values[0], values[1], values[2], 255}));

  const EditedColor hsb(ColorModel::kHsb, kOrange);
  EXPECT_EQ(hsb.Gradient(0).start, (ColorComponents{0, hsb.Component(1), hsb.Component(2), 0}));
  EXPECT_EQ(hsb.Gradient(0).end, (ColorComponents{360, hsb.Component(1), hsb.Component(2), 0}));
  EXPECT_EQ(hsb.Gradient(1).end, (ColorComponents{hsb.Component(0), 255, hsb.Component(2), 0}));
}

TEST(ColorModelTexts, NameTheModelsInTheirOrder) {
  EXPECT_STREQ(kColorModelTexts[static_cast<std::size_t>(ColorModel::kRgb)].name, "RGB");
  EXPECT_STREQ(kColorModelTexts[static_cast<std::size_t>(ColorModel::kCmyk)].name, "CMYK");
  EXPECT_STREQ(kColorModelTexts[static_cast<std::size_t>(ColorModel::kHsb)].name, "HSB");
}

}  // namespace
}  // namespace quorvel::test
