// How a run of the command line ends: its exit status and the line that it prints.
//
//   Outcome outcome = Confirmed();
//   outcome.answer.AddInteger("dpi", 300);   // {"result":"confirmed","dpi":300}
#pragma once

#include "cli/json.h"

namespace quorvel::cli {

enum class ExitStatus : int {
  kSuccess = 0,  // confirmed, or a help text printed
  kCancelled = 1,
  kOtherChoice = 2,  // the user asked for a mouse pick or for clearing the user papers
  kBadUsage = 64,
  kFailed = 70,
};

/// What a dialog came to. The answer has at least the member "result".
struct Outcome {
  ExitStatus status = ExitStatus::kFailed;
  JsonObject answer;
};

Outcome Confirmed();
Outcome Cancelled();
Outcome MousePick();
Outcome ClearAll();

}  // namespace quorvel::cli
