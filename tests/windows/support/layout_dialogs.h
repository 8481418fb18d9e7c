// The dialogs that the layout editors open, run by themselves.
#pragma once

#include "support/entries.h"

namespace quorvel::test {

/// As entries: those without a null to be called with have no `runWithNull`.
std::vector<Entry> LayoutDialogs();

/// All dialogs of the library: those of the entries and these.
std::vector<Entry> AllDialogs();

}  // namespace quorvel::test
