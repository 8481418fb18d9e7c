#include "cli/outcome.h"

#include <gtest/gtest.h>

namespace quorvel::cli {
namespace {

void ExpectOutcome(const Outcome& outcome, int status, const char* line) {
  EXPECT_EQ(static_cast<int>(outcome.status), status) << line;
  EXPECT_EQ(outcome.answer.ToText(), line);
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

}  // namespace
}  // namespace quorvel::cli
