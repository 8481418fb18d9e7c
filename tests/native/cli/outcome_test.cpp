#include "cli/outcome.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvel::cli {
namespace {

void ExpectOutcome(const Outcome& outcome, int status, const char* line) {
  EXPECT_EQ(static_cast<int>(outcome.status), status) << line;
  EXPECT_EQ(outcome.answer.ToJson(), line);
}

TEST(Outcome, EachHasItsStatusAndItsLine) {
  ExpectOutcome(Confirmed(), 0, R"({"result":"confirmed"})");
  ExpectOutcome(Cancelled(), 1, R"({"result":"cancelled"})");
  ExpectOutcome(MousePick(), 2, R"({"result":"mouse-pick"})");
  ExpectOutcome(ClearAll(), 2, R"({"result":"clear-all"})");
}

TEST(Outcome, AnswersFollowTheResult) {
  Outcome outcome = Confirmed();
  outcome.answer.AddInteger("dpi", 300);
  ExpectOutcome(outcome, 0, R"({"result":"confirmed","dpi":300})");
}

TEST(Outcome, PlainAnswersAreTheValuesAloneLineByLine) {
  Outcome outcome = Confirmed();
  EXPECT_EQ(outcome.answer.ToPlain(), "");
  outcome.answer.AddText("text", "\"表\"\\")
      .AddNumbers("point", std::vector<double>{12.5, 7, -3})
      .AddNumber("scale", 1000)
      .AddFlag("italic", true)
      .AddFlag("bold", false);
  EXPECT_EQ(outcome.answer.ToPlain(), "\"表\"\\\n12.5 7 -3\n1000\ntrue\nfalse\n");
  EXPECT_EQ(outcome.answer.ToPlain(","), "\"表\"\\,12.5,7,-3,1000,true,false\n");
  EXPECT_EQ(outcome.answer.ToPlain(""), "\"表\"\\12.57-31000truefalse\n");
  EXPECT_EQ(outcome.answer.ToJson(),
            R"({"result":"confirmed","text":"\"表\"\\","point":[12.5,7,-3],"scale":1000,)"
            R"("italic":true,"bold":false})");
}

TEST(Outcome, TickedItemsAreThePlainValuesOfAList) {
  Outcome outcome = Confirmed();
  outcome.answer.AddItems("items",
                          std::vector<CheckListItem>{{"壁", true}, {"窓", false}, {"", true}});
  EXPECT_EQ(outcome.answer.ToPlain(), "壁\n\n");
  EXPECT_EQ(outcome.answer.ToPlain("|"), "壁|\n");
  EXPECT_EQ(outcome.answer.ToJson(),
            R"({"result":"confirmed","items":[{"name":"壁","ticked":true},)"
            R"({"name":"窓","ticked":false},{"name":"","ticked":true}]})");
}

}  // namespace
}  // namespace quorvel::cli
