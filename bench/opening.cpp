#include "bench/opening.h"

#include "bench/timing.h"
#include "driver/dialog_owner.h"

#include <stdexcept>

namespace quorvel::bench {

namespace {

using driver::BareDialog;
using driver::DialogOwner;

constexpr int kWarmUps = 20;
constexpr double kMostTimesBare = 1.3;
constexpr double kMostMillisecondsOverBare = 5.0;

double Milliseconds(LONGLONG from, LONGLONG to) {
  return 1000.0 * Seconds(from, to);
}

struct Times {
  std::vector<double> openToPaint;      ///< milliseconds
  std::vector<double> confirmToReturn;  ///< milliseconds
};

/// Runs one modal dialog owned by `owner` and, where `counts`, adds its times.
void Time(DialogOwner& owner, const std::function<void()>& call, bool counts, Times& times) {
  owner.SetCommand(IDOK);
  // The active window owns the dialog; another one of the thread may have become it meanwhile.
  ::SetActiveWindow(owner.Window());
  const int answered = owner.Answered();
  const LONGLONG called = Ticks();
  call();
  const LONGLONG returned = Ticks();
  if (owner.Answered() != answered + 1) {
    throw std::runtime_error("a dialog closed before it was painted");
  }
  if (counts) {
    times.openToPaint.push_back(Milliseconds(called, owner.PaintedAt()));
    times.confirmToReturn.push_back(Milliseconds(owner.PaintedAt(), returned));
  }
}

}  // namespace

std::vector<Row> CompareOpening(const std::string& name, double mostTimesBare, int runs,
                                const std::function<void()>& call,
                                const std::function<void(HWND owner)>& bare, double uncounted) {
  DialogOwner owner;
  Times ours;
  Times theirs;
  for (int run = -kWarmUps; run < runs; ++run) {
    owner.SetCommand(IDOK);  // each time: the owner waits a minute for the next
    Time(owner, call, run >= 0, ours);
    Time(owner, [&] { bare(owner.Window()); }, run >= 0, theirs);
  }
  return {{name + ", open to first full paint", "times bare",
           (Median(ours.openToPaint) - uncounted) / Median(theirs.openToPaint), mostTimesBare,
           runs},
          {name + ", confirm to return", "ms over bare",
           Median(ours.confirmToReturn) - Median(theirs.confirmToReturn),
           kMostMillisecondsOverBare, runs}};
}

std::vector<Row> CompareOpening(const std::string& name, UINT templateId, int runs,
                                const std::function<void()>& call) {
  const BareDialog bare(::GetModuleHandleW(L"Quorvel.dll"), templateId);
  return CompareOpening(name, kMostTimesBare, runs, call,
                        [&bare](HWND owner) { bare.Run(owner); });
}

}  // namespace quorvel::bench
