// The name that the platform gives a screen reader for a control, by the rule that it documents.
//
// A control that holds what the user has put in is named by the static text before it in the order of
// the windows, shown or not, however many controls that are neither shown nor reached by Tab lie
// between. Any other control is named by its own text. The sign of an access key is left out.
#pragma once

#include "driver/platform.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace quorvel::test {

/// Empty where the control has no name.
std::wstring AccessibleName(HWND control);

/// A control that has to have a name, as a screen reader tells it.
struct NamedControl {
  int id = 0;
  std::wstring name;
  friend bool operator==(const NamedControl&, const NamedControl&) = default;
};

/// The shown controls of a dialog and of the pages on it, in the order of the windows: all that can
/// have the focus or show a value. Texts without an identifier and group boxes are labels and are
/// left out.
std::vector<NamedControl> NamedControls(HWND dialog);

/// For reports.
void PrintTo(const NamedControl& control, std::ostream* stream);

}  // namespace quorvel::test
