// Layout files on Windows' own file system: names, and what the platform refuses.
#include "kivdata/layout_page_data.h"
#include "tests/native/kivdata/documented_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using Bytes = std::vector<BYTE>;

/// A folder of the test's own, also in code page 932, gone at its end.
class LayoutFile : public testing::Test {
protected:
  void SetUp() override { std::filesystem::create_directories(m_folder); }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  std::filesystem::path Path(const std::wstring& name) const { return m_folder / name; }
  std::string Narrow(const char* name) const { return m_folder.string() + "\\" + name; }
  int Count() const {
    return static_cast<int>(std::distance(std::filesystem::directory_iterator(m_folder), {}));
  }

private:
  const std::filesystem::path m_folder =
      std::filesystem::temp_directory_path() /
      (L"quorvel-layout-" + std::to_wstring(::GetCurrentProcessId()));
};

CLayoutPageData DocumentedPage() {
  CLayoutPageData page;
  page.GetCelAt(0)->SetText(kDocumentedText);
  return page;
}

Bytes ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST_F(LayoutFile, HasTheSameBytesOnEveryPlatform) {
  EXPECT_NE(DocumentedPage().SaveFileW(Path(L"page.mtpld").c_str()), 0);
  EXPECT_EQ(ReadBytes(Path(L"page.mtpld")), DocumentedFile());
}

TEST_F(LayoutFile, MayHaveAJapaneseName) {
  // 表 and ソ end with a backslash in code page 932.
  EXPECT_NE(DocumentedPage().SaveFile(Narrow("表ソ.mtpld").c_str()), 0);
  EXPECT_EQ(ReadBytes(Path(L"表ソ.mtpld")), DocumentedFile());
  CLayoutPageData page;
  EXPECT_NE(page.OpenFile(Narrow("表ソ.mtpld").c_str()), 0);
  EXPECT_STREQ(page.GetCelAt(0)->GetText(), kDocumentedText);
}

TEST_F(LayoutFile, MayHaveANameOutsideTheCodePage) {
  const std::filesystem::path path = Path(L"\xD55C\xAE00 \xD83D\xDE00.mtpld");  // 한글 and a face
  EXPECT_NE(DocumentedPage().SaveFileW(path.c_str()), 0);
  EXPECT_EQ(ReadBytes(path), DocumentedFile());
  CLayoutPageData page;
  EXPECT_NE(page.OpenFileW(path.c_str()), 0);
  EXPECT_STREQ(page.GetCelAt(0)->GetText(), kDocumentedText);
}

TEST_F(LayoutFile, ReplacesTheOldFile) {
  const std::filesystem::path path = Path(L"page.mtpld");
  std::ofstream(path) << "old";
  EXPECT_NE(DocumentedPage().SaveFileW(path.c_str()), 0);
  EXPECT_EQ(ReadBytes(path), DocumentedFile());
  EXPECT_EQ(Count(), 1);
}

TEST_F(LayoutFile, AFileInUseStands) {
  const std::filesystem::path path = Path(L"page.mtpld");
  std::ofstream(path) << "old";
  const HANDLE user = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(user, INVALID_HANDLE_VALUE);
  EXPECT_EQ(DocumentedPage().SaveFileW(path.c_str()), 0);
  ::CloseHandle(user);
  EXPECT_EQ(ReadBytes(path), (Bytes{'o', 'l', 'd'}));
  EXPECT_EQ(Count(), 1) << "no temporary file is left";
}

TEST_F(LayoutFile, AFolderOfItsNameStands) {
  std::filesystem::create_directories(Path(L"page.mtpld"));
  EXPECT_EQ(DocumentedPage().SaveFileW(Path(L"page.mtpld").c_str()), 0);
  CLayoutPageData page;
  EXPECT_EQ(page.OpenFileW(Path(L"page.mtpld").c_str()), 0);
  EXPECT_TRUE(std::filesystem::is_directory(Path(L"page.mtpld")));
  EXPECT_EQ(Count(), 1);
}

TEST_F(LayoutFile, WhatIsNoFileIsRefused) {
  CLayoutPageData page;
  EXPECT_EQ(page.OpenFile(nullptr), 0);
  EXPECT_EQ(page.OpenFile(""), 0);
  EXPECT_EQ(page.OpenFile("NUL"), 0);
  EXPECT_EQ(page.OpenFileW(Path(L"missing").c_str()), 0);
  EXPECT_EQ(page.SaveFile(nullptr), 0);
  EXPECT_EQ(page.SaveFile(""), 0);
  EXPECT_EQ(page.SaveFileW(Path(L"missing\\page.mtpld").c_str()), 0);
  EXPECT_EQ(Count(), 0);
}

/// A file that was read or written is not held: it can be deleted at once.
TEST_F(LayoutFile, IsNotHeldAfterwards) {
  const std::filesystem::path path = Path(L"page.mtpld");
  ASSERT_NE(DocumentedPage().SaveFileW(path.c_str()), 0);
  CLayoutPageData page;
  ASSERT_NE(page.OpenFileW(path.c_str()), 0);
  const HANDLE alone = ::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(alone, INVALID_HANDLE_VALUE);
  ::CloseHandle(alone);
  EXPECT_TRUE(std::filesystem::remove(path));
}

}  // namespace
}  // namespace quorvel::test
