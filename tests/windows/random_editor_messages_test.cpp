// Random messages to the layout editor do no harm: no crash, no hang, nothing left behind; a
// cancelled dialog has not changed the caller's page, and a confirmed one gives a sound page.
//
// The environment variables are those of the other random messages. What the editor opens is
// cancelled or confirmed at once.
#include "driver/controls.h"
#include "driver/leak_counters.h"
#include "driver/modal_script.h"
#include "res/ids.h"
#include "support/editor_messages.h"
#include "support/same_page.h"

#include <quorvel/quorvel.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::LeakCounters;

constexpr const char* kKey = "Software\\QuorvelTests\\RandomMessages";
constexpr double kDotsPerMm = 11.811;
constexpr int kWarmUps = 2'000;
constexpr int kMostLines = 20;

constexpr std::array kNumberFields{
    NumberField{IDC_LAYOUT_ROWS, true},       NumberField{IDC_LAYOUT_COLUMNS, true},
    NumberField{IDC_LAYOUT_HEIGHT, false},    NumberField{IDC_LAYOUT_WIDTH, false},
    NumberField{IDC_LAYOUT_MARGIN, false},    NumberField{IDC_OUTER_LINE_WIDTH, false},
    NumberField{IDC_INNER_LINE_WIDTH, false}};

struct Case {
  std::string name;
  int lineMode;
  WORD lastCommand;  ///< that ends the last dialog
};

class GridMessages : public EditorMessages {
public:
  using EditorMessages::EditorMessages;

protected:
  bool IsEditor(HWND dialog) const override {
    return ::GetDlgItem(dialog, IDC_LAYOUT_IMAGE) != nullptr;
  }
  std::vector<HWND> PicturesOf(HWND editor) const override {
    return {driver::Control(editor, IDC_LAYOUT_IMAGE)};
  }
  std::span<const NumberField> NumberFields() const override { return kNumberFields; }
  int CelCommand() override { return Number(IDM_EDIT_TEXT, IDM_SPLIT_CELLS); }
};

void ExpectSound(CLayoutPageData& page, int lineMode) {
  ASSERT_GE(page.GetNumRow(), 1);
  ASSERT_LE(page.GetNumRow(), kMostLines);
  ASSERT_GE(page.GetNumCol(), 1);
  ASSERT_LE(page.GetNumCol(), kMostLines);
  EXPECT_TRUE(IsLength(page.GetMargin()));
  EXPECT_EQ(page.GetType(), lineMode);
  ExpectSoundCels(SheetBlock(page));
}

CLayoutPageData FirstPage() {
  CLayoutPageData page;
  page.DividePage(kRowsForOpenings, 5, kDotsPerMm);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    page.GetCelAt(index)->SetText("図面名称");
  }
  return page;
}

CStringArray Insertions() {
  CStringArray insertions;
  for (const char* name : {"図番", "縮尺", "日付"}) {
    insertions.Add(name);
  }
  return insertions;
}

/// The first dialogs of a kind fill the system's caches.
void OpenEverything(int lineMode) {
  std::vector<int> commands{IDM_EDIT_FONT, IDC_LAYOUT_TEXT_COLOUR_ARROW, IDM_OPEN_LAYOUT,
                            IDM_SAVE_LAYOUT};
  if (lineMode != 0) {
    commands.push_back(IDC_OUTER_LINE_COLOUR);
  }
  driver::ModalScript script;
  OpenEach(script, IDC_LAYOUT_IMAGE, commands, IDC_LAYOUT_ROWS);
  CKivSysEnv env(kKey);
  CStringArray insertions = Insertions();
  CLayoutPageData page = FirstPage();
  __LayoutEditDlg(&env, &page, &insertions, nullptr, kDotsPerMm, lineMode, nullptr);
  ASSERT_TRUE(script.Finished()) << script.Problem();
}

class RandomMessagesToEditor : public ::testing::TestWithParam<Case> {
protected:
  void TearDown() override { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }
};

INSTANTIATE_TEST_SUITE_P(Quorvel, RandomMessagesToEditor,
                         ::testing::Values(Case{"Cancelled", 0, IDCANCEL},
                                           Case{"Confirmed", 0, IDOK},
                                           Case{"OfLinesCancelled", 1, IDCANCEL},
                                           Case{"OfLinesConfirmed", 1, IDOK}),
                         [](const auto& info) { return info.param.name; });

TEST_P(RandomMessagesToEditor, DoNoHarm) {
  const Watchdog watchdog;
  const auto run = [&](unsigned seed, int count) {
    CKivSysEnv env(kKey);
    CStringArray insertions = Insertions();
    CLayoutPageData page = FirstPage();
    GridMessages messages(seed, count, GetParam().lastCommand);
    int openings = 0;
    int confirmed = 0;
    while (!messages.AreAllSent()) {
      const CLayoutPageData before = page;
      if (__LayoutEditDlg(&env, &page, &insertions, nullptr, kDotsPerMm, GetParam().lineMode,
                          nullptr) != FALSE) {
        ASSERT_NO_FATAL_FAILURE(ExpectSound(page, GetParam().lineMode));
        ++confirmed;
      } else {
        ASSERT_TRUE(IsSamePage(page, before));
      }
      ++openings;
      watchdog.Postpone();
    }
    std::printf("%s: %d openings, %d confirmed\n", GetParam().name.c_str(), openings, confirmed);
  };
  FillSystemCaches();
  ASSERT_NO_FATAL_FAILURE(OpenEverything(GetParam().lineMode));
  run(MessageSeed(), kWarmUps);  // the first dialogs of a kind fill the system's caches
  const LeakCounters before = CountResources();
  run(MessageSeed() + 1, MessageCount());
  EXPECT_EQ(CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
