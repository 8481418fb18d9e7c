// A host's window that answers its dialogs itself, as fast as any user could: for measuring and for
// very many openings, where a script is too slow.
//
//   DialogOwner owner;
//   owner.SetCommand(IDOK);
//   __InputDpiDlg(&dpi, nullptr);   // returns as soon as the dialog has been painted whole
#pragma once

#include "driver/platform.h"

namespace quorvel::driver {

/// Visible and active, so that it owns the dialogs of its thread. It hears from a dialog's modal
/// loop when that has nothing left to do; once the dialog and all its controls have been painted, it
/// presses the button. One at a time in a process.
class DialogOwner {
public:
  DialogOwner();
  ~DialogOwner();
  DialogOwner(const DialogOwner&) = delete;
  DialogOwner& operator=(const DialogOwner&) = delete;

  HWND Window() const { return m_window; }

  /// What is pressed from now on: the identifier of a button. From now on, too, a minute without
  /// another call ends the process with status 99: some dialog hangs.
  void SetCommand(WORD command);

  /// How many dialogs were painted and answered.
  int Answered() const { return m_answered; }
  /// When the last one had been painted, as QueryPerformanceCounter counts.
  LONGLONG PaintedAt() const { return m_paintedAt; }

private:
  static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnIdle(HWND dialog);

  HWND m_window = nullptr;
  WORD m_command = IDCANCEL;
  HWND m_lastAnswered = nullptr;
  int m_answered = 0;
  LONGLONG m_paintedAt = 0;
};

/// Runs a dialog template of a module by the platform alone: DialogBoxParamW with a procedure that
/// does nothing but close on OK and Cancel, in the activation context of the module's manifest
/// (resource 2), so that it looks as the module's own dialog does. Owned by `owner`.
class BareDialog {
public:
  BareDialog(HMODULE module, UINT templateId);
  ~BareDialog();
  BareDialog(const BareDialog&) = delete;
  BareDialog& operator=(const BareDialog&) = delete;
  void Run(HWND owner) const;

private:
  HMODULE m_module;
  UINT m_templateId;
  HANDLE m_context;
};

}  // namespace quorvel::driver
