// All dialogs of the library: those of the entries and those that only a layout editor opens.
#pragma once

#include "support/entries.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace quorvel::test {

struct AnyDialogOfOurs {
  std::string name;
  std::function<Outcome()> run;
};

const std::vector<AnyDialogOfOurs>& AllDialogs();

inline void PrintTo(const AnyDialogOfOurs& dialog, std::ostream* stream) { *stream << dialog.name; }

}  // namespace quorvel::test
