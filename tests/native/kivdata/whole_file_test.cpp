#include "kivdata/whole_file.h"

#include "sample_pages.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

using quorvel::FileBytes;
using quorvel::PathOfHost;
using quorvel::ReadWholeFile;
using quorvel::WriteWholeFile;
using quorvel::test::BytesOf;
using quorvel::test::ReadBytes;
using quorvel::test::SamplePage;
using quorvel::test::TemporaryFolder;
using quorvel::test::WriteBytes;

using Bytes = std::vector<BYTE>;

bool AcceptAll(std::span<const BYTE> /*head*/, std::uint64_t /*size*/) {
  return true;
}

TEST(WholeFile, ReadsWhatWasWritten) {
  const TemporaryFolder folder;
  const Bytes bytes = {1, 2, 3, 4, 5};
  EXPECT_TRUE(WriteWholeFile(folder.Path() / "file", bytes));
  const std::optional<FileBytes> read = ReadWholeFile(folder.Path() / "file", 2, AcceptAll);
  ASSERT_TRUE(read);
  EXPECT_EQ(Bytes(read->Span().begin(), read->Span().end()), bytes);
  EXPECT_EQ(folder.Count(), 1) << "no temporary file is left";
}

TEST(WholeFile, ShowsTheHeadBeforeItReadsOn) {
  const TemporaryFolder folder;
  WriteBytes(folder.Path() / "file", {1, 2, 3, 4, 5});
  bool asked = false;
  const auto refuse = [&](std::span<const BYTE> head, std::uint64_t size) {
    asked = true;
    EXPECT_EQ(Bytes(head.begin(), head.end()), (Bytes{1, 2}));
    EXPECT_EQ(size, 5U);
    return false;
  };
  EXPECT_FALSE(ReadWholeFile(folder.Path() / "file", 2, refuse));
  EXPECT_TRUE(asked);
}

TEST(WholeFile, RefusesWhatIsNoFileOrTooShort) {
  const TemporaryFolder folder;
  WriteBytes(folder.Path() / "short", {1});
  EXPECT_FALSE(ReadWholeFile(folder.Path() / "short", 2, AcceptAll));
  EXPECT_FALSE(ReadWholeFile(folder.Path() / "missing", 0, AcceptAll));
  EXPECT_FALSE(ReadWholeFile(folder.Path(), 0, AcceptAll));
  EXPECT_FALSE(ReadWholeFile({}, 0, AcceptAll));
  EXPECT_FALSE(ReadWholeFile("/dev/zero", 0, AcceptAll));
  ASSERT_EQ(::mkfifo((folder.Path() / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(ReadWholeFile(folder.Path() / "pipe", 0, AcceptAll)) << "and nobody waits for it";
}

TEST(WholeFile, AnEmptyFileIsAFile) {
  const TemporaryFolder folder;
  EXPECT_TRUE(WriteWholeFile(folder.Path() / "empty", {}));
  ASSERT_TRUE(ReadWholeFile(folder.Path() / "empty", 0, AcceptAll));
}

TEST(WholeFile, AFailureLeavesTheOldFileAlone) {
  const TemporaryFolder folder;
  const Bytes bytes = {1, 2, 3};
  EXPECT_FALSE(WriteWholeFile({}, bytes));
  EXPECT_FALSE(WriteWholeFile(folder.Path() / "missing" / "file", bytes));
  // A folder of the file's name cannot be replaced by it.
  std::filesystem::create_directories(folder.Path() / "taken" / "inside");
  EXPECT_FALSE(WriteWholeFile(folder.Path() / "taken", bytes));
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "taken" / "inside"));
  EXPECT_EQ(folder.Count(), 1) << "no temporary file is left";
}

TEST(WholeFile, AFullDiskLeavesTheOldFileAlone) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.Path() / "file";
  const Bytes old = {1, 2, 3};
  WriteBytes(path, old);
  // A limit on the size of files stands for a full disk: the write fails half way.
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limited = before;
  limited.rlim_cur = 1000;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limited), 0);
  const bool written = WriteWholeFile(path, Bytes(5000, 9));
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_FALSE(written);
  EXPECT_EQ(ReadBytes(path), old);
  EXPECT_EQ(folder.Count(), 1);
}

/// In a fresh process, where the first temporary names are known: the process's number and a number
/// that goes up by one for each file.
bool WriteWhereNamesAreTaken() {
  constexpr int kTaken = 500;
  const TemporaryFolder folder;
  const std::string start = "~" + std::to_string(::getpid()) + "-";
  for (int number = 0; number < kTaken; ++number) {
    WriteBytes(folder.Path() / (start + std::to_string(number) + ".tmp"), {7});
  }
  const bool written = WriteWholeFile(folder.Path() / "file", Bytes{1, 2});
  const bool othersLeft = folder.Count() == kTaken + 1;
  return written && othersLeft && ReadBytes(folder.Path() / "file") == Bytes{1, 2};
}

TEST(WholeFile, PassesByNamesThatAKilledProcessLeft) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::_Exit(WriteWhereNamesAreTaken() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(WholeFile, AHostsPathMayBeNullOrWide) {
  EXPECT_TRUE(PathOfHost(static_cast<const char*>(nullptr)).empty());
  EXPECT_TRUE(PathOfHost(static_cast<const wchar_t*>(nullptr)).empty());
  EXPECT_EQ(PathOfHost("name"), "name");
  EXPECT_EQ(PathOfHost(L"name"), "name");
  const wchar_t beyondUnicode[] = {static_cast<wchar_t>(0x7FFFFFFF), 0};
  EXPECT_TRUE(PathOfHost(beyondUnicode).empty()) << "no exception comes out";
}

/// A process that saves two pages in turn until it is killed, somewhere in its work, some hundred
/// times: the file is always one of the two, whole.
TEST(WholeFile, AKilledWriterLeavesTheOldFileOrTheNewOne) {
  const TemporaryFolder folder;
  const std::string path = folder.File("page.mtpld");
  CLayoutPageData first = SamplePage();
  first.DividePage(30, 30, 0);
  CLayoutPageData second = first;
  second.GetCelAt(0)->SetText("second");
  const Bytes firstBytes = BytesOf(first);
  const Bytes secondBytes = BytesOf(second);
  ASSERT_NE(first.SaveFile(path.c_str()), 0);

  std::mt19937 random(20);
  constexpr int kKills = 300;
  for (int kill = 0; kill < kKills; ++kill) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const pid_t writer = ::fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
      for (;;) {
        second.SaveFile(path.c_str());
        first.SaveFile(path.c_str());
        if (::write(ends[1], "s", 1) != 1) {
          std::_Exit(1);
        }
      }
    }
    ::close(ends[1]);  // so that reading ends should the writer die
    // The writer is at work, however busy the machine is; then it is killed at any moment.
    char saved = 0;
    ASSERT_EQ(::read(ends[0], &saved, 1), 1);
    const timespec moment = {0, static_cast<long>(random() % 8'000'000)};
    ::nanosleep(&moment, nullptr);
    ::kill(writer, SIGKILL);
    ASSERT_EQ(::waitpid(writer, nullptr, 0), writer);
    ::close(ends[0]);
    const Bytes after = ReadBytes(path);
    ASSERT_TRUE(after == firstBytes || after == secondBytes) << "kill " << kill;
    CLayoutPageData page;
    ASSERT_NE(page.OpenFile(path.c_str()), 0);
  }
}

}  // namespace
