#include "cli/colour.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvel::cli {
namespace {

TEST(ReadColour, TakesSixDigitsInEitherCase) {
  EXPECT_EQ(ReadColour("#3366FF"), (Colour{0x33, 0x66, 0xFF}));
  EXPECT_EQ(ReadColour("#abcdef"), (Colour{0xAB, 0xCD, 0xEF}));
  EXPECT_EQ(ReadColour("#aBcDeF"), (Colour{0xAB, 0xCD, 0xEF}));
  EXPECT_EQ(ReadColour("#000000"), (Colour{0, 0, 0}));
  EXPECT_EQ(ReadColour("#090a10"), (Colour{9, 10, 16}));
  EXPECT_EQ(ReadColour("#ffffff"), (Colour{255, 255, 255}));
}

TEST(ReadColour, TakesNothingElse) {
  for (const std::string text :
       {"", "#", "3366FF", "#3366F", "#3366FF0", "#36F", "#3366FG", "#g366FF", "#33`6FF", "#33@6FF",
        "#33:6FF", "#33/6FF", "# 366FF", "#+366FF", "#-366FF", "#0x66FF", " #3366FF", "#3366FF ",
        "##3366F", "red", "#３３"}) {
    EXPECT_FALSE(ReadColour(text).has_value()) << text;
  }
  EXPECT_FALSE(ReadColour(std::string("#3366F\0", 7)).has_value());
}

TEST(ColourText, HasCapitalDigits) {
  EXPECT_EQ(ColourText({0x33, 0x66, 0xFF}), "#3366FF");
  EXPECT_EQ(ColourText({0, 9, 0xA0}), "#0009A0");
}

TEST(ColourText, ReadsBackAsItWas) {
  for (int value = 0; value <= 255; ++value) {
    const auto channel = static_cast<std::uint8_t>(value);
    for (const Colour& colour :
         {Colour{channel, 1, 2}, Colour{1, channel, 2}, Colour{1, 2, channel}}) {
      EXPECT_EQ(ReadColour(ColourText(colour)), colour);
    }
  }
}

}  // namespace
}  // namespace quorvel::cli
