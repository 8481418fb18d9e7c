#include "driver/modal_script.h"

#include "driver/controls.h"
#include "driver/picture.h"
#include "driver/text.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace quorvel::driver {

namespace {

constexpr int kMessageTextId = 0xFFFF;

// A thread timer's procedure gets no context of its own.
thread_local ModalScript* g_running = nullptr;

HWND FirstDialog(const std::function<bool(HWND)>& accept) {
  const std::vector<HWND> dialogs = VisibleDialogs();
  const auto found = std::ranges::find_if(dialogs, accept);
  return found == dialogs.end() ? nullptr : *found;
}

std::vector<HWND> Children(HWND window) {
  std::vector<HWND> children;
  const auto visit = [](HWND child, LPARAM parameter) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
    return TRUE;
  };
  EnumChildWindows(window, visit, reinterpret_cast<LPARAM>(&children));
  return children;
}

bool IsMessageBox(HWND dialog) {
  // Templates of other dialogs number their texts 0xFFFF as well, so look at the rest, too.
  const HWND message = GetDlgItem(dialog, kMessageTextId);
  return message != nullptr && ClassName(message) == L"Static" &&
         std::ranges::all_of(Children(dialog), [](HWND child) {
           const std::wstring name = ClassName(child);
           return name == L"Static" || name == L"Button";
         });
}

bool NothingToPaint(HWND window) {
  const auto clean = [](HWND target) {
    return IsWindowVisible(target) == FALSE || GetUpdateRect(target, nullptr, FALSE) == FALSE;
  };
  return clean(window) && std::ranges::all_of(Children(window), clean);
}

std::string Describe(HWND dialog) {
  std::string description = "'" + Utf8(Text(dialog)) + "'";
  if (IsMessageBox(dialog)) {
    description += " (message '" + Utf8(Text(dialog, kMessageTextId)) + "')";
  }
  return description;
}

std::string DescribeVisibleDialogs() {
  std::string list;
  for (const HWND dialog : VisibleDialogs()) {
    list += (list.empty() ? "" : ", ") + Describe(dialog);
  }
  return list.empty() ? "none" : list;
}

/// Asks every menu and dialog to go away. Called again and again: closing one enables the next.
void CancelEverything() {
  EndMenu();
  for (const HWND dialog : VisibleDialogs()) {
    PostMessageW(dialog, WM_CANCELMODE, 0, 0);
    // A message box without a cancel button accepts only the buttons that it has.
    const int answer = GetDlgItem(dialog, IDNO) != nullptr ? IDNO : IDCANCEL;
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
    PostMessageW(dialog, WM_CLOSE, 0, 0);
  }
}

}  // namespace

Condition ThisWindow(HWND window) {
  return {"the window", [window]() -> HWND {
            return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE ? window
                                                                                        : nullptr;
          }};
}

Condition AnyDialog() {
  return {"any dialog", [] { return FirstDialog([](HWND) { return true; }); }};
}

Condition DialogWithTitle(std::wstring title) {
  std::string what = "dialog '" + Utf8(title) + "'";
  return {std::move(what), [title = std::move(title)] {
            return FirstDialog([&title](HWND dialog) { return Text(dialog) == title; });
          }};
}

Condition DialogWithControl(int id) {
  return {"dialog with control " + std::to_string(id), [id] {
            return FirstDialog([id](HWND dialog) { return GetDlgItem(dialog, id) != nullptr; });
          }};
}

Condition DialogOtherThan(HWND known) {
  return {"another dialog",
          [known] { return FirstDialog([known](HWND dialog) { return dialog != known; }); }};
}

Condition MessageBoxShown() {
  return {"message box", [] { return FirstDialog(IsMessageBox); }};
}

Condition MenuShown() {
  return {"popup menu", VisibleMenu};
}

Condition Painted(Condition condition) {
  constexpr int kMostLooks = 100;  // without a focus: somebody else may have it
  std::string what = condition.what + ", painted";
  return {std::move(what),
          [find = std::move(condition.find), cleanBefore = HWND{nullptr},
           looks = 0]() mutable -> HWND {
            const HWND window = find();
            const HWND clean = window != nullptr && NothingToPaint(window) ? window : nullptr;
            if (std::exchange(cleanBefore, clean) != clean || clean == nullptr) {
              return nullptr;
            }
            return GetFocus() != nullptr || ++looks > kMostLooks ? clean : nullptr;
          }};
}

Condition SteadyOnScreen(Condition condition) {
  constexpr int kEqualLooks = 3;
  std::string what = condition.what + ", steady on the screen";
  return {std::move(what),
          [painted = Painted(std::move(condition)).find, last = Picture{},
           equalLooks = 0]() mutable -> HWND {
            const HWND window = painted();
            if (window == nullptr) {
              equalLooks = 0;
              return nullptr;
            }
            Picture now = ReadScreen(WindowRect(window));
            equalLooks = equalLooks > 0 && now == last ? equalLooks + 1 : 1;
            last = std::move(now);
            return equalLooks >= kEqualLooks ? window : nullptr;
          }};
}

HWND WaitFor(const Condition& condition, unsigned deadline) {
  const ULONGLONG end = GetTickCount64() + deadline;
  while (true) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    if (const HWND window = condition.find()) {
      return window;
    }
    if (GetTickCount64() >= end) {
      throw std::runtime_error(condition.what + " did not appear");
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, USER_TIMER_MINIMUM, QS_ALLINPUT);
  }
}

ModalScript::ModalScript(unsigned stepDeadline) : m_stepDeadline(stepDeadline) {
  if (g_running != nullptr) {
    throw std::logic_error("another script is running on this thread");
  }
  m_watchdog.reset(CreateThreadpoolTimer(OnHang, this, nullptr));
  m_timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
  if (m_watchdog == nullptr || m_timer == 0) {
    throw std::runtime_error("the script's timers could not be created");
  }
  g_running = this;
  StartDeadline();
}

ModalScript::~ModalScript() {
  KillTimer(nullptr, m_timer);
  g_running = nullptr;
}

void ModalScript::WatchdogCloser::operator()(PTP_TIMER timer) const {
  SetThreadpoolTimer(timer, nullptr, 0, 0);
  WaitForThreadpoolTimerCallbacks(timer, TRUE);
  CloseThreadpoolTimer(timer);
}

ModalScript& ModalScript::When(Condition condition, Action action) {
  m_steps.push_back({std::move(condition), std::move(action)});
  return *this;
}

void CALLBACK ModalScript::OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR timer,
                                   DWORD /*time*/) {
  // A last message of a killed timer may still be in the queue.
  if (g_running != nullptr && g_running->m_timer == timer) {
    g_running->Tick();
  }
}

void CALLBACK ModalScript::OnHang(PTP_CALLBACK_INSTANCE /*instance*/, void* /*context*/,
                                  PTP_TIMER /*timer*/) {
  std::fputs("the modal run did not end in time\n", stderr);
  std::fflush(stderr);
  // The stuck thread may hold any lock, so no orderly end is possible.
  TerminateProcess(GetCurrentProcess(), kHangStatus);
}

void ModalScript::Tick() {
  // No exception may pass through the system's message dispatch.
  try {
    Look();
  } catch (const std::exception& error) {
    Fail(StepName(m_next) + " could not be looked for: " + error.what());
  } catch (...) {
    Fail(StepName(m_next) + " could not be looked for");
  }
}

void ModalScript::Look() {
  if (!m_problem.empty()) {
    CancelEverything();
    return;
  }
  if (m_next < m_steps.size()) {
    if (const HWND window = m_steps[m_next].condition.find()) {
      RunNextStep(window);
      return;
    }
  }
  if (GetTickCount64() < m_deadline) {
    return;
  }
  if (m_next < m_steps.size()) {
    Fail(StepName(m_next) + " did not appear; visible dialogs: " + DescribeVisibleDialogs());
  } else {
    Fail("the run went on after the last step; visible dialogs: " + DescribeVisibleDialogs());
  }
}

void ModalScript::RunNextStep(HWND window) {
  const std::size_t index = m_next++;
  StartDeadline();
  // Taken out: the action may append steps, which moves the others.
  const Action action = std::move(m_steps[index].action);
  try {
    action(window);
    ++m_done;
  } catch (const std::exception& error) {
    Fail(StepName(index) + " failed: " + error.what());
  } catch (...) {
    Fail(StepName(index) + " failed");
  }
}

void ModalScript::StartDeadline() {
  constexpr LONGLONG kFileTimeUnits = 10'000;  // of 100 nanoseconds, in a millisecond
  m_deadline = GetTickCount64() + m_stepDeadline;
  // Negative: from now on.
  const LARGE_INTEGER due{.QuadPart = -2 * LONGLONG{m_stepDeadline} * kFileTimeUnits};
  FILETIME dueTime{due.u.LowPart, static_cast<DWORD>(due.u.HighPart)};
  SetThreadpoolTimer(m_watchdog.get(), &dueTime, 0, 0);
}

void ModalScript::Fail(const std::string& problem) {
  if (m_problem.empty()) {
    m_problem = problem;
    StartDeadline();
    CancelEverything();
  }
}

std::string ModalScript::StepName(std::size_t index) const {
  const std::string what = index < m_steps.size() ? m_steps[index].condition.what : "end";
  return "step " + std::to_string(index + 1) + " '" + what + "'";
}

}  // namespace quorvel::driver
