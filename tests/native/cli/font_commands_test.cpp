#include "cli/font_commands.h"

#include "cli/commands.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

using Arguments = std::vector<std::string>;

template <class REQUEST>
REQUEST Read(const Arguments& arguments) {
  const CommandLine line = ReadCommandLine(arguments);
  if (const auto* message = std::get_if<Message>(&line)) {
    ADD_FAILURE() << message->text;
    return {};
  }
  return std::get<REQUEST>(std::get<Task>(line).request);
}

void ExpectBadUsage(const Arguments& arguments, const std::string& line) {
  const CommandLine answer = ReadCommandLine(arguments);
  const auto* message = std::get_if<Message>(&answer);
  ASSERT_NE(message, nullptr) << line;
  EXPECT_EQ(message->status, ExitStatus::kBadUsage);
  EXPECT_EQ(message->text, line + "\n");
}

TEST(FontCommands, SelectFontTakesEveryField) {
  const auto request = Read<SelectFontRequest>(
      {"select-font",       "--title",         "文字",          "--key",       "Software\\Q",
       "--dots-per-mm",     "23.6",            "--fixed-color", "--enable-mask", "5",
       "--show-strike-out-type", "--face",     "ＭＳ 明朝",     "--height",    "7.25",
       "--width",           "2",               "--dots-height", "-100",        "--dots-width",
       "30",                "--escapement",    "-900",          "--orientation", "450",
       "--weight",          "700",             "--italic",      "--underline", "--strike-out",
       "--strike-out-type", "1",               "--char-set",    "255",         "--out-precision",
       "4",                 "--clip-precision", "16",           "--quality",   "2",
       "--pitch-and-family", "49",             "--color",       "#0102ff"});
  EXPECT_EQ(request.dialog.title, "文字");
  EXPECT_EQ(request.dialog.key, "Software\\Q");
  EXPECT_EQ(request.dialog.dotsPerMm, 23.6);
  EXPECT_TRUE(request.dialog.hasFixedColor);
  EXPECT_EQ(request.dialog.enableMask, 5U);
  EXPECT_TRUE(request.showsStrikeOutType);
  EXPECT_EQ(request.font.face, "ＭＳ 明朝");
  EXPECT_EQ(request.font.height, 7.25);
  EXPECT_EQ(request.font.width, 2.0);
  EXPECT_EQ(request.font.dotsHeight, -100);
  EXPECT_EQ(request.font.dotsWidth, 30);
  EXPECT_EQ(request.font.escapement, -900);
  EXPECT_EQ(request.font.orientation, 450);
  EXPECT_EQ(request.font.weight, 700);
  EXPECT_TRUE(request.font.isItalic);
  EXPECT_TRUE(request.font.isUnderlined);
  EXPECT_TRUE(request.font.isStruckOut);
  EXPECT_EQ(request.font.strikeOutType, 1);
  EXPECT_EQ(request.font.charSet, 255);
  EXPECT_EQ(request.font.outPrecision, 4);
  EXPECT_EQ(request.font.clipPrecision, 16);
  EXPECT_EQ(request.font.quality, 2);
  EXPECT_EQ(request.font.pitchAndFamily, 49);
  EXPECT_EQ(request.font.color, (Colour{1, 2, 255}));
}

TEST(FontCommands, SelectFontBeginsAsANewFont) {
  const auto request = Read<SelectFontRequest>({"select-font"});
  EXPECT_FALSE(request.dialog.title.has_value());
  EXPECT_EQ(request.dialog.key, "");
  EXPECT_EQ(request.dialog.dotsPerMm, 0.0);
  EXPECT_FALSE(request.dialog.hasFixedColor);
  EXPECT_EQ(request.dialog.enableMask, 0x3FFU);
  EXPECT_FALSE(request.showsStrikeOutType);
  EXPECT_EQ(request.font.face, "ＭＳ ゴシック");
  EXPECT_EQ(request.font.height, 3.5);
  EXPECT_EQ(request.font.width, 0.0);
  EXPECT_FALSE(request.font.dotsHeight.has_value());
  EXPECT_FALSE(request.font.dotsWidth.has_value());
  EXPECT_EQ(request.font.weight, 400);
  EXPECT_EQ(request.font.charSet, 128);
  EXPECT_FALSE(request.font.isItalic);
}

TEST(FontCommands, SelectFontExTakesThePlace) {
  const auto request =
      Read<SelectFontExRequest>({"select-font-ex", "--back-color", "#0A141E",
                                 "--vertical-place", "1", "--horizontal-place=2", "--height=4"});
  EXPECT_EQ(request.backColor, (Colour{10, 20, 30}));
  EXPECT_EQ(request.verticalPlace, 1);
  EXPECT_EQ(request.horizontalPlace, 2);
  EXPECT_EQ(request.font.height, 4.0);
}

TEST(FontCommands, SelectFontExBeginsAtTheTopLeftOnWhite) {
  const auto request = Read<SelectFontExRequest>({"select-font-ex"});
  EXPECT_EQ(request.backColor, (Colour{255, 255, 255}));
  EXPECT_EQ(request.verticalPlace, 0);
  EXPECT_EQ(request.horizontalPlace, 0);
}

TEST(FontCommands, WhatAFontCannotHoldIsRefused) {
  ExpectBadUsage({"select-font", "--char-set", "256"}, "quorvel: --char-set goes from 0 to 255");
  ExpectBadUsage({"select-font", "--quality", "-1"}, "quorvel: --quality goes from 0 to 255");
  ExpectBadUsage({"select-font", "--strike-out-type", "2"},
                 "quorvel: --strike-out-type goes from 0 to 1");
  ExpectBadUsage({"select-font", "--height", "-1"}, "quorvel: --height must not be negative");
  ExpectBadUsage({"select-font", "--width", "x"}, R"(quorvel: --width needs a number, not "x")");
  ExpectBadUsage({"select-font", "--enable-mask", "-1"},
                 "quorvel: --enable-mask must not be negative");
  ExpectBadUsage({"select-font-ex", "--vertical-place", "3"},
                 "quorvel: --vertical-place goes from 0 to 2");
  ExpectBadUsage({"select-font-ex", "--horizontal-place", "-1"},
                 "quorvel: --horizontal-place goes from 0 to 2");
  ExpectBadUsage({"select-font", "--back-color", "#010203"},
                 R"(quorvel: unknown option "--back-color", --help lists them)");
  ExpectBadUsage({"select-font-ex", "--show-strike-out-type"},
                 R"(quorvel: unknown option "--show-strike-out-type", --help lists them)");
}

}  // namespace
}  // namespace quorvel::cli
