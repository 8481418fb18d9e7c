// The font dialogs against the platform's font dialog with the same font and flags: how soon they are
// there, and how soon the sample follows a key.
#include "bench/benchmarks.h"
#include "bench/opening.h"
#include "bench/timing.h"
#include "driver/controls.h"
#include "driver/dialog_owner.h"
#include "driver/modal_script.h"
#include "framework/base_types.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

#include <commdlg.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::bench {

namespace {

constexpr double kMostTimesOpening = 1.1;
constexpr double kMostTimesKey = 1.3;

constexpr int kHeightField = 2005;
constexpr int kPlatformSizes = 1138;
constexpr const wchar_t* kFace = L"ＭＳ ゴシック";

void OpenFont() {
  CKivFont font;
  __SelFontDlg(nullptr, &font, 0.0, nullptr, TRUE, FALSE, QUORVEL_FONT_ALL);
}

void OpenFontEx() {
  CKivFontEx font;
  __SelFontExDlg(nullptr, &font, 0.0, nullptr, FALSE, QUORVEL_FONT_ALL);
}

/// The platform's own dialog, with the font and the flags of ours but no hook, and with a template
/// only if there is one.
void OpenPlatforms(HWND owner, WORD templateId = 0) {
  const HMODULE module = ::GetModuleHandleW(L"Quorvel.dll");
  const driver::ModuleContext context(module);
  context.Run([owner, templateId, module] {
    const LOGFONTA narrow = CKivFont().GetLogFont(0);
    LOGFONTW font{};
    font.lfHeight = narrow.lfHeight;
    font.lfWeight = narrow.lfWeight;
    font.lfCharSet = narrow.lfCharSet;
    std::copy_n(kFace, std::char_traits<wchar_t>::length(kFace), std::begin(font.lfFaceName));
    CHOOSEFONTW record{};
    record.lStructSize = sizeof record;
    record.hwndOwner = owner;
    record.lpLogFont = &font;
    record.Flags =
        CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_FORCEFONTEXIST | CF_TTONLY;
    if (templateId != 0) {
      record.Flags |= CF_ENABLETEMPLATE;
      record.hInstance = module;
      record.lpTemplateName = MAKEINTRESOURCEW(templateId);
    }
    ::ChooseFontW(&record);
  });
}

/// What a user's key comes to in a dialog, once for each value of `turn`.
using Key = std::function<void(HWND dialog, int turn)>;

/// Seconds from a key to the painted dialog, `times` of them, in the dialog that `open` shows.
std::vector<double> TimeKeys(int times, const std::function<void()>& open, const Key& key) {
  std::vector<double> seconds;
  driver::ModalScript script;
  script.When(driver::Painted(driver::AnyDialog()), [&](HWND dialog) {
    for (int turn = 0; turn < times; ++turn) {
      const LONGLONG start = Ticks();
      key(dialog, turn);
      ::RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
      ::GdiFlush();
      seconds.push_back(Seconds(start, Ticks()));
    }
    driver::PressKey(dialog, VK_ESCAPE);
  });
  open();
  if (!script.Finished()) {
    throw std::runtime_error(script.Problem());
  }
  return seconds;
}

/// One key in the height field, typed over its text: the sample changes between 16 and 20 points.
void TypeHeight(HWND dialog, int turn) {
  const HWND field = driver::Control(dialog, kHeightField);
  ::SendMessageW(field, EM_SETSEL, 0, -1);
  ::SendMessageW(field, WM_CHAR, turn % 2 == 0 ? L'5' : L'6', 1);
}

/// One key in the platform's list of sizes: the sample changes between 18 and 20 points.
void MoveInSizes(HWND dialog, int turn) {
  const HWND sizes = driver::Control(dialog, kPlatformSizes);
  if (turn == 0) {
    const LRESULT index = ::SendMessageW(sizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(L"18"));
    ::SendMessageW(sizes, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  }
  const HWND field = ::FindWindowExW(sizes, nullptr, L"Edit", nullptr);
  const LRESULT before = ::SendMessageW(sizes, CB_GETCURSEL, 0, 0);
  ::SendMessageW(field, WM_KEYDOWN, turn % 2 == 0 ? VK_DOWN : VK_UP, 1);
  if (::SendMessageW(sizes, CB_GETCURSEL, 0, 0) == before) {
    throw std::runtime_error("the platform's size does not change");
  }
}

/// The rounds' ratios, so that what else the machine does falls on both alike.
Row Keys(int runs) {
  constexpr int kRounds = 20;
  constexpr int kWarmUps = 4;
  const auto median = [](std::vector<double> round) {
    round.erase(round.begin(), round.begin() + kWarmUps);
    return Median(std::move(round));
  };
  const int keys = std::max(2 * runs / kRounds, 1);
  std::vector<double> oursTook;
  std::vector<double> theirsTook;
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    const double ours = median(TimeKeys(kWarmUps + keys, OpenFont, TypeHeight));
    const double theirs = median(TimeKeys(
        kWarmUps + keys, [] { OpenPlatforms(nullptr); }, MoveInSizes));
    oursTook.push_back(ours);
    theirsTook.push_back(theirs);
    ratios.push_back(ours / theirs);
  }
  Row row = TimesAsLong("__SelFontDlg, key to repainted sample", "ChooseFont",
                        {Median(oursTook), Median(theirsTook)}, kMostTimesKey, kRounds * keys);
  row.figure = Median(ratios);
  return row;
}

}  // namespace

std::vector<Row> FontDialogs(int runs) {
  std::vector<Row> rows = CompareOpening("__SelFontDlg", "ChooseFont", kMostTimesOpening, runs,
                                         OpenFont, [](HWND owner) { OpenPlatforms(owner); });
  // It has almost twice the controls of the platform's own dialog: what making them costs is the
  // platform's.
  const std::vector<Row> extended =
      CompareOpening("__SelFontExDlg", "ChooseFont with its template", kMostTimesOpening, runs,
                     OpenFontEx, [](HWND owner) { OpenPlatforms(owner, IDD_SEL_FONT_EX); });
  rows.insert(rows.end(), extended.begin(), extended.end());
  rows.push_back(Keys(runs));
  return rows;
}

}  // namespace quorvel::bench
