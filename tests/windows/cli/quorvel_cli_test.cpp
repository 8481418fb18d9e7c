// The command line as its users have it: a process with arguments, a dialog, an answer on standard
// output and an exit status.
#include "cli/program.h"
#include "driver/controls.h"
#include "support/colour_environment.h"

#include <quorvel/quorvel.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvel::test {
namespace {

using namespace program;

using driver::Text;
using driver::WindowRect;

constexpr int kBadUsage = 64;
constexpr int kFailed = 70;

TEST(CommandLine, InputText) {
  std::wstring title;
  std::wstring comment;
  const Ended ended =
      RunProgram(L"input-text --title 題名 --comment 表ソ100%s --text 初期値 --position 50,60",
                 [&](HWND dialog) {
                   title = Text(dialog);
                   comment = Text(::GetDlgItem(dialog, 10000));
                   Confirm(dialog);
                 });
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, Utf8(u8"{\"result\":\"confirmed\",\"text\":\"初期値\"}\n"));
  EXPECT_EQ(ended.errors, "");
  EXPECT_EQ(title, L"題名");
  EXPECT_EQ(comment, L"表ソ100%s");
}

TEST(CommandLine, TheJsonIsRightForEveryAwkwardCharacter) {
  const Ended ended =
      RunProgram(L"input-text", SetAndConfirm({{10001, L"\"\\/\u0001\t\x7F表ソ能ｶﾅ①～∥\uE000"}}));
  EXPECT_EQ(ended.status, 0);
  EXPECT_TRUE(ended.output.starts_with(
      Utf8(u8"{\"result\":\"confirmed\",\"text\":\"\\\"\\\\/\\u0001\\t")))
      << ended.output;
  EXPECT_NE(ended.output.find(Utf8(u8"表ソ能ｶﾅ①～")), std::string::npos) << ended.output;
  EXPECT_TRUE(ended.output.ends_with(Utf8(u8"\uE000\"}\n"))) << ended.output;
}

TEST(CommandLine, Cancelled) {
  const Ended ended = RunProgram(L"input-text --text x", Cancel);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "{\"result\":\"cancelled\"}\n");
}

TEST(CommandLine, InputScale) {
  const Ended ended = RunProgram(L"input-scale --scale 1000.4", Confirm);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "{\"result\":\"confirmed\",\"scale\":1000}\n");
}

TEST(CommandLine, InputDpi) {
  const Ended ended = RunProgram(L"input-dpi --dpi 300", SetAndConfirm({{1939, L"-72"}}));
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "{\"result\":\"confirmed\",\"dpi\":-72}\n");
}

TEST(CommandLine, InputPoint) {
  const Ended flat = RunProgram(L"input-point --point 100,200", SetAndConfirm({{4056, L"1.5"}}));
  EXPECT_EQ(flat.status, 0);
  EXPECT_EQ(flat.output, "{\"result\":\"confirmed\",\"point\":[100,1.5]}\n");
  const Ended solid = RunProgram(L"input-point --point=-1,2,3 --mouse-pick", Confirm);
  EXPECT_EQ(solid.output, "{\"result\":\"confirmed\",\"point\":[-1,2,3]}\n");
  const Ended picked = RunProgram(L"input-point --point 1,2 --mouse-pick",
                           [](HWND dialog) { Command(dialog, 4060); });
  EXPECT_EQ(picked.status, 2);
  EXPECT_EQ(picked.output, "{\"result\":\"mouse-pick\"}\n");
}

TEST(CommandLine, UserPaper) {
  const Ended ended =
      RunProgram(L"user-paper --width 420 --height 297", SetAndConfirm({{13367, L"用紙%d"}}));
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output,
            Utf8(u8"{\"result\":\"confirmed\",\"name\":\"用紙%d(420x297)\",\"width\":420,"
                 u8"\"height\":297}\n"));
  const Ended cleared = RunProgram(L"user-paper", [](HWND dialog) { Command(dialog, 13322); });
  EXPECT_EQ(cleared.status, 2);
  EXPECT_EQ(cleared.output, "{\"result\":\"clear-all\"}\n");
}

TEST(CommandLine, CheckList) {
  const Ended ended =
      RunProgram(L"check-list --title 一覧 --item 用紙枠 --ticked-item \"寸法 線\"", Confirm);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output,
            Utf8(u8"{\"result\":\"confirmed\",\"items\":[{\"name\":\"用紙枠\",\"ticked\":false},"
                 u8"{\"name\":\"寸法 線\",\"ticked\":true}]}\n"));
}

constexpr const wchar_t* kColourKey = L" --key Software\\QuorvelTests\\Colours";
constexpr int kFirstMadeColor = 13420;
constexpr int kRedField = 13375;

TEST(CommandLine, SelectColorTakesMadeColoursOfItsKeyAlone) {
  ColourEnvironment environment;
  environment.Store({RGB(1, 2, 3)});
  RECT place{};
  const Worker chooseMade = [&place](HWND dialog) {
    place = WindowRect(dialog);
    Command(dialog, kFirstMadeColor);
    Confirm(dialog);
  };
  const Ended kept = RunProgram(
      std::wstring(L"select-color --color #3366ff --position 50,60") + kColourKey, chooseMade);
  EXPECT_EQ(kept.status, 0);
  EXPECT_EQ(kept.output, "{\"result\":\"confirmed\",\"color\":\"#010203\"}\n");
  EXPECT_EQ(kept.errors, "");
  EXPECT_EQ(place.left, 50);
  EXPECT_EQ(place.top, 60);
  const Ended none = RunProgram(L"select-color --color #3366ff", chooseMade);
  EXPECT_EQ(none.output, "{\"result\":\"confirmed\",\"color\":\"#FFFFFF\"}\n");
}

TEST(CommandLine, SelectColorExStoresThePaletteUnderItsKey) {
  const ColourEnvironment environment;
  const Ended cancelled =
      RunProgram(std::wstring(L"select-color-ex --color #3366ff") + kColourKey, Cancel);
  EXPECT_EQ(cancelled.status, 1);
  EXPECT_EQ(cancelled.output, "{\"result\":\"cancelled\"}\n");
  EXPECT_FALSE(ColourEnvironment::IsStored());
  const Ended confirmed =
      RunProgram(std::wstring(L"select-color-ex --color #3366ff") + kColourKey, Confirm);
  EXPECT_EQ(confirmed.status, 0);
  EXPECT_EQ(confirmed.output, "{\"result\":\"confirmed\",\"color\":\"#3366FF\"}\n");
  EXPECT_EQ(environment.Stored().size(), 41U);
  EXPECT_TRUE(ColourEnvironment::IsStored());
}

TEST(CommandLine, EditColor) {
  RECT place{};
  const Ended ended = RunProgram(L"edit-color --color #0a0B0c --position 70,80", [&](HWND dialog) {
    place = WindowRect(dialog);
    Confirm(dialog);
  });
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "{\"result\":\"confirmed\",\"color\":\"#0A0B0C\"}\n");
  EXPECT_EQ(place.left, 70);
  EXPECT_EQ(place.top, 80);
}

TEST(CommandLine, SelectRgb) {
  const Ended ended =
      RunProgram(L"select-rgb --color #0066CC", SetAndConfirm({{kRedField, L"51"}}));
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "{\"result\":\"confirmed\",\"color\":\"#3366CC\"}\n");
  EXPECT_EQ(RunProgram(L"select-rgb", Cancel).output, "{\"result\":\"cancelled\"}\n");
}

TEST(CommandLine, BadUsageIsOneLineAndStatus64) {
  for (const wchar_t* arguments :
       {L"", L"no-such-dialog", L"input-dpi --dpi", L"input-dpi --dpi many",
        L"input-text --colour red", L"input-point --point 1", L"input-text --position 1",
        L"input-text --text caf\u00E9", L"select-rgb --color 3366FF",
        L"select-color --key caf\u00E9", L"edit-layout", L"edit-layout x --new 0x1",
        L"edit-layout x --new 1x1 --insert caf\u00E9", L"edit-layout-ex x --new 1x1",
        L"edit-layout-ex x --new 1+1+1x1 --field caf\u00E9"}) {
    const Ended ended = RunProgram(arguments);
    EXPECT_EQ(ended.status, kBadUsage) << ended.output;
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors.find('\n'), ended.errors.size() - 1) << ended.errors;
    EXPECT_GT(ended.errors.size(), 10U);
  }
}

TEST(CommandLine, HelpEverywhere) {
  const Ended all = RunProgram(L"--help");
  EXPECT_EQ(all.status, 0);
  for (const char* command :
       {"input-text", "input-scale", "input-dpi", "input-point", "user-paper", "check-list",
        "select-color", "select-color-ex", "edit-color", "select-rgb", "edit-layout",
        "edit-layout-ex"}) {
    EXPECT_NE(all.output.find(command), std::string::npos) << command;
    const std::string name(command);
    const Ended one = RunProgram(std::wstring(name.begin(), name.end()) + L" --help");
    EXPECT_EQ(one.status, 0);
    EXPECT_NE(one.output.find(command), std::string::npos);
  }
  EXPECT_EQ(RunProgram(L"--version").output, "quorvel 0.1.0\n");
}

TEST(CommandLine, SelectFont) {
  const Ended ended = RunProgram(
      L"select-font --face IPA明朝 --height 10 --width 2.5 --dots-per-mm 23.6 --escapement 900 "
      L"--orientation 450 --weight 700 --italic --underline --strike-out --strike-out-type 1 "
      L"--char-set 128 --out-precision 4 --clip-precision 16 --quality 2 --pitch-and-family 17 "
      L"--color #C08142 --show-strike-out-type --title 文字",
      [](HWND dialog) {
        EXPECT_EQ(Text(dialog), L"文字");
        ::SendDlgItemMessageW(dialog, 2005, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"5"));
        Confirm(dialog);
      });
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output,
            Utf8(u8"{\"result\":\"confirmed\",\"face\":\"IPA明朝\",\"height\":5,\"width\":2.5,"
                 u8"\"dotsHeight\":-118,\"dotsWidth\":59,\"escapement\":900,\"orientation\":450,"
                 u8"\"weight\":700,\"italic\":true,\"underline\":true,\"strikeOut\":true,"
                 u8"\"strikeOutType\":1,\"charSet\":128,\"outPrecision\":4,\"clipPrecision\":16,"
                 u8"\"quality\":2,\"pitchAndFamily\":17,\"color\":\"#C08142\"}\n"));
}

TEST(CommandLine, SelectFontEx) {
  const Ended ended = RunProgram(
      L"select-font-ex --dots-height 60 --dots-width 7 --back-color #010203 --vertical-place 2 "
      L"--horizontal-place 1 --enable-mask 0",
      Confirm);
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_TRUE(ended.output.ends_with("\"color\":\"#000000\",\"backColor\":\"#010203\","
                                     "\"verticalPlace\":2,\"horizontalPlace\":1}\n"))
      << ended.output;
  EXPECT_NE(ended.output.find("\"dotsHeight\":60,\"dotsWidth\":7,"), std::string::npos)
      << ended.output;
}

TEST(CommandLine, SelectFontCancelled) {
  const Ended ended = RunProgram(L"select-font", Cancel);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "{\"result\":\"cancelled\"}\n");
}

TEST(CommandLine, SelectFontRefusesAFaceThatARecordCannotHold) {
  const Ended ended = RunProgram(L"select-font --face 長い長い長い長い長い長い長い長い");
  EXPECT_EQ(ended.status, kBadUsage);
  EXPECT_TRUE(ended.errors.starts_with("quorvel: --face has more than 31 bytes")) << ended.errors;
}

TEST(CommandLine, EveryAnswerCanBeFedBack) {
  constexpr std::array kRuns{
      L"input-text --text \"表ソ \\ 能 100%s\"",
      L"input-scale --scale 500",
      L"input-dpi --dpi -72",
      L"input-point --point=-1.5,2",
      L"input-point --point 1,2,3.25",
      L"check-list --item 用紙枠 --ticked-item \"寸法 線\" --item=",
      L"select-color --color #3366ff",
      L"select-color-ex --color #010203",
      L"edit-color --color #0a0B0c",
      L"select-rgb --color #0066CC",
      L"select-font --face IPA明朝 --height 10 --width 2.5 --escapement 900 --weight 700 --italic "
      L"--underline --strike-out --strike-out-type 1 --out-precision 4 --clip-precision 16 "
      L"--quality 2 --pitch-and-family 17 --color #C08142",
      L"select-font-ex --back-color #010203 --vertical-place 2 --horizontal-place 1",
  };
  for (const std::wstring run : kRuns) {
    const Ended first = RunProgram(run, Confirm);
    EXPECT_EQ(first.status, 0) << first.errors;
    const std::wstring command = run.substr(0, run.find(L' '));
    const Ended again = RunProgram(command + L" --json -", Confirm, first.output);
    EXPECT_EQ(again.status, 0) << again.errors;
    EXPECT_EQ(again.output, first.output);
  }
  // The dialog for papers begins without a name, whatever is handed to it.
  const Ended paper = RunProgram(
      L"user-paper --json -", SetAndConfirm({{13367, L"図面"}}),
      Utf8(u8R"json({"result":"confirmed","name":"x(420x297)","width":420,"height":297})json"));
  EXPECT_EQ(paper.output,
            Utf8(u8"{\"result\":\"confirmed\",\"name\":\"図面(420x297)\",\"width\":420,"
                 u8"\"height\":297}\n"));
}

TEST(CommandLine, ValuesComeAsJsonInAnArgumentAndInAFile) {
  const Ended argument = RunProgram(
      LR"(input-text --json "{\"text\":\"表\u8868\",\"title\":\"題名\"}")", [](HWND dialog) {
        EXPECT_EQ(Text(dialog), L"題名");
        Confirm(dialog);
      });
  EXPECT_EQ(argument.output, Utf8(u8"{\"result\":\"confirmed\",\"text\":\"表表\"}\n"))
      << argument.errors;
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / L"quorvel café 値.json";
  std::ofstream(path, std::ios::binary) << Utf8(u8"\uFEFF{\r\n\"text\": \"値\"\r\n}\r\n");
  const Ended file = RunProgram(L"input-text --json-file \"" + path.wstring() + L"\"", Confirm);
  EXPECT_EQ(file.output, Utf8(u8"{\"result\":\"confirmed\",\"text\":\"値\"}\n")) << file.errors;
  constexpr std::size_t kMostInput = 16 << 20;
  std::ofstream(path, std::ios::binary) << std::string(kMostInput - 2, ' ') << "{}";
  EXPECT_EQ(RunProgram(L"input-text --json-file \"" + path.wstring() + L"\"", Confirm).status, 0);
  std::ofstream(path, std::ios::binary) << std::string(kMostInput - 1, ' ') << "{}";
  const Ended tooLong = RunProgram(L"input-text --json-file \"" + path.wstring() + L"\"");
  EXPECT_EQ(tooLong.status, kFailed);
  EXPECT_TRUE(tooLong.errors.ends_with(Utf8(u8"値.json\" is too long\n"))) << tooLong.errors;
  std::filesystem::remove(path);
  const Ended missing = RunProgram(L"input-text --json-file \"" + path.wstring() + L"\"");
  EXPECT_EQ(missing.status, kFailed);
  EXPECT_TRUE(missing.errors.ends_with(Utf8(u8"値.json\" cannot be read\n"))) << missing.errors;
}

TEST(CommandLine, PlainAnswersAreTheValuesAlone) {
  EXPECT_EQ(RunProgram(L"input-text --plain --text 表", Confirm).output, Utf8(u8"表\n"));
  EXPECT_EQ(RunProgram(L"input-point --plain --point 12.5,7,3", Confirm).output, "12.5 7 3\n");
  EXPECT_EQ(RunProgram(L"input-point --plain --separator , --point 12.5,7,3", Confirm).output,
            "12.5,7,3\n");
  EXPECT_EQ(RunProgram(L"select-rgb --plain --color #3366ff", Confirm).output, "#3366FF\n");
  EXPECT_EQ(
      RunProgram(L"check-list --plain --ticked-item 壁 --item 窓 --ticked-item 扉", Confirm).output,
      Utf8(u8"壁\n扉\n"));
  EXPECT_EQ(RunProgram(L"check-list --plain --item 窓", Confirm).output, "");
  const Ended cancelled = RunProgram(L"input-text --plain --text x", Cancel);
  EXPECT_EQ(cancelled.status, 1);
  EXPECT_EQ(cancelled.output, "");
  const Ended picked =
      RunProgram(L"input-point --plain --mouse-pick", [](HWND dialog) { Command(dialog, 4060); });
  EXPECT_EQ(picked.status, 2);
  EXPECT_EQ(picked.output, "");
}

TEST(CommandLine, BadJsonIsOneLineThatNamesThePlaceAndStatus64) {
  struct Case {
    const wchar_t* command;
    std::string input;
    std::string error;
  };
  for (const Case& bad : {
           Case{L"input-dpi", "{\n  \"dpi\": \"many\"}",
                "standard input:2:3: dpi needs a whole number, not \"many\""},
           Case{L"input-text", Utf8(u8"{\"text\": \"caf\u00E9\"}"),
                "standard input:1:2: text has characters that code page 932 lacks"},
           Case{L"check-list", Utf8(u8"{\"items\": [\"x\", \"caf\u00E9\"]}"),
                "standard input:1:2: items has characters that code page 932 lacks"},
           Case{L"select-font", Utf8(u8"{\"face\": \"長い長い長い長い長い長い長い長い\"}"),
                "standard input:1:2: face has more than 31 bytes in code page 932"},
           Case{L"select-font", "{\"charSet\": 256}",
                "standard input:1:2: charSet goes from 0 to 255"},
           Case{L"select-rgb", "{\"key\": \"x\"}",
                "standard input:1:2: key is not known here, --help lists the options"},
       }) {
    const Ended ended = RunProgram(std::wstring(bad.command) + L" --json -", Worker(), bad.input);
    EXPECT_EQ(ended.status, kBadUsage);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "quorvel: " + bad.error + "\n");
  }
}

}  // namespace
}  // namespace quorvel::test
