// The C interface as a host in any language has it.
#include "layout/editor_tools.h"
#include "res/ids.h"
#include "support/colour_environment.h"
#include "support/work.h"

#include <quorvel/quorvel_c.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace quorvel::test {
namespace {

const char* Utf8(const char8_t* text) { return reinterpret_cast<const char*>(text); }

std::string LastError() { return quorvel_last_error(); }

struct TextDeleter {
  void operator()(char* text) const { quorvel_free(text); }
};
using OwnedText = std::unique_ptr<char, TextDeleter>;

struct PageDeleter {
  void operator()(quorvel_page* page) const { quorvel_page_free(page); }
};
using OwnedPage = std::unique_ptr<quorvel_page, PageDeleter>;

template <class Dialog>
Dialog New() {
  Dialog dialog{};
  dialog.size = sizeof dialog;
  return dialog;
}

// ---- What all functions have in common

TEST(CInterface, TellsTheVersion) { EXPECT_STREQ(quorvel_version(), QUORVEL_VERSION); }

TEST(CInterface, RefusesStructuresThatItDoesNotKnow) {
  EXPECT_EQ(quorvel_input_dpi(nullptr), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(LastError(), "dialog is null");
  auto dialog = New<quorvel_dpi_dialog>();
  dialog.dpi = 5;
  dialog.size = sizeof dialog - 1;
  EXPECT_EQ(quorvel_input_dpi(&dialog), QUORVEL_BAD_ARGUMENT);
  EXPECT_NE(LastError(), "");
  dialog.size = 0;
  EXPECT_EQ(quorvel_input_dpi(&dialog), QUORVEL_BAD_ARGUMENT);
  dialog.size = static_cast<std::size_t>(-1);  // forgotten: nothing behind it is read
  EXPECT_EQ(quorvel_input_dpi(&dialog), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(LastError(), "size is no size of a structure");
  EXPECT_EQ(dialog.dpi, 5);
}

/// A host's structure of a later header.
struct LaterDialog {
  quorvel_dpi_dialog known;
  std::array<unsigned char, 16> later;
};

TEST(CInterface, TakesALaterHostsStructureIfItAsksForNothingNew) {
  LaterDialog later{};
  later.known.size = sizeof later;
  later.known.dpi = 72;
  EXPECT_EQ(WorkDialog([&] { return quorvel_input_dpi(&later.known); }, Confirm),
            QUORVEL_CONFIRMED);
  EXPECT_EQ(LastError(), "");
  later.later[15] = 1;
  EXPECT_EQ(quorvel_input_dpi(&later.known), QUORVEL_BAD_ARGUMENT);
  EXPECT_NE(LastError(), "");
}

TEST(CInterface, AFailureIsOfItsThread) {
  EXPECT_EQ(quorvel_input_dpi(nullptr), QUORVEL_BAD_ARGUMENT);
  std::string other = "?";
  std::thread([&other] { other = quorvel_last_error(); }).join();
  EXPECT_EQ(other, "");
  EXPECT_NE(LastError(), "");
}

// ---- Values

TEST(CInterface, AsksForAText) {
  auto dialog = New<quorvel_text_dialog>();
  const quorvel_position position{40, 60};
  dialog.title = Utf8(u8"題名");
  dialog.comment = Utf8(u8"表ソ100%s");
  dialog.text = Utf8(u8"初期値");
  dialog.position = &position;
  const auto run = [&] { return quorvel_input_text(&dialog); };
  EXPECT_EQ(WorkDialog(run,
                       [](HWND window) {
                         EXPECT_EQ(Text(window), L"題名");
                         EXPECT_EQ(Text(window, 10000), L"表ソ100%s");
                         EXPECT_EQ(Text(window, 10001), L"初期値");
                         EXPECT_EQ(WindowRect(window).left, 40);
                         EXPECT_EQ(WindowRect(window).top, 60);
                         Cancel(window);
                       }),
            QUORVEL_CANCELLED);
  EXPECT_EQ(dialog.result, nullptr);
  EXPECT_EQ(WorkDialog(run,
                       [](HWND window) {
                         ReplaceText(Control(window, 10001), L"能ｶﾅ①");
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  const OwnedText result(dialog.result);
  EXPECT_STREQ(result.get(), Utf8(u8"能ｶﾅ①"));
  quorvel_free(nullptr);
}

TEST(CInterface, RefusesTextsThatADialogCannotHold) {
  auto dialog = New<quorvel_text_dialog>();
  dialog.title = "\xFF";
  EXPECT_EQ(quorvel_input_text(&dialog), QUORVEL_BAD_TEXT);
  EXPECT_EQ(LastError(), "title is not UTF-8");
  dialog.title = nullptr;
  dialog.text = Utf8(u8"é");  // which would become an e
  EXPECT_EQ(quorvel_input_text(&dialog), QUORVEL_BAD_TEXT);
  EXPECT_EQ(LastError(), "text has characters that code page 932 lacks");
  EXPECT_EQ(dialog.result, nullptr);
}

TEST(CInterface, AsksForAScale) {
  auto dialog = New<quorvel_scale_dialog>();
  dialog.title = Utf8(u8"縮尺");
  dialog.scale = 1000.4;
  const auto run = [&] { return quorvel_input_scale(&dialog); };
  EXPECT_EQ(WorkDialog(run, Cancel), QUORVEL_CANCELLED);
  EXPECT_EQ(dialog.scale, 1000.4);
  EXPECT_EQ(WorkDialog(run, Confirm), QUORVEL_CONFIRMED);
  EXPECT_EQ(dialog.scale, 1000.0);
}

TEST(CInterface, AsksForAPointInTheHostsOrder) {
  auto dialog = New<quorvel_point_dialog>();
  dialog.x = 1;
  dialog.y = 2;
  dialog.z = 3;
  dialog.allow_mouse_pick = 1;
  constexpr int kX = IDC_POINT_X;
  constexpr int kY = IDC_POINT_Y;
  EXPECT_EQ(WorkDialog([&] { return quorvel_input_point_xy(&dialog); },
                       [](HWND window) {
                         EXPECT_EQ(Text(window, kX), L"1.000");
                         EXPECT_EQ(Text(window, kY), L"2.000");
                         ReplaceText(Control(window, kY), L"-7.5");
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  EXPECT_EQ(dialog.x, 1.0);
  EXPECT_EQ(dialog.y, -7.5);
  EXPECT_EQ(dialog.z, 3.0);
  EXPECT_EQ(WorkDialog([&] { return quorvel_input_point_xyz(&dialog); },
                       [](HWND window) { Click(window, IDC_POINT_MOUSE); }),
            QUORVEL_MOUSE_PICK);
  EXPECT_EQ(WorkDialog([&] { return quorvel_input_point_xyz(&dialog); }, Cancel),
            QUORVEL_CANCELLED);
  EXPECT_EQ(WorkDialog([&] { return quorvel_input_point_xyz(&dialog); }, Confirm),
            QUORVEL_CONFIRMED);
  EXPECT_EQ(dialog.z, 3.0);
}

TEST(CInterface, AsksForAPaper) {
  auto dialog = New<quorvel_paper_dialog>();
  dialog.width = 420;
  dialog.height = 297;
  const auto run = [&] { return quorvel_set_user_paper(&dialog); };
  EXPECT_EQ(WorkDialog(run, Cancel), QUORVEL_CANCELLED);
  EXPECT_EQ(dialog.result, nullptr);
  EXPECT_EQ(WorkDialog(run,
                       [](HWND window) {
                         ReplaceText(Control(window, IDC_PAPER_NAME), L"図面");
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  const OwnedText result(dialog.result);
  EXPECT_STREQ(result.get(), Utf8(u8"図面(420x297)"));
  EXPECT_EQ(dialog.width, 420);
}

TEST(CInterface, TicksItems) {
  auto dialog = New<quorvel_check_list_dialog>();
  const std::array items{Utf8(u8"壁"), Utf8(u8"柱"), static_cast<const char*>(nullptr)};
  std::array<std::uint8_t, 3> ticked{1, 0, 5};
  dialog.title = Utf8(u8"表示");
  dialog.items = items.data();
  dialog.ticked = ticked.data();
  dialog.count = items.size();
  const auto run = [&] { return quorvel_check_list(&dialog); };
  EXPECT_EQ(WorkDialog(run, Cancel), QUORVEL_CANCELLED);
  EXPECT_EQ(ticked[2], 5);
  EXPECT_EQ(WorkDialog(run, Confirm), QUORVEL_CONFIRMED);
  EXPECT_EQ(ticked, (std::array<std::uint8_t, 3>{1, 0, 1}));
  dialog.ticked = nullptr;
  EXPECT_EQ(quorvel_check_list(&dialog), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(LastError(), "ticked is null");
}

// ---- Colours and fonts

TEST(CInterface, EachColourFunctionHasItsDialog) {
  std::set<std::pair<int, int>> sizes;
  for (const auto ask :
       {quorvel_select_color, quorvel_select_color_ex, quorvel_edit_color, quorvel_select_rgb}) {
    auto dialog = New<quorvel_color_dialog>();
    dialog.color = 0x00408020;
    dialog.registry_key = ColourEnvironment::kKey;
    const ColourEnvironment environment;
    EXPECT_EQ(WorkDialog([&] { return ask(&dialog); },
                         [&](HWND window) {
                           const CRect dialogRect(WindowRect(window));
                           sizes.emplace(dialogRect.Width(), dialogRect.Height());
                           Cancel(window);
                         }),
              QUORVEL_CANCELLED);
    EXPECT_EQ(WorkDialog([&] { return ask(&dialog); }, Confirm), QUORVEL_CONFIRMED);
    EXPECT_EQ(dialog.color, 0x00408020U);
  }
  EXPECT_EQ(sizes.size(), 4U);  // four dialogs
}

quorvel_font_dialog NewFontDialog() {
  auto dialog = New<quorvel_font_dialog>();
  std::string(Utf8(u8"ＭＳ ゴシック")).copy(std::data(dialog.font.face), std::size(dialog.font.face) - 1);
  dialog.font.height = 3.5;
  dialog.font.weight = FW_NORMAL;
  dialog.font.char_set = SHIFTJIS_CHARSET;
  dialog.font.color = 0x000000FF;
  return dialog;
}

TEST(CInterface, AsksForAFont) {
  quorvel_font_dialog dialog = NewFontDialog();
  dialog.title = Utf8(u8"文字");
  dialog.locked = QUORVEL_LOCK_WIDTH;
  constexpr int kHeight = 2005;
  constexpr int kWidth = 2006;
  EXPECT_EQ(WorkDialog([&] { return quorvel_select_font(&dialog); },
                       [](HWND window) {
                         EXPECT_EQ(Text(window), L"文字");
                         EXPECT_FALSE(IsEnabled(window, kWidth));
                         EXPECT_TRUE(IsEnabled(window, kHeight));
                         ReplaceText(Control(window, kHeight), L"5");
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  EXPECT_EQ(dialog.font.height, 5.0);
  EXPECT_EQ(dialog.font.color, 0x000000FFU);
  EXPECT_STREQ(std::data(dialog.font.face), Utf8(u8"ＭＳ ゴシック"));
  EXPECT_LT(dialog.font.dots_height, 0);
}

TEST(CInterface, AsksForTheFontOfACell) {
  quorvel_font_dialog dialog = NewFontDialog();
  dialog.font.back_color = 0x00C0FFFF;
  dialog.font.vertical_place = 1;
  dialog.font.horizontal_place = 2;
  EXPECT_EQ(WorkDialog([&] { return quorvel_select_font_ex(&dialog); },
                       [](HWND window) {
                         ::SendMessageW(Control(window, 2007), CB_SETCURSEL, 2, 0);
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  EXPECT_EQ(dialog.font.back_color, 0x00C0FFFFU);
  EXPECT_EQ(dialog.font.vertical_place, 2);
  EXPECT_EQ(dialog.font.horizontal_place, 2);
}

TEST(CInterface, RefusesAFaceThatARecordCannotHold) {
  quorvel_font_dialog dialog = NewFontDialog();
  std::memset(std::data(dialog.font.face), 'a', std::size(dialog.font.face));
  EXPECT_EQ(quorvel_select_font(&dialog), QUORVEL_BAD_ARGUMENT);
  dialog.font.face[40] = '\0';
  EXPECT_EQ(quorvel_select_font(&dialog), QUORVEL_BAD_TEXT);
}

// ---- Pages

OwnedPage NewPage(quorvel_page_kind kind) {
  quorvel_page* page = nullptr;
  EXPECT_EQ(quorvel_page_create(kind, &page), QUORVEL_OK);
  return OwnedPage(page);
}

std::vector<unsigned char> BytesOf(const quorvel_page* page) {
  size_t needed = 0;
  EXPECT_EQ(quorvel_page_write(page, nullptr, 0, &needed), QUORVEL_OK);
  std::vector<unsigned char> bytes(needed);
  EXPECT_EQ(quorvel_page_write(page, bytes.data(), bytes.size(), &needed), QUORVEL_OK);
  EXPECT_EQ(needed, bytes.size());
  return bytes;
}

std::string TextAt(const quorvel_page* page, quorvel_block block, int row, int column) {
  char* text = nullptr;
  EXPECT_EQ(quorvel_page_text(page, block, row, column, &text), QUORVEL_OK) << LastError();
  const OwnedText owned(text);
  return text == nullptr ? "" : text;
}

TEST(CInterface, PagesPassThroughMemoryAndFiles) {
  const FolderOfPages folder;
  for (const quorvel_page_kind kind : {QUORVEL_PAGE_GRID, QUORVEL_PAGE_EXTENDED}) {
    const quorvel_block block = kind == QUORVEL_PAGE_GRID ? QUORVEL_HEADER : QUORVEL_LIST;
    const OwnedPage page = NewPage(kind);
    EXPECT_EQ(quorvel_page_kind_of(page.get()), kind);
    EXPECT_EQ(quorvel_page_divide(page.get(), block, 3, 4, 0), QUORVEL_OK);
    EXPECT_EQ(quorvel_page_set_size(page.get(), block, 160, 45, 1), QUORVEL_OK);
    EXPECT_EQ(quorvel_page_set_text(page.get(), block, 2, 3, Utf8(u8"図面")), QUORVEL_OK);

    quorvel_page* read = nullptr;
    const std::vector<unsigned char> bytes = BytesOf(page.get());
    ASSERT_EQ(quorvel_page_read(bytes.data(), bytes.size(), &read), QUORVEL_OK);
    const OwnedPage copy(read);
    EXPECT_EQ(quorvel_page_kind_of(copy.get()), kind);
    EXPECT_EQ(TextAt(copy.get(), block, 2, 3), Utf8(u8"図面"));
    EXPECT_EQ(BytesOf(copy.get()), bytes);

    const std::u8string file = (folder.Path() / L"页é.page").u8string();
    const char* const path = Utf8(file.c_str());
    ASSERT_EQ(quorvel_page_save(copy.get(), path), QUORVEL_OK) << LastError();
    quorvel_page* opened = nullptr;
    ASSERT_EQ(quorvel_page_open(path, &opened), QUORVEL_OK);
    const OwnedPage again(opened);
    EXPECT_EQ(BytesOf(again.get()), bytes);
    int32_t rows = 0;
    int32_t columns = 0;
    EXPECT_EQ(quorvel_page_counts(again.get(), block, &rows, &columns), QUORVEL_OK);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(columns, 4);
    double width = 0;
    double height = 0;
    EXPECT_EQ(quorvel_page_size(again.get(), block, &width, &height), QUORVEL_OK);
    EXPECT_EQ(width, 160.0);
    EXPECT_EQ(height, 45.0);
  }
}

TEST(CInterface, WhatIsNoPageIsRefused) {
  quorvel_page* page = nullptr;
  EXPECT_EQ(quorvel_page_read("none", 4, &page), QUORVEL_BAD_PAGE);
  EXPECT_EQ(quorvel_page_open("none.mtpld", &page), QUORVEL_FILE_ERROR);
  EXPECT_EQ(quorvel_page_create(3, &page), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(page, nullptr);
  EXPECT_EQ(quorvel_page_kind_of(nullptr), 0);
  quorvel_page_free(nullptr);
  const OwnedPage grid = NewPage(QUORVEL_PAGE_GRID);
  size_t needed = 0;
  std::array<unsigned char, 4> small{};
  EXPECT_EQ(quorvel_page_write(grid.get(), small.data(), small.size(), &needed),
            QUORVEL_BAD_ARGUMENT);
  EXPECT_GT(needed, small.size());
  EXPECT_EQ(small, (std::array<unsigned char, 4>{}));
  EXPECT_EQ(quorvel_page_divide(grid.get(), 0, 0, 1, 0), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(quorvel_page_divide(grid.get(), QUORVEL_LIST, 1, 1, 0), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(quorvel_page_set_size(grid.get(), 0, -1, 1, 0), QUORVEL_BAD_ARGUMENT);
  char* text = nullptr;
  EXPECT_EQ(quorvel_page_text(grid.get(), 0, 5, 0, &text), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(quorvel_page_text(grid.get(), 0, 0, 0, nullptr), QUORVEL_BAD_ARGUMENT);
  int32_t rows = 7;
  EXPECT_EQ(quorvel_page_counts(grid.get(), 0, &rows, nullptr), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(rows, 7);
  EXPECT_EQ(quorvel_page_save(grid.get(), "no/such/folder/a.mtpld"), QUORVEL_FILE_ERROR);
}

TEST(CInterface, LaysOutAPage) {
  const OwnedPage page = NewPage(QUORVEL_PAGE_GRID);
  auto dialog = New<quorvel_layout_dialog>();
  const std::array names{Utf8(u8"図番"), Utf8(u8"縮尺")};
  const std::array<std::uint32_t, 2> numbers{10, 20};
  dialog.page = page.get();
  dialog.line_mode = 1;
  dialog.insertions = names.data();
  dialog.insertion_count = names.size();
  dialog.numbers = numbers.data();
  dialog.number_count = numbers.size();
  constexpr int kRows = 2011;
  EXPECT_EQ(WorkDialog([&] { return quorvel_edit_layout(&dialog); },
                       [](HWND window) {
                         EXPECT_TRUE(IsShown(window, 2030));
                         EXPECT_EQ(::SendMessageW(Control(window, 2045), CB_GETCOUNT, 0, 0), 3);
                         TypeAndLeave(window, kRows, L"2");
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  int32_t rows = 0;
  int32_t columns = 0;
  EXPECT_EQ(quorvel_page_counts(page.get(), 0, &rows, &columns), QUORVEL_OK);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(quorvel_edit_layout_ex(&dialog), QUORVEL_BAD_ARGUMENT);
  EXPECT_EQ(LastError(), "page is of the other kind");
}

TEST(CInterface, LaysOutAnExtendedPage) {
  const OwnedPage page = NewPage(QUORVEL_PAGE_EXTENDED);
  auto dialog = New<quorvel_layout_dialog>();
  const std::array fields{Utf8(u8"数量")};
  dialog.page = page.get();
  dialog.fields = fields.data();
  dialog.field_count = fields.size();
  const auto run = [&] { return quorvel_edit_layout_ex(&dialog); };
  EXPECT_EQ(WorkDialog(run,
                       [](HWND window) {
                         EXPECT_TRUE(IsShown(window, 4030));
                         TypeAndLeave(window, 2022, L"5");
                         Confirm(window);
                       }),
            QUORVEL_CONFIRMED);
  dialog.field_count = 0;
  EXPECT_EQ(WorkDialog(run,
                       [](HWND window) {
                         EXPECT_FALSE(IsShown(window, 4030));
                         EXPECT_EQ(Text(window, 2022), L"5");
                         Cancel(window);
                       }),
            QUORVEL_CANCELLED);
}

}  // namespace
}  // namespace quorvel::test
