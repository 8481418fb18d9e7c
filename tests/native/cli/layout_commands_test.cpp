#include "cli/layout_commands.h"

#include "cli/commands.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

using Arguments = std::vector<std::string>;

EditLayoutRequest Read(const Arguments& arguments) {
  const CommandLine line = ReadCommandLine(arguments);
  if (const auto* message = std::get_if<Message>(&line)) {
    ADD_FAILURE() << message->text;
    return {};
  }
  return std::get<EditLayoutRequest>(std::get<Request>(line));
}

void ExpectBadUsage(const Arguments& arguments, const std::string& line) {
  const CommandLine answer = ReadCommandLine(arguments);
  const auto* message = std::get_if<Message>(&answer);
  ASSERT_NE(message, nullptr) << line;
  EXPECT_EQ(message->status, ExitStatus::kBadUsage);
  EXPECT_EQ(message->text, line + "\n");
}

TEST(LayoutCommands, EditLayoutTakesItsOptions) {
  const EditLayoutRequest request =
      Read({"edit-layout", "--line-mode", "枠 ソ.mtpld", "--out", "--out", "--new", "3x20",
            "--insert", "図面番号", "--number", "10", "--insert=", "--number=0", "--dots-per-mm",
            "23.6", "--key", "Software\\Q", "--position", "-5,6"});
  EXPECT_EQ(request.file, "枠 ソ.mtpld");
  EXPECT_EQ(request.outFile, "--out");
  ASSERT_TRUE(request.newPage.has_value());
  EXPECT_EQ(request.newPage->rows, 3);
  EXPECT_EQ(request.newPage->columns, 20);
  EXPECT_TRUE(request.isLineMode);
  EXPECT_EQ(request.insertions, (std::vector<std::string>{"図面番号", ""}));
  EXPECT_EQ(request.numbers, (std::vector<int>{10, 0}));
  EXPECT_EQ(request.dotsPerMm, 23.6);
  EXPECT_EQ(request.key, "Software\\Q");
  ASSERT_TRUE(request.position.has_value());
  EXPECT_EQ(request.position->x, -5);
  EXPECT_EQ(request.position->y, 6);
}

TEST(LayoutCommands, EditLayoutWritesTheFileThatItReads) {
  const EditLayoutRequest request = Read({"edit-layout", "a.mtpld"});
  EXPECT_EQ(request.file, "a.mtpld");
  EXPECT_EQ(request.outFile, "a.mtpld");
  EXPECT_FALSE(request.newPage.has_value());
  EXPECT_FALSE(request.isLineMode);
  EXPECT_TRUE(request.insertions.empty());
  EXPECT_TRUE(request.numbers.empty());
  EXPECT_EQ(request.dotsPerMm, 0.0);
  EXPECT_EQ(request.key, "");
  EXPECT_FALSE(request.position.has_value());
}

TEST(LayoutCommands, EditLayoutNeedsOneFile) {
  ExpectBadUsage({"edit-layout"}, "quorvel: FILE is missing");
  ExpectBadUsage({"edit-layout", "--new", "1x1"}, "quorvel: FILE is missing");
  ExpectBadUsage({"edit-layout", ""}, "quorvel: FILE must not be empty");
  ExpectBadUsage({"edit-layout", "a", "b"}, R"(quorvel: unexpected argument "b")");
  ExpectBadUsage({"edit-layout", "-a"}, R"(quorvel: unexpected argument "-a")");
  ExpectBadUsage({"edit-layout", "--file", "a"}, R"(quorvel: unknown option "--file")");
}

TEST(LayoutCommands, EditLayoutMakesPagesThatItsDialogTakes) {
  for (const std::string counts : {"0x1", "1x0", "21x1", "1x21", "-1x1", "2147483647x1"}) {
    ExpectBadUsage({"edit-layout", "a", "--new", counts},
                   "quorvel: --new takes 1 to 20 rows and columns");
  }
  for (const std::string counts :
       {"", "3", "x", "3x", "x4", "3x4x5", "3X4", "3,4", " 3x4", "3x4.5"}) {
    ExpectBadUsage({"edit-layout", "a", "--new", counts},
                   "quorvel: --new needs counts as ROWSxCOLUMNS, not \"" + counts + "\"");
  }
}

TEST(LayoutCommands, EditLayoutNumbersEachNameOrNone) {
  const std::string refusal = "quorvel: --number is needed as often as --insert, or not at all";
  ExpectBadUsage({"edit-layout", "a", "--number", "1"}, refusal);
  ExpectBadUsage({"edit-layout", "a", "--insert", "n", "--insert", "m", "--number", "1"}, refusal);
  ExpectBadUsage({"edit-layout", "a", "--insert", "n", "--number", "-1"},
                 "quorvel: --number must not be negative");
  ExpectBadUsage({"edit-layout", "a", "--insert", "n", "--number", "1,2"},
                 R"(quorvel: --number needs a whole number, not "1,2")");
}

TEST(LayoutCommands, HelpBeginsWithTheFile) {
  const CommandLine line = ReadCommandLine(Arguments{"edit-layout", "--help"});
  const auto* message = std::get_if<Message>(&line);
  ASSERT_NE(message, nullptr);
  EXPECT_EQ(message->status, ExitStatus::kSuccess);
  EXPECT_TRUE(message->text.starts_with(
      "usage: quorvel edit-layout FILE [OPTION]...\n"
      "\n"
      "Open a dialog to lay out a page of cells and write it to its file.\n"
      "\n"
      "Options:\n"
      "  FILE                layout file to edit, *.mtpld\n"
      "  --out FILE          "))
      << message->text;
}

}  // namespace
}  // namespace quorvel::cli
