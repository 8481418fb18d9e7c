// Random messages to the editors of an extended page do no harm: no crash, no hang, nothing left
// behind. The list editor keeps its page sound at each message; what the extended editor, and the
// list editors that it opens, made of a page is sound when confirmed and gone when cancelled.
//
// The environment variables are those of the other random messages. Ruled lines, data fields and
// exact lengths are worked a little; what else the editors open is cancelled or confirmed at once.
#include "dialogs/layout/layout_list_edit_dlg.h"
#include "driver/controls.h"
#include "driver/leak_counters.h"
#include "driver/product_state.h"
#include "res/ids.h"
#include "support/editor_messages.h"
#include "support/same_page.h"

#include <quorvel/quorvel.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::LeakCounters;

constexpr const char* kKey = "Software\\QuorvelTests\\RandomMessages";
constexpr double kDotsPerMm = 11.811;
constexpr int kWarmUps = 2'000;
constexpr BYTE kColumns = kRowsForOpenings;
constexpr int kMostRepeats = 200;
constexpr int kLargestOffset = 1000;

constexpr std::array kPictures{IDC_HEADER_IMAGE, IDC_LIST_IMAGE, IDC_FOOTER_IMAGE};
constexpr std::array kNumberFields{
    NumberField{IDC_HEADER_ROWS, true},       NumberField{IDC_HEADER_HEIGHT, false},
    NumberField{IDC_LIST_ROWS, true},         NumberField{IDC_LIST_HEIGHT, false},
    NumberField{IDC_FOOTER_ROWS, true},       NumberField{IDC_FOOTER_HEIGHT, false},
    NumberField{IDC_LAYOUT_COLUMNS, true},    NumberField{IDC_LAYOUT_WIDTH, false},
    NumberField{IDC_LIST_REPEAT, true},       NumberField{IDC_LIST_OFFSET, true},
    NumberField{IDC_OUTER_LINE_WIDTH, false}, NumberField{IDC_INNER_LINE_WIDTH, false}};
constexpr std::array kCelCommands{
    IDM_EDIT_TEXT,     IDM_EDIT_FONT,    IDM_ALIGN_TOP,     IDM_ALIGN_MIDDLE,  IDM_ALIGN_BOTTOM,
    IDM_ALIGN_LEFT,    IDM_ALIGN_CENTRE, IDM_ALIGN_RIGHT,   IDM_EDIT_LINES,    IDM_MERGE_CELLS,
    IDM_SPLIT_CELLS,   IDM_INSERT_COLUMN, IDM_DELETE_COLUMN, IDM_EQUAL_COLUMNS, IDM_INSERT_ROW,
    IDM_DELETE_ROW,    IDM_EQUAL_ROWS};
constexpr std::array kLineButtons{IDC_FRAME_NONE,           IDC_FRAME_OUTER,  IDC_FRAME_INNER,
                                  IDC_LINE_TOP,             IDC_LINE_BOTTOM,  IDC_LINE_LEFT,
                                  IDC_LINE_INNER_HORIZONTAL, IDC_LINE_RIGHT,
                                  IDC_LINE_INNER_VERTICAL};
constexpr std::array kFieldChoices{IDC_FIELD_TYPE, IDC_FIELD_FIRST, IDC_FIELD_COMPARISON,
                                   IDC_FIELD_SECOND, IDC_FIELD_DECIMALS};
constexpr std::array kValues{L"", L"0", L"1.25", L"図面", L"-7", L"</M>"};
constexpr std::array kSizes{L"0", L"0.1", L"5", L"12.34", L"１", L"1e12", L"abc"};
constexpr int kMessageBoxText = 0xFFFF;

bool Has(HWND dialog, int id) { return ::GetDlgItem(dialog, id) != nullptr; }

/// To either editor. `check` is called after each message to a list editor.
class BlockMessages : public EditorMessages {
public:
  BlockMessages(unsigned seed, int count, WORD lastCommand, std::function<void()> check = {})
      : EditorMessages(seed, count, lastCommand), m_seed(seed), m_check(std::move(check)) {}

protected:
  bool IsEditor(HWND dialog) const override { return Has(dialog, IDC_LAYOUT_TEXT_LINE); }

  std::vector<HWND> PicturesOf(HWND editor) const override {
    std::vector<HWND> pictures;
    for (const int id : kPictures) {
      if (Has(editor, id)) {
        pictures.push_back(::GetDlgItem(editor, id));
      }
    }
    return pictures;
  }

  std::span<const NumberField> NumberFields() const override { return kNumberFields; }

  int CelCommand() override { return OneOf(kCelCommands); }

  void SendOne(HWND dialog, HWND window) override {
    SCOPED_TRACE("message " + std::to_string(Sent()) + " of seed " + std::to_string(m_seed));
    constexpr int kRarityOfFields = 40;
    constexpr int kRarityOfEnds = 60;
    const bool isListEditor = !Has(dialog, IDC_LIST_IMAGE);
    if (Number(1, kRarityOfFields) == 1) {
      ::SendMessageW(dialog, WM_COMMAND, IDC_LAYOUT_FIELD, 0);
    } else if (Number(1, kRarityOfEnds) == 1) {
      ::SendMessageW(dialog, WM_COMMAND, OneOf(std::array{IDOK, IDCANCEL}), 0);
      EndBurst();
    } else {
      EditorMessages::SendOne(dialog, window);
    }
    if (isListEditor && m_check) {
      m_check();
      if (::testing::Test::HasFailure()) {
        Stop();
      }
    }
  }

  void Answer(HWND dialog) override {
    if (Has(dialog, IDC_FRAME_NONE)) {
      PressLineButtons(dialog);
      Press(dialog, OneOf(std::array{IDOK, IDOK, IDCANCEL}));
    } else if (Has(dialog, IDC_FIELD_TYPE) && Has(dialog, IDC_FIELD_SECOND)) {
      ChooseField(dialog);
      Press(dialog, OneOf(std::array{IDOK, IDOK, IDCANCEL}));
    } else if (Has(dialog, IDC_CEL_SIZE_FIRST) && Has(dialog, IDC_CEL_SIZE_SECOND)) {
      GiveSizes(dialog);
      Press(dialog, OneOf(std::array{IDOK, IDCANCEL}));
    } else if (Has(dialog, kMessageBoxText)) {
      Press(dialog, OneOf(std::array{IDOK, IDCANCEL}));
    } else {
      EditorMessages::Answer(dialog);
    }
  }

private:
  static void Press(HWND dialog, int command) {
    ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(command), 0);
  }

  void PressLineButtons(HWND dialog) {
    for (int presses = Number(0, 4); presses > 0; --presses) {
      ::SendMessageW(driver::Control(dialog, OneOf(kLineButtons)), BM_CLICK, 0, 0);
    }
  }

  void ChooseField(HWND dialog) {
    constexpr int kMostChoices = 12;
    for (int choices = Number(0, 3); choices > 0; --choices) {
      const int id = OneOf(kFieldChoices);
      const HWND list = driver::Control(dialog, id);
      ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(Number(-1, kMostChoices)), 0);
      ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
    }
    ::SetWindowTextW(driver::Control(dialog, IDC_FIELD_VALUE), OneOf(kValues));
    ::SendMessageW(driver::Control(dialog, IDC_FIELD_USE_DECIMALS), BM_CLICK, 0, 0);
  }

  void GiveSizes(HWND dialog) {
    const int id = OneOf(std::array{IDC_CEL_SIZE_FIRST, IDC_CEL_SIZE_SECOND});
    const HWND field = driver::Control(dialog, id);
    ::SetWindowTextW(field, OneOf(kSizes));
    if (Number(0, 1) == 0) {
      ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, EN_KILLFOCUS),
                     reinterpret_cast<LPARAM>(field));
    }
  }

  unsigned m_seed;
  std::function<void()> m_check;
};

void ExpectSound(CLayoutExPageData& page) {
  EXPECT_GE(page.GetRepeatRow(), 1);
  EXPECT_LE(page.GetRepeatRow(), kMostRepeats);
  EXPECT_GE(page.GetStIndex(), 1);
  EXPECT_LE(page.GetStIndex(), kLargestOffset);
  ASSERT_GE(page.GetNumCol(), 1);
  for (const CLayoutExPageData::LISTTYPE block : kBlocksOfPage) {
    SCOPED_TRACE("block " + std::to_string(block));
    ASSERT_GE(page.GetNumRow(block), 1);
    ASSERT_NO_FATAL_FAILURE(ExpectSoundCels(ExtendedBlock(page, block)));
  }
}

CLayoutExPageData FirstPage() {
  CLayoutExPageData page;
  for (const CLayoutExPageData::LISTTYPE block : kBlocksOfPage) {
    page.DividePage(block, kRowsForOpenings, kColumns, kDotsPerMm);
    page.SetAllLengthRow(block, 90.0F, 1);
    for (int index = 0; index < page.GetCelSize(block); ++index) {
      page.GetCelAt(block, index)->SetText("図面名称");
    }
  }
  page.SetAllLengthCol(160.0F, 1);
  return page;
}

/// What a host gives to the editors besides the page.
struct Lists {
  CKivSysEnv env{kKey};
  CStringArray fields;
  CStringArray insertions;

  Lists() {
    for (const char* name : {"図番", "縮尺", "日付"}) {
      fields.Add(name);
      insertions.Add(name);
    }
  }
};

BOOL OpenExtendedEditor(CLayoutExPageData& page) {
  Lists lists;
  return __LayoutExEditDlg(&lists.env, &page, &lists.fields, &lists.insertions, nullptr, kDotsPerMm,
                           nullptr);
}

void OpenListEditor(CLayoutExPageData& page, CLayoutExPageData::LISTTYPE block) {
  Lists lists;
  CLayoutListEditDlg dialog(&lists.env, nullptr, &page, &lists.fields, &lists.insertions, nullptr,
                            kDotsPerMm, block, nullptr, nullptr);
  driver::RunWithProductResources(dialog);
}

const std::vector<int> kOpenings{IDM_EDIT_FONT, IDC_LAYOUT_TEXT_COLOUR_ARROW, IDM_EDIT_LINES,
                                 IDC_LAYOUT_FIELD};

// The first dialogs of a kind fill the system's caches.

void OpenAllFromExtendedEditor() {
  const auto isExtended = driver::Painted(driver::DialogWithControl(IDC_LIST_IMAGE));
  driver::ModalScript script;
  script.When(isExtended, [](HWND editor) {
    const CRect picture(driver::ClientRectOf(driver::Control(editor, IDC_LIST_IMAGE)));
    driver::DoubleClickAt(editor, {picture.right - 1, picture.bottom - 1});
  });
  script.When(driver::Painted(driver::DialogWithTitle(L"ﾚｲｱｳﾄﾘｽﾄ編集")),
              [](HWND list) { ::PostMessageW(list, WM_COMMAND, IDCANCEL, 0); });
  std::vector<int> commands = kOpenings;
  commands.insert(commands.end(), {IDM_DELETE_COLUMN, IDC_OUTER_LINE_COLOUR, IDM_OPEN_LAYOUT,
                                   IDM_SAVE_LAYOUT});
  OpenEach(script, IDC_LIST_IMAGE, commands, IDC_LAYOUT_COLUMNS);
  CLayoutExPageData page = FirstPage();
  OpenExtendedEditor(page);
  ASSERT_TRUE(script.Finished()) << script.Problem();
}

void OpenAllFromListEditor() {
  driver::ModalScript script;
  OpenEach(script, IDC_BLOCK_IMAGE, kOpenings, 0);
  CLayoutExPageData page = FirstPage();
  OpenListEditor(page, CLayoutExPageData::LISTTYPE_LIST);
  ASSERT_TRUE(script.Finished()) << script.Problem();
}

struct Case {
  std::string name;
  WORD lastCommand;  ///< that ends the last dialog
};

class RandomMessagesToBlocks : public ::testing::TestWithParam<Case> {
protected:
  RandomMessagesToBlocks() { FillSystemCaches(); }

  void TearDown() override { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }

  /// Another one for each case.
  static unsigned Seed() { return MessageSeed() + 2U * GetParam().lastCommand; }
};

INSTANTIATE_TEST_SUITE_P(Quorvel, RandomMessagesToBlocks,
                         ::testing::Values(Case{"Cancelled", IDCANCEL}, Case{"Confirmed", IDOK}),
                         [](const auto& info) { return info.param.name; });

TEST_P(RandomMessagesToBlocks, DoNoHarmToTheExtendedEditor) {
  const Watchdog watchdog;
  const auto run = [&](unsigned seed, int count) {
    CLayoutExPageData page = FirstPage();
    BlockMessages messages(seed, count, GetParam().lastCommand);
    int openings = 0;
    int confirmed = 0;
    while (!messages.AreAllSent()) {
      const CLayoutExPageData before = page;
      if (OpenExtendedEditor(page) != FALSE) {
        ASSERT_NO_FATAL_FAILURE(ExpectSound(page));
        ++confirmed;
      } else {
        ASSERT_TRUE(IsSamePage(page, before)) << "seed " << seed;
      }
      ++openings;
      watchdog.Postpone();
    }
    std::printf("%s: %d openings, %d confirmed\n", GetParam().name.c_str(), openings, confirmed);
  };
  ASSERT_NO_FATAL_FAILURE(OpenAllFromExtendedEditor());
  ASSERT_NO_FATAL_FAILURE(run(Seed(), kWarmUps));
  const LeakCounters before = CountResources();
  ASSERT_NO_FATAL_FAILURE(run(Seed() + 1, MessageCount()));
  EXPECT_EQ(CountResources(), before);
}

TEST_P(RandomMessagesToBlocks, KeepThePageOfAListEditorSound) {
  const Watchdog watchdog;
  const auto run = [&](unsigned seed, int count) {
    CLayoutExPageData page = FirstPage();
    BlockMessages messages(seed, count, GetParam().lastCommand, [&page, &watchdog] {
      ExpectSound(page);
      watchdog.Postpone();
    });
    std::size_t openings = 0;
    while (!messages.AreAllSent()) {
      OpenListEditor(page, kBlocksOfPage[openings % kBlocksOfPage.size()]);
      ASSERT_NO_FATAL_FAILURE(ExpectSound(page));
      ++openings;
    }
    std::printf("%s: %zu openings, %d columns\n", GetParam().name.c_str(), openings,
                page.GetNumCol());
  };
  ASSERT_NO_FATAL_FAILURE(OpenAllFromListEditor());
  ASSERT_NO_FATAL_FAILURE(run(Seed(), kWarmUps));
  const LeakCounters before = CountResources();
  ASSERT_NO_FATAL_FAILURE(run(Seed() + 1, MessageCount()));
  EXPECT_EQ(CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
