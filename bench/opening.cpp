#include "bench/opening.h"

#include "bench/timing.h"
#include "driver/dialog_owner.h"

#include <stdexcept>

namespace quorvel::bench {

namespace {

using driver::BareDialog;
using driver::DialogOwner;

constexpr int kWarmUps = 20;
constexpr double kMillisecondsInSecond = 1000.0;
constexpr double kMostTimesBare = 1.3;
constexpr double kMostMillisecondsOverBare = 5.0;

double Milliseconds(LONGLONG from, LONGLONG to) {
  return kMillisecondsInSecond * Seconds(from, to);
}

struct Times {
  std::vector<double> openToPaint;      ///< milliseconds
  std::vector<double> confirmToReturn;  ///< milliseconds
};

void Keep(const OpeningTimes& once, Times& times) {
  times.openToPaint.push_back(once.openToPaint);
  times.confirmToReturn.push_back(once.confirmToReturn);
}

}  // namespace

OpeningTimes TimeOpening(DialogOwner& owner, const std::function<void()>& call) {
  owner.SetCommand(IDOK);  // each time: the owner waits a minute for the next
  // The active window owns the dialog; another one of the thread may have become it meanwhile.
  ::SetActiveWindow(owner.Window());
  const int answered = owner.Answered();
  const LONGLONG called = Ticks();
  call();
  const LONGLONG returned = Ticks();
  if (owner.Answered() != answered + 1) {
    throw std::runtime_error("a dialog closed before it was painted");
  }
  return {Milliseconds(called, owner.PaintedAt()), Milliseconds(owner.PaintedAt(), returned)};
}

std::vector<Row> CompareOpening(const std::string& name, const std::string& against,
                                double mostTimesBare, int runs,
                                const std::function<void()>& call,
                                const std::function<void(HWND owner)>& bare, double uncounted) {
  DialogOwner owner;
  Times ours;
  Times theirs;
  for (int run = -kWarmUps; run < runs; ++run) {
    const OpeningTimes our = TimeOpening(owner, call);
    const OpeningTimes their = TimeOpening(owner, [&] { bare(owner.Window()); });
    if (run >= 0) {
      Keep(our, ours);
      Keep(their, theirs);
    }
  }
  const Pair opening{(Median(ours.openToPaint) - uncounted) / kMillisecondsInSecond,
                     Median(theirs.openToPaint) / kMillisecondsInSecond};
  const Pair closing{Median(ours.confirmToReturn), Median(theirs.confirmToReturn)};
  return {TimesAsLong(name + ", open to first full paint", against, opening, mostTimesBare, runs),
          LongerBy(name + ", confirm to return", against, closing, kMostMillisecondsOverBare,
                   runs)};
}

std::vector<Row> CompareOpening(const std::string& name, UINT templateId, int runs,
                                const std::function<void()>& call) {
  const BareDialog bare(::GetModuleHandleW(L"Quorvel.dll"), templateId);
  return CompareOpening(name, "its template", kMostTimesBare, runs, call,
                        [&bare](HWND owner) { bare.Run(owner); });
}

}  // namespace quorvel::bench
