// A host that only the C compiler has seen: host/c.
#include "cli/program.h"
#include "layout/editor_tools.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace quorvel::test {
namespace {

using program::Ended;
using program::RunHost;
using program::Utf8;

constexpr const wchar_t* kHost = L"quorvel-c-host.exe";
constexpr int kText = 10001;

TEST(CHost, GetsTextColourAndPage) {
  const FolderOfPages folder;
  const std::wstring file = folder.PathOf("枠.mtpld");
  for (const char* const times : {"new", "opened again"}) {
    const Ended ended = RunHost(kHost, L"\"" + file + L"\"",
                                {program::SetAndConfirm({{kText, L"断面図 ソ"}}), program::Confirm,
                                 program::Confirm});
    EXPECT_EQ(ended.status, 0) << times << ended.errors;
    EXPECT_EQ(ended.output,
              Utf8(u8"name 断面図 ソ\ncolor #3366FF\npage 2 x 4 cells\n"))
        << times;
    EXPECT_TRUE(std::filesystem::exists(file));
  }
}

TEST(CHost, IsToldOfACancelAndOfADamagedFile) {
  const FolderOfPages folder;
  const Ended cancelled = RunHost(kHost, L"", {program::Cancel});
  EXPECT_EQ(cancelled.status, 1);
  EXPECT_EQ(cancelled.output, "cancelled\n");
  const std::wstring file = folder.PathOf("damaged.mtpld");
  std::ofstream(folder.Path() / "damaged.mtpld") << "damaged";
  const Ended damaged = RunHost(kHost, L"\"" + file + L"\"", {program::Confirm, program::Confirm});
  EXPECT_EQ(damaged.status, 1);
  EXPECT_EQ(damaged.errors, "quorvel-c-host: page: the file is no layout file\n");
}

}  // namespace
}  // namespace quorvel::test
