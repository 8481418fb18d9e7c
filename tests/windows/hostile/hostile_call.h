// One call of an entry with arguments that no host should give, and what must hold for it.
//
//   table.Add("InputDpi_dpi", "Highest", [] { ...; return Outcome{confirmed, unchanged}; });
//   for (const HostileArgument& argument : table.Take()) { ExpectHarmless(argument); }
#pragma once

#include "support/entries.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace quorvel::test {

/// What the dialog does with such arguments.
enum class Opening {
  kOpens,    ///< it can be cancelled and confirmed
  kRefuses,  ///< it opens and does not let itself be confirmed: a message says why
  kNone,     ///< the entry returns its failure value at once
};

struct HostileCall {
  std::string name;
  /// Calls the entry with new variables; where it was confirmed, holds the result against what is
  /// documented.
  std::function<Outcome()> run;
  Opening opening = Opening::kOpens;
};

/// The calls of one argument.
struct HostileArgument {
  std::string name;
  std::vector<HostileCall> calls;
};

inline void PrintTo(const HostileArgument& argument, std::ostream* stream) {
  *stream << argument.name;
}

/// Of the values of an argument every so many-th is tried: QUORVEL_HOSTILE_STEP, 1 unless told.
std::size_t HostileStep();

/// Each call's dialog is cancelled until all of them leave nothing behind, then confirmed; the test
/// fails where anything is not as documented or a dialog takes longer than two seconds every time.
void ExpectHarmless(const HostileArgument& argument);

/// Collects calls by their arguments.
class HostileTable {
public:
  /// `value` names the call among those of `argument`, of letters and digits both.
  void Add(const std::string& argument, std::string value, std::function<Outcome()> run,
           Opening opening = Opening::kOpens) {
    auto known = std::ranges::find(m_arguments, argument, &HostileArgument::name);
    if (known == m_arguments.end()) {
      known = m_arguments.insert(known, {argument, {}});
    }
    known->calls.push_back({std::move(value), std::move(run), opening});
  }
  std::vector<HostileArgument> Take() { return std::move(m_arguments); }

private:
  std::vector<HostileArgument> m_arguments;
};

// All families, each in its own file.
std::vector<HostileArgument> InputArguments();
std::vector<HostileArgument> FontArguments();
std::vector<HostileArgument> ColourArguments();
std::vector<HostileArgument> PageArguments();
std::vector<HostileArgument> EnvironmentArguments();

}  // namespace quorvel::test
