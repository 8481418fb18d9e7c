// All entries with arguments of their own, for what holds for every one of them.
#pragma once

#include <quorvel/quorvel.h>

#include <ostream>
#include <string>
#include <vector>

namespace quorvel::test {

/// How a call ended.
struct Outcome {
  bool confirmed;
  bool unchanged;  ///< every variable of the caller is as before the call
  std::string fault = {};  ///< what is wrong with the page that the caller has now; empty: nothing
};

struct Entry {
  std::string name;
  UINT templateId;
  Outcome (*run)(CPoint* position);
  bool hasPosition;
  INT_PTR (*runWithNull)();  ///< a null where a value is needed
  INT_PTR failure;           ///< what that, and a dialog that cannot be created, give
  /// Runs the same without anything of ours; null where the system only has to run the template.
  void (*runBare)(HWND owner) = nullptr;
  bool changesAtOnce = false;  ///< there is no way back by cancelling
};

inline void PrintTo(const Entry& entry, std::ostream* stream) { *stream << entry.name; }

const std::vector<Entry>& AllEntries();

/// Forgets what earlier dialogs have kept in the environment of these entries.
void ForgetSettings();

/// Three blocks of 4 columns, with something in everything that such a page can have.
CLayoutExPageData ExtendedPageWithEverything();

}  // namespace quorvel::test
