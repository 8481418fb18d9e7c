// The C interface with structures that no host should give.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"

#include <quorvel/quorvel_c.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>

namespace quorvel::test {
namespace {

template <class Dialog>
Dialog New() {
  Dialog dialog{};
  dialog.size = sizeof dialog;
  return dialog;
}

template <class Dialog>
using Function = quorvel_result (*)(Dialog*);

/// Calls and tells whether a cancel left every byte of the structure.
template <class Dialog>
Outcome CallWith(Function<Dialog> function, Dialog dialog) {
  const Dialog before = dialog;
  const quorvel_result result = function(&dialog);
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): every byte, NaN included
  const bool unchanged = std::memcmp(&dialog, &before, sizeof dialog) == 0;
  if constexpr (requires { dialog.result; }) {
    quorvel_free(dialog.result);
  }
  return {result == QUORVEL_CONFIRMED, unchanged};
}

template <class Dialog>
void ExpectOddSizesRefused(Function<Dialog> function) {
  EXPECT_EQ(function(nullptr), QUORVEL_BAD_ARGUMENT);
  auto dialog = New<Dialog>();
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, sizeof(Dialog) - 1,
                                 std::size_t{1} << 32, static_cast<std::size_t>(-1)}) {
    dialog.size = size;
    const Dialog before = dialog;
    EXPECT_EQ(function(&dialog), QUORVEL_BAD_ARGUMENT) << size;
    EXPECT_STRNE(quorvel_last_error(), "");
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): every byte
    EXPECT_EQ(std::memcmp(&dialog, &before, sizeof dialog), 0);
  }
}

TEST(HostileStructures, OfOddSizesAreRefused) {
  ExpectOddSizesRefused(quorvel_input_text);
  ExpectOddSizesRefused(quorvel_input_scale);
  ExpectOddSizesRefused(quorvel_input_dpi);
  ExpectOddSizesRefused(quorvel_input_point_xy);
  ExpectOddSizesRefused(quorvel_input_point_xyz);
  ExpectOddSizesRefused(quorvel_set_user_paper);
  ExpectOddSizesRefused(quorvel_check_list);
  ExpectOddSizesRefused(quorvel_select_color);
  ExpectOddSizesRefused(quorvel_select_color_ex);
  ExpectOddSizesRefused(quorvel_edit_color);
  ExpectOddSizesRefused(quorvel_select_rgb);
  ExpectOddSizesRefused(quorvel_select_font);
  ExpectOddSizesRefused(quorvel_select_font_ex);
  ExpectOddSizesRefused(quorvel_edit_layout);
  ExpectOddSizesRefused(quorvel_edit_layout_ex);
}

/// No UTF-8, or with characters that code page 932 lacks.
constexpr std::array kBadTexts{"\x83", "a\xFF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC0\xAF",
                               "caf\xC3\xA9", "\xF0\x9F\x98\x80"};

/// Each text member of a structure by itself.
template <class Dialog>
void ExpectBadTextsRefused(Function<Dialog> function,
                           std::initializer_list<const char* Dialog::*> members) {
  for (const auto member : members) {
    for (const char* const text : kBadTexts) {
      auto dialog = New<Dialog>();
      dialog.*member = text;
      EXPECT_EQ(function(&dialog), QUORVEL_BAD_TEXT) << text;
    }
  }
}

TEST(HostileStructures, WithBadTextsAreRefused) {
  ExpectBadTextsRefused<quorvel_text_dialog>(
      quorvel_input_text,
      {&quorvel_text_dialog::title, &quorvel_text_dialog::comment, &quorvel_text_dialog::text});
  ExpectBadTextsRefused<quorvel_scale_dialog>(
      quorvel_input_scale, {&quorvel_scale_dialog::title, &quorvel_scale_dialog::comment});
  ExpectBadTextsRefused<quorvel_check_list_dialog>(quorvel_check_list,
                                                   {&quorvel_check_list_dialog::title});
  ExpectBadTextsRefused<quorvel_color_dialog>(quorvel_select_color,
                                              {&quorvel_color_dialog::registry_key});
  ExpectBadTextsRefused<quorvel_font_dialog>(
      quorvel_select_font, {&quorvel_font_dialog::registry_key, &quorvel_font_dialog::title});
}

TEST(HostileStructures, WithListsThatAreMissingAreRefused) {
  auto list = New<quorvel_check_list_dialog>();
  list.count = static_cast<std::size_t>(-1);
  EXPECT_EQ(quorvel_check_list(&list), QUORVEL_BAD_ARGUMENT);
  const std::array items{"a"};
  list.items = items.data();
  EXPECT_EQ(quorvel_check_list(&list), QUORVEL_BAD_ARGUMENT) << "no ticks";

  quorvel_page* made = nullptr;
  ASSERT_EQ(quorvel_page_create(QUORVEL_PAGE_GRID, &made), QUORVEL_OK);
  const std::unique_ptr<quorvel_page, decltype(&quorvel_page_free)> page(made, quorvel_page_free);
  for (std::size_t quorvel_layout_dialog::*count :
       {&quorvel_layout_dialog::insertion_count, &quorvel_layout_dialog::number_count}) {
    auto layout = New<quorvel_layout_dialog>();
    layout.page = page.get();
    layout.*count = static_cast<std::size_t>(-1);
    EXPECT_EQ(quorvel_edit_layout(&layout), QUORVEL_BAD_ARGUMENT);
  }
}

TEST(HostileStructures, WithAnyNumbersOpen) {
  HostileTable table;
  for (const Named<double>& number : HostileNumbers()) {
    table.Add("scale", number.name, [&] {
      auto dialog = New<quorvel_scale_dialog>();
      dialog.scale = number.value;
      return CallWith(quorvel_input_scale, dialog);
    });
    table.Add("point", number.name, [&] {
      auto dialog = New<quorvel_point_dialog>();
      dialog.x = dialog.y = dialog.z = number.value;
      return CallWith(quorvel_input_point_xyz, dialog);
    });
    table.Add("font", number.name, [&] {
      auto dialog = New<quorvel_font_dialog>();
      dialog.dots_per_mm = number.value;
      dialog.font.height = 5.0;
      dialog.font.color = 0xFF000005;
      return CallWith(quorvel_select_font, dialog);
    });
  }
  for (const HostileArgument& argument : table.Take()) {
    ExpectHarmless(argument);
  }
}

TEST(HostileStructures, AFontKeepsItsMillimetresAtAResolutionOfNextToNothing) {
  constexpr double kHeight = 5.0;
  HostileTable table;
  for (const double dotsPerMm : {0.0, 5e-324, 1e-7, -1e-7}) {
    table.Add("resolution", std::to_string(dotsPerMm), [=] {
      auto dialog = New<quorvel_font_dialog>();
      std::strcpy(dialog.font.face, "MS Gothic");
      dialog.dots_per_mm = dotsPerMm;
      dialog.font.height = kHeight;
      const quorvel_result result = quorvel_select_font(&dialog);
      constexpr double kOneDot = 1 / 11.8;
      EXPECT_NEAR(dialog.font.height, kHeight, kOneDot);
      return Outcome{result == QUORVEL_CONFIRMED, dialog.font.height == kHeight};
    });
  }
  for (const HostileArgument& argument : table.Take()) {
    ExpectHarmless(argument);
  }
}

}  // namespace
}  // namespace quorvel::test
