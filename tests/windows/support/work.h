// Runs a call that shows dialogs while a script works them.
#pragma once

#include "driver/controls.h"
#include "driver/modal_script.h"

#include <gtest/gtest.h>

namespace quorvel::test {

using namespace quorvel::driver;  // the tests speak the driver's language

/// Calls `call`; the test fails when a step of the script did not come or threw.
template <class Call>
auto Work(ModalScript& script, Call call) {
  auto result = call();
  EXPECT_TRUE(script.Finished()) << script.Problem();
  return result;
}

/// The common case: one dialog, worked in one step once it has been painted.
template <class Call>
auto WorkDialog(Call call, ModalScript::Action action) {
  ModalScript script;
  script.When(Painted(AnyDialog()), std::move(action));
  return Work(script, call);
}

/// The dialog that has a control has the focus in a field: behind a message it comes back with some
/// delay.
inline Condition Focused(int controlOfDialog, int id) {
  return {"the field has the focus", [controlOfDialog, id]() -> HWND {
            const HWND dialog = DialogWithControl(controlOfDialog).find();
            return dialog != nullptr && FocusedControlId(dialog) == id ? dialog : nullptr;
          }};
}

inline void Confirm(HWND dialog) { Click(dialog, IDOK); }
inline void Cancel(HWND dialog) { PressKey(dialog, VK_ESCAPE); }

/// The selected part of an edit field.
struct Selection {
  DWORD first = 0;
  DWORD last = 0;
  friend bool operator==(const Selection&, const Selection&) = default;
};
inline Selection SelectionOf(HWND edit) {
  Selection selection;
  ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.first),
                 reinterpret_cast<LPARAM>(&selection.last));
  return selection;
}
inline Selection WholeText(HWND edit) {
  return {0, static_cast<DWORD>(::GetWindowTextLengthW(edit))};
}

}  // namespace quorvel::test
