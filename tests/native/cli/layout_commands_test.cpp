#include "cli/layout_commands.h"

#include "cli/commands.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

using Arguments = std::vector<std::string>;

template <class Wanted = EditLayoutRequest>
Wanted Read(const Arguments& arguments) {
  const CommandLine line = ReadCommandLine(arguments);
  if (const auto* message = std::get_if<Message>(&line)) {
    ADD_FAILURE() << message->text;
    return {};
  }
  return std::get<Wanted>(std::get<Task>(line).request);
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
  EXPECT_EQ(request.arguments.file, "枠 ソ.mtpld");
  EXPECT_EQ(request.arguments.outFile, "--out");
  ASSERT_TRUE(request.newPage.has_value());
  EXPECT_EQ(request.newPage->rows, 3);
  EXPECT_EQ(request.newPage->columns, 20);
  EXPECT_TRUE(request.isLineMode);
  EXPECT_EQ(request.arguments.insertions, (std::vector<std::string>{"図面番号", ""}));
  EXPECT_EQ(request.arguments.numbers, (std::vector<int>{10, 0}));
  EXPECT_EQ(request.arguments.dotsPerMm, 23.6);
  EXPECT_EQ(request.arguments.key, "Software\\Q");
  ASSERT_TRUE(request.arguments.position.has_value());
  EXPECT_EQ(request.arguments.position->x, -5);
  EXPECT_EQ(request.arguments.position->y, 6);
}

TEST(LayoutCommands, EditLayoutWritesTheFileThatItReads) {
  const EditLayoutRequest request = Read({"edit-layout", "a.mtpld"});
  EXPECT_EQ(request.arguments.file, "a.mtpld");
  EXPECT_EQ(request.arguments.outFile, "a.mtpld");
  EXPECT_FALSE(request.newPage.has_value());
  EXPECT_FALSE(request.isLineMode);
  EXPECT_TRUE(request.arguments.insertions.empty());
  EXPECT_TRUE(request.arguments.numbers.empty());
  EXPECT_EQ(request.arguments.dotsPerMm, 0.0);
  EXPECT_EQ(request.arguments.key, "");
  EXPECT_FALSE(request.arguments.position.has_value());
}

TEST(LayoutCommands, EditLayoutNeedsOneFile) {
  ExpectBadUsage({"edit-layout"}, "quorvel: FILE is missing");
  ExpectBadUsage({"edit-layout", "--new", "1x1"}, "quorvel: FILE is missing");
  ExpectBadUsage({"edit-layout", ""}, "quorvel: FILE must not be empty");
  ExpectBadUsage({"edit-layout", "a", "b"}, R"(quorvel: unexpected argument "b")");
  ExpectBadUsage({"edit-layout", "-a"}, R"(quorvel: unexpected argument "-a")");
  ExpectBadUsage({"edit-layout", "--file", "a"},
                 R"(quorvel: unknown option "--file", --help lists them)");
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

TEST(LayoutCommands, BothNumberEachNameOrNone) {
  const std::string refusal = "quorvel: --number is needed as often as --insert, or not at all";
  for (const std::string command : {"edit-layout", "edit-layout-ex"}) {
    ExpectBadUsage({command, "a", "--number", "1"}, refusal);
    ExpectBadUsage({command, "a", "--insert", "n", "--insert", "m", "--number", "1"}, refusal);
    ExpectBadUsage({command, "a", "--insert", "n", "--number", "-1"},
                   "quorvel: --number must not be negative");
    ExpectBadUsage({command, "a", "--insert", "n", "--number", "1,2"},
                   R"(quorvel: --number needs a whole number, not "1,2")");
  }
}

TEST(LayoutCommands, EditLayoutExTakesItsOptions) {
  const auto request = Read<EditLayoutExRequest>(
      {"edit-layout-ex", "明細 ソ.mtpld2", "--out", "b", "--new", "1+5+2x20", "--field", "品名",
       "--insert", "図面番号", "--field=", "--number", "10", "--dots-per-mm", "23.6", "--key",
       "Software\\Q", "--position", "-5,6"});
  EXPECT_EQ(request.arguments.file, "明細 ソ.mtpld2");
  EXPECT_EQ(request.arguments.outFile, "b");
  ASSERT_TRUE(request.newPage.has_value());
  EXPECT_EQ(request.newPage->rows, (std::array{1, 5, 2}));
  EXPECT_EQ(request.newPage->columns, 20);
  EXPECT_EQ(request.fields, (std::vector<std::string>{"品名", ""}));
  EXPECT_EQ(request.arguments.insertions, (std::vector<std::string>{"図面番号"}));
  EXPECT_EQ(request.arguments.numbers, (std::vector<int>{10}));
  EXPECT_EQ(request.arguments.dotsPerMm, 23.6);
  EXPECT_EQ(request.arguments.key, "Software\\Q");
  ASSERT_TRUE(request.arguments.position.has_value());
  EXPECT_EQ(request.arguments.position->x, -5);
}

TEST(LayoutCommands, EditLayoutExWritesTheFileThatItReads) {
  const auto request = Read<EditLayoutExRequest>({"edit-layout-ex", "a.mtpld2"});
  EXPECT_EQ(request.arguments.outFile, "a.mtpld2");
  EXPECT_FALSE(request.newPage.has_value());
  EXPECT_TRUE(request.fields.empty());
  ExpectBadUsage({"edit-layout-ex"}, "quorvel: FILE is missing");
  ExpectBadUsage({"edit-layout-ex", "a", "--line-mode"},
                 R"(quorvel: unknown option "--line-mode", --help lists them)");
}

TEST(LayoutCommands, EditLayoutExMakesPagesThatItsDialogTakes) {
  for (const std::string counts : {"1+1+1x1", "5+5+5x20"}) {
    EXPECT_TRUE(Read<EditLayoutExRequest>({"edit-layout-ex", "a", "--new", counts}).newPage)
        << counts;
  }
  for (const std::string counts : {"0+1+1x1", "1+0+1x1", "1+1+0x1", "1+1+1x0", "6+1+1x1",
                                   "1+6+1x1", "1+1+6x1", "1+1+1x21", "1+-1+1x1"}) {
    ExpectBadUsage({"edit-layout-ex", "a", "--new", counts},
                   "quorvel: --new takes 1 to 5 rows in each block and 1 to 20 columns");
  }
  for (const std::string counts : {"", "3x4", "1+1x1", "1+1+1", "1+1+1x", "x1", "1+1+1+1x1",
                                   "1+1+1x1+1", "1,1,1x1", "1+1+1X1", "1 + 1 + 1x1", "++x"}) {
    ExpectBadUsage(
        {"edit-layout-ex", "a", "--new", counts},
        "quorvel: --new needs counts as HEADER+LIST+FOOTERxCOLUMNS, not \"" + counts + "\"");
  }
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

TEST(LayoutCommands, ThePageIsShapedAsTheOptionsSay) {
  const EditLayoutRequest request = Read(
      {"edit-layout", "a", "--rows", "3", "--columns", "255", "--width", "180", "--height", "4.5"});
  EXPECT_EQ(request.rows, 3);
  EXPECT_EQ(request.columns, 255);
  EXPECT_EQ(request.width, 180);
  EXPECT_EQ(request.height, 4.5);
  const auto blocks =
      Read<EditLayoutExRequest>({"edit-layout-ex", "a", "--rows", "1,2,3", "--columns=4",
                                 "--width=12.3", "--height=5,6,7.5"});
  EXPECT_EQ(blocks.rows, (std::vector{1, 2, 3}));
  EXPECT_EQ(blocks.columns, 4);
  EXPECT_EQ(blocks.width, 12.3);
  EXPECT_EQ(blocks.heights, (std::vector<double>{5, 6, 7.5}));
  EXPECT_FALSE(Read({"edit-layout", "a"}).rows.has_value());
  EXPECT_FALSE(Read({"edit-layout", "a"}).height.has_value());
  EXPECT_TRUE(Read<EditLayoutExRequest>({"edit-layout-ex", "a"}).heights.empty());
}

TEST(LayoutCommands, ShapesOutOfRangeAreRefused) {
  ExpectBadUsage({"edit-layout", "a", "--rows", "0"}, "quorvel: --rows goes from 1 to 255");
  ExpectBadUsage({"edit-layout", "a", "--columns", "256"}, "quorvel: --columns goes from 1 to 255");
  ExpectBadUsage({"edit-layout", "a", "--width", "0"}, "quorvel: --width must be above 0");
  ExpectBadUsage({"edit-layout-ex", "a", "--height", "1,-2,3"},
                 "quorvel: --height must be above 0");
  ExpectBadUsage({"edit-layout-ex", "a", "--json", R"({"rows":[1,2,0]})"},
                 "quorvel: --json:1:2: rows goes from 1 to 255");
}

TEST(LayoutCommands, CountsOfANewPageMakeUpForThoseOfAnAnswer) {
  const std::string answer = R"({"result":"confirmed","rows":5,"columns":4,"width":180,)"
                             R"("height":40,"file":"old"})";
  const EditLayoutRequest again = Read({"edit-layout", "--json", answer});
  EXPECT_EQ(again.arguments.file, "old");
  EXPECT_EQ(again.arguments.outFile, "old");
  EXPECT_EQ(again.rows, 5);
  EXPECT_EQ(again.height, 40);
  const EditLayoutRequest other =
      Read({"edit-layout", "new", "--new", "2x2", "--json", answer, "--height", "7"});
  EXPECT_EQ(other.arguments.file, "new");
  EXPECT_EQ(other.newPage->rows, 2);
  EXPECT_FALSE(other.rows.has_value());
  EXPECT_FALSE(other.width.has_value());
  EXPECT_EQ(other.height, 7);
}

}  // namespace
}  // namespace quorvel::cli
