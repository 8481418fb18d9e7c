// Works real modal dialogs on the calling thread, as a user would, while the call that shows them
// is still running:
//
//   ModalScript script;
//   script.When(DialogWithTitle(L"題名"), [](HWND dialog) { Click(dialog, IDOK); });
//   __InputTextDlg("題名", "説明", &text, nullptr);
//   // script.Finished() now, or script.Problem() says what did not happen
//
// A thread timer looks every 10 ms, in whatever modal loop runs (dialogs, message boxes, popup
// menus, the system's own dialogs), whether the next step can be done.
#pragma once

#include "driver/platform.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quorvel::driver {

/// Finds the window that a step waits for.
struct Condition {
  /// For reports, UTF-8.
  std::string what;
  /// Null as long as the condition does not hold. Called on every look, must be quick.
  std::function<HWND()> find;
};

/// `window` itself, as soon as it is visible and enabled.
Condition ThisWindow(HWND window);
/// The topmost dialog of this thread, whichever it is. Only visible and enabled ones count, here
/// and in every other condition.
Condition AnyDialog();
Condition DialogWithTitle(std::wstring title);
Condition DialogWithControl(int id);
/// For a dialog that opens above `known`.
Condition DialogOtherThan(HWND known);
/// A message box: its text is control 0xFFFF and it has nothing but texts and buttons.
Condition MessageBoxShown();
/// A popup menu; the action gets the menu's window.
Condition MenuShown();
/// `condition`'s window and all its children have been painted: none has anything left to paint in
/// two looks that follow each other. A window manager may take the focus for a moment when a dialog
/// above has closed: it is waited for, for a second.
Condition Painted(Condition condition);
/// As Painted, and the window's pixels on the screen were the same in three looks. Before a
/// picture is taken: the system shows what was painted with some delay.
Condition SteadyOnScreen(Condition condition);

/// How long a step may take to come, in milliseconds.
inline constexpr unsigned kStepDeadline = 10'000;

/// Dispatches this thread's messages until `condition` holds, for windows without a modal loop of
/// their own. Throws std::runtime_error if that takes longer than `deadline` milliseconds.
HWND WaitFor(const Condition& condition, unsigned deadline = kStepDeadline);

/// An ordered list of steps, run while it lives: let it live around the one call that shows the
/// dialog. One script at a time on a thread; its functions are called on its own thread only.
class ModalScript {
public:
  using Action = std::function<void(HWND)>;

  /// Ends the process with this status, a line on stderr, if the run hangs.
  static constexpr int kHangStatus = 99;

  /// A step that does not come within `stepDeadline` milliseconds after the one before (the first:
  /// after now) is recorded as the problem. All open dialogs of the thread are cancelled then, so
  /// that the run ends. If it has not ended after a second deadline, the process ends with
  /// kHangStatus.
  explicit ModalScript(unsigned stepDeadline = kStepDeadline);
  ~ModalScript();
  ModalScript(const ModalScript&) = delete;
  ModalScript& operator=(const ModalScript&) = delete;

  /// Appends a step: once `condition` holds, `action` runs once with the window found. Actions may
  /// throw (recorded as the problem), append steps, and start modal loops of their own: the steps
  /// that follow go on inside those.
  ModalScript& When(Condition condition, Action action);

  /// Whether every step has run to its end, without a problem.
  bool Finished() const { return m_problem.empty() && m_done == m_steps.size(); }
  /// What went wrong first, in UTF-8; empty if nothing did.
  const std::string& Problem() const { return m_problem; }

private:
  struct Step {
    Condition condition;
    Action action;
  };

  struct WatchdogCloser {
    void operator()(PTP_TIMER timer) const;
  };

  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
  static void CALLBACK OnHang(PTP_CALLBACK_INSTANCE instance, void* context, PTP_TIMER timer);

  void Tick();
  void Look();
  void RunNextStep(HWND window);
  void StartDeadline();
  void Fail(const std::string& problem);
  std::string StepName(std::size_t index) const;

  std::vector<Step> m_steps;
  std::size_t m_next = 0;
  std::size_t m_done = 0;
  std::string m_problem;
  unsigned m_stepDeadline;
  /// In milliseconds of the system's steady tick count.
  ULONGLONG m_deadline = 0;
  UINT_PTR m_timer = 0;
  std::unique_ptr<TP_TIMER, WatchdogCloser> m_watchdog;
};

}  // namespace quorvel::driver
