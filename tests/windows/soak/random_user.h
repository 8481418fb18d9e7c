// A user who does whatever comes: random steps at whatever dialog of the thread is on top, while a call
// that shows dialogs runs.
//
//   StepRecord record("SelRgb.txt");
//   RandomUser user(seed, 2'000, record);
//   while (!user.IsDone()) {
//     __SelRGBDlg(&color);   // closed at the latest when all steps are done
//   }
#pragma once

#include "framework/base_types.h"
#include "framework/geometry.h"
#include "soak/step_record.h"

#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace quorvel::test {

/// One at a time. A timer of the thread does the steps in bursts, in whatever modal loop runs. Since
/// timers come when nothing else is left to do, the same seed gives the same steps, and they do the
/// same.
class RandomUser {
public:
  RandomUser(unsigned seed, int steps, StepRecord& record);
  virtual ~RandomUser();
  RandomUser(const RandomUser&) = delete;
  RandomUser& operator=(const RandomUser&) = delete;

  bool IsDone() const { return m_done >= m_steps; }
  int StepsDone() const { return m_done; }
  /// What was found wrong after a step, with its number; empty if nothing was.
  const std::string& Fault() const { return m_fault; }

protected:
  int Number(int lowest, int highest) {
    return std::uniform_int_distribution(lowest, highest)(m_random);
  }
  bool OneIn(int rarity) { return Number(1, rarity) == 1; }
  template <class List>
  auto OneOf(const List& list) {
    return list[static_cast<std::size_t>(Number(0, static_cast<int>(std::size(list)) - 1))];
  }
  /// Each step is counted, and written down as a word and two numbers, before it is done.
  void Record(const char* what, HWND window, int first = 0, int second = 0) {
    m_record.AddStep(++m_done, what, window, first, second);
  }
  /// The dialog's modal loop gets its turn before the next step.
  void EndBurst() { m_bBurstEnds = true; }

  /// A dialog is on top: many steps, or the end of it.
  virtual void Work(HWND dialog);
  /// `window` is the dialog or one of its controls.
  virtual void DoStep(HWND dialog, HWND window);
  /// All steps are done, or too many dialogs lie over each other.
  virtual void Close(HWND dialog);
  /// After each step: what is wrong now; empty if nothing is.
  virtual std::string FaultNow(HWND /*dialog*/) { return {}; }
  /// What, besides its controls, a dialog shows.
  virtual std::string StateOf(HWND /*dialog*/) { return {}; }

  /// Into the window and around it.
  CPoint PointAround(const CRect& rect);
  void SendMouse(HWND window, UINT message, const CPoint& point);
  /// A key that goes to where the focus is.
  void PressKey(HWND dialog, int key);
  /// A choice in a combo box, a list or none at all.
  void Choose(HWND list);

private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);

  void Burst();
  void TypeCharacter(HWND dialog);
  void SendCommand(HWND parent, HWND window);
  void SendScroll(HWND parent, HWND window);
  void SendSliderNotification(HWND parent, HWND window);
  void GiveText(HWND window);
  void ClickButton(HWND window);

  static inline RandomUser* s_running = nullptr;

  std::mt19937 m_random;
  int m_steps;
  StepRecord& m_record;
  UINT_PTR m_timer = 0;
  int m_done = 0;
  bool m_bBurstEnds = false;
  std::string m_fault;
};

/// Ends the process when nobody tells it for a minute that all is well.
class Watchdog {
public:
  Watchdog();
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  /// All is well; `run` is named if the next minute brings nothing.
  static void Postpone(const std::string& run);

private:

  static inline PTP_TIMER s_timer = nullptr;
};

/// What the system keeps once it was needed: otherwise it comes when a message box first shows its
/// icon or a menu its mark, or when the deepest nesting of the run so far wants one more device
/// context at once.
void FillSystemCaches();

}  // namespace quorvel::test
