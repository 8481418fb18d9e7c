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

/// The activation context of a module's manifest (resource 2), so that windows look as those of the
/// module itself do.
class ModuleContext {
public:
  explicit ModuleContext(HMODULE module);
  ~ModuleContext();
  ModuleContext(const ModuleContext&) = delete;
  ModuleContext& operator=(const ModuleContext&) = delete;

  /// Runs a function in the context.
  template <class Function>
  void Run(Function function) const {
    const Active active(m_context);
    function();
  }

private:
  class Active {
  public:
    explicit Active(HANDLE context) { ActivateActCtx(context, &m_cookie); }
    ~Active() { DeactivateActCtx(0, m_cookie); }
    Active(const Active&) = delete;
    Active& operator=(const Active&) = delete;

  private:
    ULONG_PTR m_cookie = 0;
  };

  HANDLE m_context;
};

/// Runs a dialog template of a module by the platform alone: DialogBoxParamW with a procedure that
/// does nothing but close on OK and Cancel, in the module's activation context. Owned by `owner`.
class BareDialog {
public:
  BareDialog(HMODULE module, UINT templateId)
      : m_module(module), m_templateId(templateId), m_context(module) {}
  void Run(HWND owner) const;

private:
  HMODULE m_module;
  UINT m_templateId;
  ModuleContext m_context;
};

}  // namespace quorvel::driver
