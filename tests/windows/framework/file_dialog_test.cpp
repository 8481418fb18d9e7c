#include "framework/file_dialog.h"

#include "driver/leak_counters.h"
#include "framework/dialog.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

namespace quorvel::test {
namespace {

constexpr const char* kFilter = "試験 (*.mtpld)|*.mtpld||";
constexpr DWORD kOpenFlags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST |
                             OFN_EXPLORER | OFN_NODEREFERENCELINKS;
constexpr DWORD kSaveFlags = kOpenFlags | OFN_OVERWRITEPROMPT;

std::wstring CurrentFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  ::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
  return folder.data();
}

Condition FileDialogShown() { return Painted(DialogWithControl(kFileNameField)); }

void EnterName(HWND dialog, const std::wstring& name) {
  ::SetDlgItemTextW(dialog, kFileNameField, name.c_str());
  ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

class FileDialog : public ::testing::Test {
protected:
  void SetUp() override {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    Write("old.mtpld");
  }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  void Write(const std::filesystem::path& name) const { std::ofstream(m_folder / name) << "x"; }
  std::wstring PathOf(const std::filesystem::path& name) const {
    return (m_folder / name).make_preferred().wstring();
  }

  static INT_PTR Choose(CFileDialog& dialog, const std::wstring& name) {
    ModalScript script;
    script.When(FileDialogShown(), [&](HWND window) { EnterName(window, name); });
    return Work(script, [&] { return dialog.DoModal(); });
  }
  /// The platform remembers a folder, too.
  static void ChooseWithThePlatformsOwn(const std::filesystem::path& path) {
    std::array<wchar_t, MAX_PATH> chosen{};
    OPENFILENAMEW description{};
    description.lStructSize = sizeof description;
    description.lpstrFile = chosen.data();
    description.nMaxFile = static_cast<DWORD>(chosen.size());
    description.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
    ModalScript script;
    script.When(FileDialogShown(), [&](HWND window) { EnterName(window, path.wstring()); });
    EXPECT_TRUE(Work(script, [&] { return ::GetSaveFileNameW(&description); }));
  }
  static CFileDialog Opening() { return CFileDialog(TRUE, "*.mtpld", "", kOpenFlags, kFilter); }
  static CFileDialog Saving() { return CFileDialog(FALSE, "*.mtpld", "", kSaveFlags, kFilter); }

  std::filesystem::path m_folder = std::filesystem::temp_directory_path() / L"quorvel 試験 ソ";
};

TEST_F(FileDialog, GivesTheFileThatWasChosen) {
  CFileDialog dialog = Opening();
  EXPECT_EQ(Choose(dialog, PathOf("old.mtpld")), IDOK);
  EXPECT_EQ(dialog.GetPathNameWide(), PathOf("old.mtpld"));
  const std::string narrow = dialog.GetPathName().GetString();
  EXPECT_TRUE(narrow.ends_with("\\quorvel 試験 ソ\\old.mtpld")) << narrow;
}

TEST_F(FileDialog, GivesNothingWhenCancelled) {
  CFileDialog dialog = Opening();
  ModalScript script;
  script.When(FileDialogShown(), Cancel);
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
  EXPECT_EQ(dialog.GetPathNameWide(), L"");
}

TEST_F(FileDialog, StartsInTheFolderThatWasUsedLast) {
  CFileDialog first = Opening();
  ASSERT_EQ(Choose(first, PathOf("old.mtpld")), IDOK);
  ChooseWithThePlatformsOwn(std::filesystem::temp_directory_path() / "elsewhere.mtpld");
  CFileDialog second = Opening();
  EXPECT_EQ(Choose(second, L"old.mtpld"), IDOK);
  EXPECT_EQ(second.GetPathNameWide(), PathOf("old.mtpld"));

  std::filesystem::create_directory(m_folder / "other");
  CFileDialog third = Saving();
  ASSERT_EQ(Choose(third, PathOf("other/new.mtpld")), IDOK);
  CFileDialog fourth = Saving();
  ASSERT_EQ(Choose(fourth, L"another.mtpld"), IDOK);
  EXPECT_EQ(fourth.GetPathNameWide(), PathOf("other/another.mtpld"));
}

TEST_F(FileDialog, LeavesTheProgramsCurrentFolder) {
  const std::wstring before = CurrentFolder();
  CFileDialog dialog = Opening();
  ASSERT_EQ(Choose(dialog, PathOf("old.mtpld")), IDOK);
  EXPECT_EQ(CurrentFolder(), before);
  ASSERT_NE(before, m_folder.wstring());
}

TEST_F(FileDialog, AFileToOpenMustBeThere) {
  CFileDialog dialog = Opening();
  ModalScript script;
  script.When(FileDialogShown(), [&](HWND window) { EnterName(window, PathOf("none.mtpld")); });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  script.When(FileDialogShown(), Cancel);
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
}

TEST_F(FileDialog, ASavedNameGetsTheExtension) {
  CFileDialog dialog = Saving();
  EXPECT_EQ(Choose(dialog, PathOf("new")), IDOK);
  EXPECT_EQ(dialog.GetPathNameWide(), PathOf("new.mtpld"));
  CFileDialog whole = Saving();
  EXPECT_EQ(Choose(whole, PathOf("whole.mtpld")), IDOK);
  EXPECT_EQ(whole.GetPathNameWide(), PathOf("whole.mtpld"));
}

TEST_F(FileDialog, ADefaultExtensionMayBeWrittenAsAPattern) {
  for (const char* extension : {"mtpld", "*.mtpld"}) {
    CFileDialog dialog(FALSE, extension, "", kSaveFlags, "すべて (*.*)|*.*||");
    EXPECT_EQ(Choose(dialog, PathOf("new")), IDOK);
    EXPECT_EQ(dialog.GetPathNameWide(), PathOf("new.mtpld")) << extension;
  }
}

TEST_F(FileDialog, AsksBeforeAFileIsReplaced) {
  CFileDialog dialog = Saving();
  ModalScript script;
  script.When(FileDialogShown(), [&](HWND window) { EnterName(window, PathOf("old.mtpld")); });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDNO); });
  script.When(FileDialogShown(), [&](HWND window) { EnterName(window, PathOf("old")); });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDYES); });
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDOK);
  EXPECT_EQ(dialog.GetPathNameWide(), PathOf("old.mtpld"));
}

TEST_F(FileDialog, ANameMayLieBeyondCodePage932) {
  const std::wstring name = L"한글 é.mtpld";
  Write(name);
  CFileDialog dialog = Opening();
  EXPECT_EQ(Choose(dialog, PathOf(name)), IDOK);
  EXPECT_EQ(dialog.GetPathNameWide(), PathOf(name));
  const std::string narrow = dialog.GetPathName().GetString();
  EXPECT_TRUE(narrow.ends_with("\\?? ?.mtpld")) << narrow;
}

TEST_F(FileDialog, ShowsItsFilterAndTheNameGiven) {
  CFileDialog dialog(FALSE, "*.mtpld", "前の名前.mtpld", kSaveFlags,
                     "ｿー図 (*.mtpld)|*.mtpld|表 (*.*)|*.*||");
  constexpr int kTypeBox = 1136;
  ModalScript script;
  script.When(FileDialogShown(), [&](HWND window) {
    EXPECT_EQ(Text(window, kFileNameField), L"前の名前.mtpld");
    const HWND types = Control(window, kTypeBox);
    EXPECT_EQ(::SendMessageW(types, CB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(Text(types), L"ｿー図 (*.mtpld)");
    Cancel(window);
  });
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
}

/// Opens a file dialog from a button.
class OpeningDialog : public CDialog {
public:
  OpeningDialog() : CDialog(IDD_NUMBERS) {}

protected:
  void OnOpen() {
    CFileDialog dialog(TRUE, "*.mtpld", "", kOpenFlags, kFilter);
    dialog.DoModal();
  }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(OpeningDialog, CDialog)
  ON_BN_CLICKED(IDC_OPEN, &OpeningDialog::OnOpen)
END_MESSAGE_MAP()

TEST_F(FileDialog, BelongsToTheDialogThatOpensIt) {
  OpeningDialog dialog;
  ModalScript script;
  script.When(Painted(DialogWithControl(IDC_OPEN)),
              [](HWND window) { Click(window, IDC_OPEN); });
  script.When(FileDialogShown(), [&](HWND window) {
    EXPECT_EQ(::GetWindow(window, GW_OWNER), dialog.m_hWnd);
    EXPECT_FALSE(::IsWindowEnabled(dialog.m_hWnd));
    Cancel(window);
  });
  script.When(Painted(DialogWithControl(IDC_OPEN)), Cancel);
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
}

}  // namespace
}  // namespace quorvel::test
