#include "cli/outcome.h"

#include <string_view>

namespace quorvel::cli {

namespace {

Outcome MakeOutcome(ExitStatus status, std::string_view result) {
  Outcome outcome;
  outcome.status = status;
  outcome.answer.AddText("result", result);
  return outcome;
}

}  // namespace

Outcome Confirmed() {
  return MakeOutcome(ExitStatus::kSuccess, "confirmed");
}
Outcome Cancelled() {
  return MakeOutcome(ExitStatus::kCancelled, "cancelled");
}
Outcome MousePick() {
  return MakeOutcome(ExitStatus::kOtherChoice, "mouse-pick");
}
Outcome ClearAll() {
  return MakeOutcome(ExitStatus::kOtherChoice, "clear-all");
}

}  // namespace quorvel::cli
