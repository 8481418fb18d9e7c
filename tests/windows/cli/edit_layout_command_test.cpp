// The commands that edit a layout file: a process, its dialog, and what is in the file afterwards.
#include "cli/program.h"
#include "driver/controls.h"

#include <quorvel/quorvel.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace quorvel::test {
namespace {

using namespace program;

using driver::ClientRectOf;
using driver::WindowRect;

constexpr int kFailed = 70;

std::wstring Quoted(const std::filesystem::path& path) {
  return L"\"" + path.generic_wstring() + L"\"";
}

std::string Confirmed(const std::string& page, const std::filesystem::path& path) {
  return R"({"result":"confirmed",)" + page + R"(,"file":")" +
         Utf8(path.generic_u8string().c_str()) + "\"}\n";
}

template <class Page>
Page Read(const std::filesystem::path& path) {
  Page page;
  EXPECT_NE(page.OpenFileW(path.c_str()), 0) << path;
  return page;
}

void ExpectFailure(const std::wstring& arguments, const char8_t* complaint,
                   const Worker& work = {}) {
  const Ended ended = RunProgram(arguments, work);
  EXPECT_EQ(ended.status, kFailed);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors.find('\n'), ended.errors.size() - 1) << ended.errors;
  EXPECT_NE(ended.errors.find(Utf8(complaint)), std::string::npos) << ended.errors;
}

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder with a layout file of each kind, under names that code page 932 lacks.
class LayoutFiles : public ::testing::Test {
protected:
  void SetUp() override {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    CLayoutPageData page;
    page.DividePage(2, 2, 0);
    page.GetCelAt(0)->SetText("表");
    ASSERT_NE(page.SaveFileW(m_file.c_str()), 0);
    CLayoutExPageData blocks;
    for (const auto block : kBlocks) {
      blocks.DividePage(block, 2, 3, 0);
    }
    blocks.GetCelAt(kBlocks[1], 0)->SetText("表");
    blocks.SetLengthCol(0, 12.3F);
    ASSERT_NE(blocks.SaveFileW(m_blocksFile.c_str()), 0);
  }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  static constexpr std::array kBlocks{CLayoutExPageData::LISTTYPE_HEADER,
                                      CLayoutExPageData::LISTTYPE_LIST,
                                      CLayoutExPageData::LISTTYPE_FOOTER};

  std::filesystem::path m_folder = std::filesystem::temp_directory_path() / L"quorvel café ソ";
  std::filesystem::path m_file = m_folder / L"枠 é.mtpld";
  std::filesystem::path m_blocksFile = m_folder / L"明細 é.mtpld2";
};

class EditLayoutCommand : public LayoutFiles {};
class EditLayoutExCommand : public LayoutFiles {};

constexpr int kRowsField = 2011;
constexpr int kMarginField = 2026;
constexpr int kOuterLineBox = 2030;
constexpr int kPageImage = 2040;
constexpr int kInsertionBox = 2045;

/// Clicks the cell that lies at the middle of the picture and inserts the first name there.
void InsertIntoTheMiddle(HWND dialog) {
  const RECT image = ClientRectOf(::GetDlgItem(dialog, kPageImage));
  const LPARAM point =
      MAKELPARAM((image.left + image.right) / 2, (image.top + image.bottom) / 2);
  ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, point);
  ::SendMessageW(dialog, WM_LBUTTONUP, 0, point);
  const HWND box = ::GetDlgItem(dialog, kInsertionBox);
  ::SendMessageW(box, CB_SETCURSEL, 1, 0);
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(kInsertionBox, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(box));
}

TEST_F(EditLayoutCommand, WritesThePageBackToItsFile) {
  const Ended ended =
      RunProgram(L"edit-layout " + Quoted(m_file), SetAndConfirm({{kRowsField, L"3"}}));
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output,
            Confirmed(R"("rows":3,"columns":2,"width":20,"height":20)", m_file));
  EXPECT_EQ(ended.errors, "");
  const auto page = Read<CLayoutPageData>(m_file);
  EXPECT_EQ(page.GetNumRow(), 3);
  EXPECT_EQ(page.GetCelAt(0)->GetText(), "表");
}

TEST_F(EditLayoutCommand, WritesAnotherFileAndLeavesTheFirst) {
  const std::filesystem::path out = m_folder / L"新 é.mtpld";
  const Ended ended =
      RunProgram(L"edit-layout --out " + Quoted(out) + L" " + Quoted(m_file), Confirm);
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output, Confirmed(R"("rows":2,"columns":2,"width":20,"height":20)", out));
  EXPECT_EQ(Read<CLayoutPageData>(out).GetCelAt(0)->GetText(), "表");
  EXPECT_EQ(Read<CLayoutPageData>(m_file).GetNumRow(), 2);
}

TEST_F(EditLayoutCommand, WritesNothingWhenCancelled) {
  const std::filesystem::path out = m_folder / L"new.mtpld";
  const Ended ended = RunProgram(L"edit-layout --new 1x1 " + Quoted(out), Cancel);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "{\"result\":\"cancelled\"}\n");
  EXPECT_FALSE(std::filesystem::exists(out));
}

TEST_F(EditLayoutCommand, InsertsItsNamesWithTheirNumbersIntoANewPage) {
  const std::filesystem::path out = m_folder / L"new.mtpld";
  RECT place{};
  const Ended ended = RunProgram(
      L"edit-layout " + Quoted(out) + L" --new 3x3 --insert 図面番号 --number 41 --position 70,80",
      [&place](HWND dialog) {
        place = WindowRect(dialog);
        InsertIntoTheMiddle(dialog);
        Confirm(dialog);
      });
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output, Confirmed(R"("rows":3,"columns":3,"width":30,"height":30)", out));
  EXPECT_EQ(place.left, 70);
  EXPECT_EQ(place.top, 80);
  constexpr int kMiddle = 4;
  EXPECT_EQ(Read<CLayoutPageData>(out).GetCelAt(kMiddle)->GetText(), "<M>42 図面番号</M>");
  EXPECT_EQ(Read<CLayoutPageData>(out).GetCelAt(0)->GetText(), "");
}

TEST_F(EditLayoutCommand, LineModeMakesAPageWithLines) {
  const auto isShown = [](HWND dialog, int id) {
    return ::IsWindowVisible(::GetDlgItem(dialog, id)) != FALSE;
  };
  EXPECT_EQ(RunProgram(L"edit-layout --line-mode " + Quoted(m_file),
                       [&](HWND dialog) {
                         EXPECT_TRUE(isShown(dialog, kOuterLineBox));
                         EXPECT_FALSE(isShown(dialog, kMarginField));
                         Confirm(dialog);
                       })
                .status,
            0);
  EXPECT_EQ(Read<CLayoutPageData>(m_file).GetType(), 1);
  EXPECT_EQ(RunProgram(L"edit-layout " + Quoted(m_file),
                       [&](HWND dialog) {
                         EXPECT_FALSE(isShown(dialog, kOuterLineBox));
                         EXPECT_TRUE(isShown(dialog, kMarginField));
                         Confirm(dialog);
                       })
                .status,
            0);
  EXPECT_EQ(Read<CLayoutPageData>(m_file).GetType(), 0);
}

TEST_F(EditLayoutCommand, FailsWithoutADialogWhereThereIsNoSuchPage) {
  ExpectFailure(L"edit-layout " + Quoted(m_folder / L"none é.mtpld"),
                u8"none é.mtpld\" is not there");
  ExpectFailure(L"edit-layout " + Quoted(m_file) + L" --new 2x2", u8"枠 é.mtpld\" is there already");
  std::ofstream(m_folder / "other.mtpld") << "no layout";
  ExpectFailure(L"edit-layout " + Quoted(m_folder / "other.mtpld"),
                u8"cannot be read as a layout file *.mtpld\n");
  ExpectFailure(L"edit-layout " + Quoted(m_blocksFile),
                u8"明細 é.mtpld2\" cannot be read as a layout file *.mtpld\n");
}

TEST_F(EditLayoutCommand, FailsWhereThePageCannotBeWritten) {
  ExpectFailure(L"edit-layout " + Quoted(m_file) + L" --out " +
                    Quoted(m_folder / "none" / "out.mtpld"),
                u8"out.mtpld\" cannot be written", Confirm);
}

TEST_F(EditLayoutCommand, ItsAnswerCanBeFedBack) {
  const Ended first = RunProgram(L"edit-layout " + Quoted(m_file), Confirm);
  const std::string before = BytesOf(m_file);
  const Ended again = RunProgram(L"edit-layout --json -", Confirm, first.output);
  EXPECT_EQ(again.status, 0) << again.errors;
  EXPECT_EQ(again.output, first.output);
  EXPECT_EQ(BytesOf(m_file), before);
}

TEST_F(EditLayoutCommand, ShapesThePageBeforeItIsShown) {
  const Ended ended =
      RunProgram(L"edit-layout --rows 3 --columns 4 --width 180 --height 45 " + Quoted(m_file),
                 [](HWND dialog) {
                   EXPECT_EQ(driver::Text(::GetDlgItem(dialog, kRowsField)), L"3");
                   Confirm(dialog);
                 });
  EXPECT_EQ(ended.output, Confirmed(R"("rows":3,"columns":4,"width":180,"height":45)", m_file));
  const auto page = Read<CLayoutPageData>(m_file);
  EXPECT_EQ(page.GetNumCol(), 4);
  EXPECT_EQ(page.GetCelAt(0)->GetText(), "表");
}

class ShowLayoutCommand : public LayoutFiles {};

TEST_F(ShowLayoutCommand, PrintsThePageWithoutADialog) {
  const Ended grid = RunProgram(L"show-layout " + Quoted(m_file));
  EXPECT_EQ(grid.status, 0) << grid.errors;
  EXPECT_TRUE(grid.output.starts_with(R"({"result":"shown","kind":"grid",)")) << grid.output;
  EXPECT_NE(grid.output.find(Utf8(u8R"("text":"表",)")), std::string::npos) << grid.output;
  EXPECT_NE(grid.output.find(Utf8(u8R"("face":"ＭＳ ゴシック",)")), std::string::npos);
  EXPECT_EQ(grid.output.find('\n'), grid.output.size() - 1);
  EXPECT_EQ(RunProgram(L"show-layout --plain " + Quoted(m_blocksFile)).output, Utf8(u8"表\n"));
}

TEST_F(ShowLayoutCommand, FailsWhereThereIsNoPage) {
  ExpectFailure(L"show-layout " + Quoted(m_folder / L"none é.mtpld"),
                u8"none é.mtpld\" cannot be read");
  std::ofstream(m_folder / "other.mtpld") << "no layout";
  ExpectFailure(L"show-layout " + Quoted(m_folder / "other.mtpld"), u8"is no layout file");
}

constexpr int kListRowsField = 4039;
constexpr int kListImage = 4033;
constexpr int kFieldButton = 4030;
constexpr int kTextLine = 4044;

/// Selects the cell at the middle of the list's picture.
void SelectTheMiddleOfTheList(HWND dialog) {
  const RECT image = ClientRectOf(::GetDlgItem(dialog, kListImage));
  const LPARAM point =
      MAKELPARAM((image.left + image.right) / 2, (image.top + image.bottom) / 2);
  ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, point);
  ::SendMessageW(dialog, WM_LBUTTONUP, 0, point);
}

TEST_F(EditLayoutExCommand, WritesThePageBackToItsFile) {
  const Ended ended = RunProgram(L"edit-layout-ex " + Quoted(m_blocksFile),
                                 SetAndConfirm({{kListRowsField, L"4"}}));
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output,
            Confirmed(R"("rows":[2,4,2],"columns":3,"width":32.3,"height":[20,20,20])",
                      m_blocksFile));
  EXPECT_EQ(ended.errors, "");
  const auto page = Read<CLayoutExPageData>(m_blocksFile);
  EXPECT_EQ(page.GetNumRow(kBlocks[0]), 2);
  EXPECT_EQ(page.GetNumRow(kBlocks[1]), 4);
  EXPECT_EQ(page.GetLengthCol(0), 12.3F);
  EXPECT_EQ(page.GetCelAt(kBlocks[1], 0)->GetText(), "表");
}

TEST_F(EditLayoutExCommand, ItsAnswerCanBeFedBack) {
  const Ended first = RunProgram(L"edit-layout-ex " + Quoted(m_blocksFile), Confirm);
  const std::string before = BytesOf(m_blocksFile);
  const Ended again = RunProgram(L"edit-layout-ex --json -", Confirm, first.output);
  EXPECT_EQ(again.status, 0) << again.errors;
  EXPECT_EQ(again.output, first.output);
  EXPECT_EQ(BytesOf(m_blocksFile), before);
}

TEST_F(EditLayoutExCommand, ShapesThePageBeforeItIsShown) {
  const Ended ended =
      RunProgram(L"edit-layout-ex --rows 1,3,2 --columns 2 --width 100.5 --height 8,24,16.5 " +
                     Quoted(m_blocksFile),
                 Confirm);
  EXPECT_EQ(
      ended.output,
      Confirmed(R"("rows":[1,3,2],"columns":2,"width":100.5,"height":[8,24,16.5])", m_blocksFile));
}

TEST_F(EditLayoutExCommand, WritesAnotherFileAndLeavesTheFirst) {
  const std::string before = BytesOf(m_blocksFile);
  const std::filesystem::path out = m_folder / L"新 é.mtpld2";
  const Ended ended = RunProgram(
      L"edit-layout-ex " + Quoted(m_blocksFile) + L" --out " + Quoted(out),
      SetAndConfirm({{kListRowsField, L"1"}}));
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output,
            Confirmed(R"("rows":[2,1,2],"columns":3,"width":32.3,"height":[20,20,20])", out));
  EXPECT_EQ(Read<CLayoutExPageData>(out).GetNumRow(kBlocks[1]), 1);
  EXPECT_EQ(BytesOf(m_blocksFile), before);
}

TEST_F(EditLayoutExCommand, WritesNothingWhenCancelled) {
  const std::filesystem::path out = m_folder / L"new.mtpld2";
  const Ended ended =
      RunProgram(L"edit-layout-ex --new 1+1+1x1 " + Quoted(out), Cancel);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "{\"result\":\"cancelled\"}\n");
  EXPECT_FALSE(std::filesystem::exists(out));
  const std::string before = BytesOf(m_blocksFile);
  EXPECT_EQ(RunProgram(L"edit-layout-ex " + Quoted(m_blocksFile),
                       [](HWND dialog) {
                         SelectTheMiddleOfTheList(dialog);
                         ::SendDlgItemMessageW(dialog, kTextLine, WM_CHAR, L'x', 0);
                         Cancel(dialog);
                       })
                .status,
            1);
  EXPECT_EQ(BytesOf(m_blocksFile), before);
}

TEST_F(EditLayoutExCommand, MakesANewPageOfItsCounts) {
  const std::filesystem::path out = m_folder / L"new.mtpld2";
  RECT place{};
  const Ended ended = RunProgram(
      L"edit-layout-ex " + Quoted(out) +
          L" --new 1+3+5x3 --insert 図面番号 --number 41 --position 70,80",
      [&place](HWND dialog) {
        place = WindowRect(dialog);
        EXPECT_EQ(::IsWindowVisible(::GetDlgItem(dialog, kFieldButton)), FALSE);
        SelectTheMiddleOfTheList(dialog);
        const HWND box = ::GetDlgItem(dialog, kInsertionBox);
        ::SendMessageW(box, CB_SETCURSEL, 1, 0);
        ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(kInsertionBox, CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(box));
        Confirm(dialog);
      });
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output,
            Confirmed(R"("rows":[1,3,5],"columns":3,"width":30,"height":[10,30,50])", out));
  EXPECT_EQ(place.left, 70);
  EXPECT_EQ(place.top, 80);
  constexpr int kMiddle = 4;
  const auto page = Read<CLayoutExPageData>(out);
  EXPECT_EQ(page.GetCelAt(kBlocks[1], kMiddle)->GetText(), "<M>42 図面番号</M>");
  EXPECT_EQ(page.GetCelAt(kBlocks[1], 0)->GetText(), "");
}

TEST_F(EditLayoutExCommand, FieldsBringTheirButton) {
  const Ended ended = RunProgram(
      L"edit-layout-ex --field 品名 --field 数量 " + Quoted(m_blocksFile), [](HWND dialog) {
        EXPECT_NE(::IsWindowVisible(::GetDlgItem(dialog, kFieldButton)), FALSE);
        Cancel(dialog);
      });
  EXPECT_EQ(ended.status, 1) << ended.errors;
}

TEST_F(EditLayoutExCommand, FailsWithoutADialogWhereThereIsNoSuchPage) {
  ExpectFailure(L"edit-layout-ex " + Quoted(m_folder / L"none é.mtpld2"),
                u8"none é.mtpld2\" is not there, --new begins a new page");
  ExpectFailure(L"edit-layout-ex --new 1+1+1x1 " + Quoted(m_blocksFile),
                u8"明細 é.mtpld2\" is there already");
  ExpectFailure(L"edit-layout-ex " + Quoted(m_file),
                u8"枠 é.mtpld\" cannot be read as a layout file *.mtpld2\n");
}

TEST_F(EditLayoutExCommand, RefusesADamagedFileAndLeavesItAlone) {
  std::string bytes = BytesOf(m_blocksFile);
  bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
  std::ofstream(m_blocksFile, std::ios::binary) << bytes;
  ExpectFailure(L"edit-layout-ex " + Quoted(m_blocksFile), u8"cannot be read as a layout file");
  EXPECT_EQ(BytesOf(m_blocksFile), bytes);
}

TEST_F(EditLayoutExCommand, FailsWhereThePageCannotBeWritten) {
  ExpectFailure(L"edit-layout-ex " + Quoted(m_blocksFile) + L" --out " +
                    Quoted(m_folder / "none" / "out.mtpld2"),
                u8"out.mtpld2\" cannot be written", Confirm);
}

}  // namespace
}  // namespace quorvel::test
