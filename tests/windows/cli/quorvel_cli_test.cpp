// The command line as its users have it: a process with arguments, a dialog, an answer on standard
// output and an exit status.
#include "driver/controls.h"
#include "support/colour_environment.h"

#include <quorvel/quorvel.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvel::test {
namespace {

using driver::ClassName;
using driver::ClientRectOf;
using driver::Text;
using driver::WindowRect;

constexpr int kBadUsage = 64;
constexpr int kFailed = 70;
constexpr ULONGLONG kDeadline = 20'000;  // milliseconds
constexpr DWORD kLookInterval = 10;  // milliseconds

class Handle {
public:
  Handle() = default;
  explicit Handle(HANDLE handle) : m_handle(handle) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle& operator=(Handle&& other) noexcept {
    Close();
    m_handle = std::exchange(other.m_handle, nullptr);
    return *this;
  }
  HANDLE Get() const { return m_handle; }
  void Close() {
    if (m_handle != nullptr) {
      ::CloseHandle(std::exchange(m_handle, nullptr));
    }
  }

private:
  HANDLE m_handle = nullptr;
};

struct Pipe {
  Handle reading;
  Handle writing;
};

Pipe MakePipe() {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  ::CreatePipe(&reading, &writing, &inherited, 0);
  ::SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
  return {Handle(reading), Handle(writing)};
}

std::string ReadAll(const Handle& pipe) {
  std::string all;
  std::array<char, 4096> part{};
  DWORD length = 0;
  while (::ReadFile(pipe.Get(), part.data(), static_cast<DWORD>(part.size()), &length, nullptr) !=
             FALSE &&
         length > 0) {
    all.append(part.data(), length);
  }
  return all;
}

/// The process's visible dialog; null while there is none.
HWND DialogOf(DWORD process) {
  struct Search {
    DWORD process;
    HWND found;
  } search{process, nullptr};
  ::EnumWindows(
      [](HWND window, LPARAM context) {
        auto& wanted = *reinterpret_cast<Search*>(context);
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (owner == wanted.process && ::IsWindowVisible(window) != FALSE &&
            ClassName(window) == L"#32770") {
          wanted.found = window;
        }
        return wanted.found == nullptr ? TRUE : FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

struct Ended {
  int status;
  std::string output;
  std::string errors;
};

using Worker = std::function<void(HWND)>;

/// Starts quorvel.exe, lets `work` have its dialog, and waits for its end.
Ended RunProgram(const std::wstring& arguments, const Worker& work = {}) {
  Pipe output = MakePipe();
  Pipe errors = MakePipe();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = output.writing.Get();
  startup.hStdError = errors.writing.Get();
  PROCESS_INFORMATION information{};
  std::wstring line = L"quorvel.exe " + arguments;
  std::array<wchar_t, MAX_PATH> folder{};
  ::GetModuleFileNameW(nullptr, folder.data(), static_cast<DWORD>(folder.size()));
  std::wstring program(folder.data());
  program.erase(program.find_last_of(L'\\') + 1).append(L"quorvel.exe");
  if (::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &information) == FALSE) {
    throw std::runtime_error("quorvel.exe did not start, error " +
                             std::to_string(::GetLastError()));
  }
  const Handle process(information.hProcess);
  const Handle thread(information.hThread);
  output.writing.Close();
  errors.writing.Close();

  const ULONGLONG end = ::GetTickCount64() + kDeadline;
  bool worked = !work;
  while (::WaitForSingleObject(process.Get(), kLookInterval) == WAIT_TIMEOUT) {
    const HWND dialog = worked ? nullptr : DialogOf(information.dwProcessId);
    if (dialog != nullptr) {
      work(dialog);
      worked = true;
    }
    if (::GetTickCount64() > end) {
      ::TerminateProcess(process.Get(), 1);
      throw std::runtime_error("quorvel.exe did not end");
    }
  }
  EXPECT_TRUE(worked) << "no dialog came up";
  DWORD status = 0;
  ::GetExitCodeProcess(process.Get(), &status);
  return {static_cast<int>(status), ReadAll(output.reading), ReadAll(errors.reading)};
}

void Command(HWND dialog, int id) {
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}
void Confirm(HWND dialog) { Command(dialog, IDOK); }
void Cancel(HWND dialog) { Command(dialog, IDCANCEL); }

/// Sends the text, which the system carries into the other process.
Worker SetAndConfirm(std::vector<std::pair<int, std::wstring>> fields) {
  return [fields = std::move(fields)](HWND dialog) {
    for (const auto& [id, text] : fields) {
      ::SendDlgItemMessageW(dialog, id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    Confirm(dialog);
  };
}

std::string Utf8(const char8_t* text) { return reinterpret_cast<const char*>(text); }

TEST(CommandLine, InputText) {
  std::wstring title;
  std::wstring comment;
  const Ended ended = RunProgram(L"input-text --title 題名 --comment 表ソ100%s --text 初期値 --position 50,60",
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
       {L"", L"no-such-dialog", L"input-dpi --dpi", L"input-dpi --dpi many", L"input-text --colour red",
        L"input-point --point 1", L"input-text --position 1", L"input-text --text caf\u00E9", L"select-rgb --color 3366FF",
        L"select-color --key caf\u00E9", L"edit-layout", L"edit-layout x --new 0x1",
        L"edit-layout x --new 1x1 --insert caf\u00E9"}) {
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
        "select-color", "select-color-ex", "edit-color", "select-rgb", "edit-layout"}) {
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
  EXPECT_TRUE(ended.errors.starts_with("quorvel: the name of a face has at most 31 bytes"))
      << ended.errors;
}

/// A folder with a layout file, under names that code page 932 lacks.
class EditLayoutCommand : public ::testing::Test {
protected:
  void SetUp() override {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    CLayoutPageData page;
    page.DividePage(2, 2, 0);
    page.GetCelAt(0)->SetText("表");
    ASSERT_NE(page.SaveFileW(m_file.c_str()), 0);
  }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  static std::wstring Quoted(const std::filesystem::path& path) {
    return L"\"" + path.generic_wstring() + L"\"";
  }
  static std::string Confirmed(const std::string& page, const std::filesystem::path& path) {
    return R"({"result":"confirmed",)" + page + R"(,"file":")" + Utf8(path.generic_u8string().c_str()) +
           "\"}\n";
  }
  static CLayoutPageData Read(const std::filesystem::path& path) {
    CLayoutPageData page;
    EXPECT_NE(page.OpenFileW(path.c_str()), 0) << path;
    return page;
  }
  void ExpectFailure(const std::wstring& arguments, const char8_t* complaint,
                     const Worker& work = {}) const {
    const Ended ended = RunProgram(L"edit-layout " + arguments, work);
    EXPECT_EQ(ended.status, kFailed);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors.find('\n'), ended.errors.size() - 1) << ended.errors;
    EXPECT_NE(ended.errors.find(Utf8(complaint)), std::string::npos) << ended.errors;
  }

  std::filesystem::path m_folder = std::filesystem::temp_directory_path() / L"quorvel café ソ";
  std::filesystem::path m_file = m_folder / L"枠 é.mtpld";
};

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
            Confirmed(R"("rows":3,"columns":2,"width":20,"height":30)", m_file));
  EXPECT_EQ(ended.errors, "");
  const CLayoutPageData page = Read(m_file);
  EXPECT_EQ(page.GetNumRow(), 3);
  EXPECT_EQ(page.GetCelAt(0)->GetText(), "表");
}

TEST_F(EditLayoutCommand, WritesAnotherFileAndLeavesTheFirst) {
  const std::filesystem::path out = m_folder / L"新 é.mtpld";
  const Ended ended =
      RunProgram(L"edit-layout --out " + Quoted(out) + L" " + Quoted(m_file), Confirm);
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_EQ(ended.output, Confirmed(R"("rows":2,"columns":2,"width":20,"height":20)", out));
  EXPECT_EQ(Read(out).GetCelAt(0)->GetText(), "表");
  EXPECT_EQ(Read(m_file).GetNumRow(), 2);
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
  EXPECT_EQ(Read(out).GetCelAt(kMiddle)->GetText(), "<M>42 図面番号</M>");
  EXPECT_EQ(Read(out).GetCelAt(0)->GetText(), "");
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
  EXPECT_EQ(Read(m_file).GetType(), 1);
  EXPECT_EQ(RunProgram(L"edit-layout " + Quoted(m_file),
                       [&](HWND dialog) {
                         EXPECT_FALSE(isShown(dialog, kOuterLineBox));
                         EXPECT_TRUE(isShown(dialog, kMarginField));
                         Confirm(dialog);
                       })
                .status,
            0);
  EXPECT_EQ(Read(m_file).GetType(), 0);
}

TEST_F(EditLayoutCommand, FailsWithoutADialogWhereThereIsNoSuchPage) {
  ExpectFailure(Quoted(m_folder / L"none é.mtpld"), u8"none é.mtpld\" is not there");
  ExpectFailure(Quoted(m_file) + L" --new 2x2", u8"枠 é.mtpld\" is there already");
  std::ofstream(m_folder / "other.mtpld") << "no layout";
  ExpectFailure(Quoted(m_folder / "other.mtpld"), u8"cannot be read as a layout file");
}

TEST_F(EditLayoutCommand, FailsWhereThePageCannotBeWritten) {
  ExpectFailure(Quoted(m_file) + L" --out " + Quoted(m_folder / "none" / "out.mtpld"),
                u8"out.mtpld\" cannot be written", Confirm);
}

}  // namespace
}  // namespace quorvel::test
