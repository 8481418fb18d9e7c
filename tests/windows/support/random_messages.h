// Random messages to whatever dialog of the thread is on top, while a call that shows dialogs runs.
//
//   RandomMessages messages(seed, MessageCount());
//   while (!messages.AreAllSent()) {
//     __SelRGBDlg(&color);   // closed at the latest when all are sent
//   }
#pragma once

#include "framework/base_types.h"
#include "framework/geometry.h"

#include <cstddef>
#include <iterator>
#include <random>
#include <vector>

namespace quorvel::test {

/// One at a time. A timer of the thread sends them in bursts, in whatever modal loop runs.
class RandomMessages {
public:
  /// The same seed gives the same choices; what the system makes of them may differ a little.
  RandomMessages(unsigned seed, int count);
  virtual ~RandomMessages();
  RandomMessages(const RandomMessages&) = delete;
  RandomMessages& operator=(const RandomMessages&) = delete;

  bool AreAllSent() const { return m_sent >= m_count; }

protected:
  /// Nothing more is sent: something was found.
  void Stop() { m_sent = m_count; }
  int Sent() const { return m_sent; }
  /// The dialog's modal loop gets its turn before the next message.
  void EndBurst() { m_bBurstEnds = true; }

  int Number(int lowest, int highest) {
    return std::uniform_int_distribution(lowest, highest)(m_random);
  }
  template <class List>
  auto OneOf(const List& list) {
    return list[static_cast<std::size_t>(Number(0, static_cast<int>(std::size(list)) - 1))];
  }

  /// A dialog is on top: sends many messages to it, or ends it.
  virtual void Work(HWND dialog);
  /// `window` is the dialog or one of its controls.
  virtual void SendOne(HWND dialog, HWND window);
  /// All are sent, or too many dialogs lie over each other.
  virtual void Close(HWND dialog);

  /// Into the window and around it.
  CPoint PointAround(const CRect& rect);
  void SendMouse(HWND window, UINT message, const CPoint& point);

private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);

  void Burst();
  void SendCommand(HWND parent, HWND window);
  void SendSliderNotification(HWND parent, HWND window);

  static inline RandomMessages* s_running = nullptr;

  std::mt19937 m_random;
  int m_count;
  UINT_PTR m_timer = 0;
  int m_sent = 0;
  bool m_bBurstEnds = false;
};

/// Ends the process when nobody tells it for a minute that all is well.
class Watchdog {
public:
  Watchdog();
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  void Postpone() const;

private:
  PTP_TIMER m_timer;
};

/// What the environment variable QUORVEL_RANDOM_MESSAGES tells, at least 1; 10,000 without it.
int MessageCount();
/// What QUORVEL_RANDOM_SEED tells, or one that is always the same.
unsigned MessageSeed();

/// What the system keeps once it was needed: otherwise it comes when a message box first shows its
/// icon or a menu its mark, or when the deepest nesting of the run so far wants one more device
/// context at once.
void FillSystemCaches();

}  // namespace quorvel::test
