// Runs dialogs of the library that no entry opens, with the library's own resources.
//
//   CLayoutCelSizeEditDlg dialog(&first, &second);
//   if (RunWithProductResources(dialog) == IDOK) ...
//
// For programs that link the dialogs themselves: Quorvel.dll exports the entries and nothing else,
// and a door of its own for tests and for the gallery would be one more thing that hosts get.
#pragma once

#include "driver/platform.h"
#include "framework/dpi_awareness.h"
#include "framework/module_state.h"

namespace quorvel::driver {

/// DoModal of `dialog` in the module state of Quorvel.dll, which the program must have loaded, and at
/// the display's own scale.
template <class Dialog>
INT_PTR RunWithProductResources(Dialog& dialog) {
  static AFX_MODULE_STATE state(::GetModuleHandleW(L"Quorvel.dll"));
  AFX_MANAGE_STATE(&state);
  const SystemDpiAwareness crisp;
  return dialog.DoModal();
}

}  // namespace quorvel::driver
