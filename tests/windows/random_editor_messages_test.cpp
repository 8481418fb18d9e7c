// Random messages to the layout editor do no harm: no crash, no hang, nothing left behind; a
// cancelled dialog has not changed the caller's page, and a confirmed one gives a sound page.
//
// The environment variables are those of the other random messages. What the editor opens is
// cancelled or confirmed at once.
#include "driver/controls.h"
#include "driver/leak_counters.h"
#include "driver/modal_script.h"
#include "res/ids.h"
#include "support/random_messages.h"
#include "support/same_page.h"

#include <quorvel/quorvel.h>

#include <gtest/gtest.h>

// Needs <windows.h> above.
#include <dlgs.h>

#include <array>
#include <cmath>
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

constexpr std::array kMouseMessages{UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP},
                                    UINT{WM_MOUSEMOVE},   UINT{WM_MOUSEMOVE},
                                    UINT{WM_LBUTTONDBLCLK}, UINT{WM_RBUTTONUP}};
constexpr std::array kNumberFields{IDC_LAYOUT_ROWS,      IDC_LAYOUT_COLUMNS, IDC_LAYOUT_HEIGHT,
                                   IDC_LAYOUT_WIDTH,     IDC_LAYOUT_MARGIN,  IDC_OUTER_LINE_WIDTH,
                                   IDC_INNER_LINE_WIDTH};
constexpr std::array kCounts{L"1", L"2", L"3", L"5", L"8", L"2*6", L"20"};
constexpr std::array kLengths{L"0", L"1", L"29.75", L"120", L"１０００/3", L"1e12"};
constexpr std::array kRefused{L"", L"0", L"21", L"-1", L"1e13", L"abc"};
constexpr std::array kKeys{VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_F2, VK_APPS};
constexpr std::array kModifiers{VK_CONTROL, VK_SHIFT};
constexpr int kTextEdit = 200;
constexpr std::array kTexts{L"", L"図", L"A&B", L"図面名称", L"<M>1 図番</M>",
                            L"long enough to be cut off at the edge of its cell"};

struct Case {
  std::string name;
  int lineMode;
  WORD lastCommand;  ///< that ends the last dialog
};

/// As seen by the keys that follow; not by the user's keyboard.
void HoldKey(int key, bool down) {
  constexpr BYTE kDown = 0x80;
  std::array<BYTE, 256> keys{};
  ::GetKeyboardState(keys.data());
  keys[static_cast<std::size_t>(key)] = down ? kDown : 0;
  ::SetKeyboardState(keys.data());
}

class EditorMessages : public RandomMessages {
public:
  EditorMessages(unsigned seed, int count, WORD lastCommand)
      : RandomMessages(seed, count), m_lastCommand(lastCommand) {}
  ~EditorMessages() override {
    for (const int key : kModifiers) {
      HoldKey(key, false);
    }
  }
  EditorMessages(const EditorMessages&) = delete;
  EditorMessages& operator=(const EditorMessages&) = delete;

protected:
  void Work(HWND dialog) override {
    if (driver::VisibleMenu() != nullptr) {
      AnswerMenu(dialog);
    } else if (IsEditor(dialog)) {
      RandomMessages::Work(dialog);
    } else {
      Answer(dialog);
    }
  }

  void Close(HWND dialog) override {
    if (driver::VisibleMenu() != nullptr) {
      ::PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 1);
    } else if (IsEditor(dialog)) {
      ::PostMessageW(dialog, WM_COMMAND, m_lastCommand, 0);
    } else {
      RandomMessages::Close(dialog);
    }
  }

  void SendOne(HWND dialog, HWND window) override {
    const int id = ::GetDlgCtrlID(window);
    if (id == IDOK || id == IDCANCEL) {
      EndNowAndThen(dialog);
      return;
    }
    switch (Number(0, 11)) {
      case 0:
      case 1:
      case 2:
        SendMouseToPicture(dialog);
        return;
      case 3:
        SendDrag(dialog);
        return;
      case 4:
        SendCellCommand(dialog);
        return;
      case 5:
        Insert(dialog);
        return;
      case 6:
        LeaveNumber(dialog);
        return;
      case 7:
        SendKey(dialog);
        return;
      case 8:
        TypeIntoCell(dialog);
        return;
      default:
        RandomMessages::SendOne(dialog, window);
        return;
    }
  }

private:
  static bool IsEditor(HWND dialog) { return ::GetDlgItem(dialog, IDC_LAYOUT_IMAGE) != nullptr; }

  void AnswerMenu(HWND dialog) {
    for (int down = Number(0, 4); down > 0; --down) {
      ::PostMessageW(dialog, WM_KEYDOWN, VK_DOWN, 1);
    }
    // A command that is not possible leaves the menu open.
    ::PostMessageW(dialog, WM_KEYDOWN, Number(0, 1) == 0 ? VK_RETURN : VK_ESCAPE, 1);
  }

  /// Colours and fonts are confirmed now and then. Files are not: they would be the machine's.
  void Answer(HWND dialog) {
    const bool canConfirm = ::GetDlgItem(dialog, IDC_COLOUR_TABS) != nullptr ||
                            ::GetDlgItem(dialog, IDC_GRID_OTHER) != nullptr ||
                            (::GetDlgItem(dialog, cmb1) != nullptr &&
                             ::GetDlgItem(dialog, cmb2) != nullptr &&
                             ::GetDlgItem(dialog, cmb3) != nullptr);
    if (canConfirm && Number(0, 1) == 0) {
      ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    } else {
      RandomMessages::Close(dialog);
    }
  }

  /// Now and then, or there would be nothing but openings.
  void EndNowAndThen(HWND dialog) {
    constexpr int kRarity = 20;
    if (Number(1, kRarity) == 1) {
      ::SendMessageW(dialog, WM_COMMAND, Number(0, 1) == 0 ? IDOK : IDCANCEL, 0);
    }
  }

  /// In the dialog's client pixels.
  static CRect PictureOf(HWND dialog) {
    const CRect picture(driver::ClientRectOf(driver::Control(dialog, IDC_LAYOUT_IMAGE)));
    return picture;
  }

  void SendMouseToPicture(HWND dialog) {
    const CPoint point = PointAround(PictureOf(dialog));
    const UINT message = OneOf(kMouseMessages);
    const bool isDown = message == WM_LBUTTONDOWN || message == WM_MOUSEMOVE;
    ::SendMessageW(dialog, message, isDown ? MK_LBUTTON : 0, MAKELPARAM(point.x, point.y));
  }

  void SendDrag(HWND dialog) {
    const CRect picture = PictureOf(dialog);
    const auto send = [&](UINT message) {
      const CPoint point = PointAround(picture);
      ::SendMessageW(dialog, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                     MAKELPARAM(point.x, point.y));
    };
    send(WM_LBUTTONDOWN);
    for (int steps = Number(0, 3); steps > 0; --steps) {
      send(WM_MOUSEMOVE);
    }
    send(WM_LBUTTONUP);
  }

  void SendCellCommand(HWND dialog) {
    const int command = Number(IDM_EDIT_TEXT, IDM_SPLIT_CELLS);
    if (command != IDM_EDIT_FONT || Number(0, 9) == 0) {  // the font dialog takes its time
      ::SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
  }

  void Insert(HWND dialog) {
    const HWND list = driver::Control(dialog, IDC_LAYOUT_INSERTION);
    ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(Number(-1, 3)), 0);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_LAYOUT_INSERTION, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(list));
  }

  void LeaveNumber(HWND dialog) {
    const int id = OneOf(kNumberFields);
    const HWND field = driver::Control(dialog, id);
    if (::IsWindowVisible(field) == FALSE || ::IsWindowEnabled(field) == FALSE) {
      return;  // nobody can type there
    }
    constexpr int kRarity = 16;  // a message box takes its time
    const bool isCount = id == IDC_LAYOUT_ROWS || id == IDC_LAYOUT_COLUMNS;
    ::SetWindowTextW(field, Number(1, kRarity) == 1 ? OneOf(kRefused)
                            : isCount               ? OneOf(kCounts)
                                                    : OneOf(kLengths));
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, EN_KILLFOCUS),
                   reinterpret_cast<LPARAM>(field));
  }

  void SendKey(HWND dialog) {
    const HWND edit = ::GetDlgItem(dialog, kTextEdit);
    if (edit != nullptr && Number(0, 1) == 0) {
      ::PostMessageW(edit, WM_KEYDOWN, Number(0, 1) == 0 ? VK_RETURN : VK_ESCAPE, 1);
    } else if (Number(0, 2) == 0) {
      HoldKey(OneOf(kModifiers), Number(0, 1) == 0);
    } else {
      ::PostMessageW(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(OneOf(kKeys)), 1);
    }
  }

  void TypeIntoCell(HWND dialog) {
    if (const HWND edit = ::GetDlgItem(dialog, kTextEdit); edit != nullptr) {
      ::SetWindowTextW(edit, OneOf(kTexts));
      ::SendMessageW(edit, EM_SETMODIFY, TRUE, 0);
    }
  }

  WORD m_lastCommand;
};

/// Whether a length is a number that a page takes.
bool IsLength(double length) { return std::isfinite(length) && length >= 0.0; }

/// Every grid position belongs to one cell: to itself or to the block that covers it.
void ExpectSoundBlocks(const CLayoutPageData& page) {
  const int rows = page.GetNumRow();
  const int cols = page.GetNumCol();
  std::vector<int> owners(static_cast<std::size_t>(page.GetCelSize()), 0);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    const CLayoutCelData& cel = *page.GetCelAt(index);
    const int height = cel.GetRowMeargeSize();
    const int width = cel.GetColMeargeSize();
    ASSERT_EQ(height == 0, width == 0) << index;
    const int top = index / cols;
    const int left = index % cols;
    ASSERT_LE(top + height, rows) << index;
    ASSERT_LE(left + width, cols) << index;
    for (int row = top; row < top + height; ++row) {
      for (int col = left; col < left + width; ++col) {
        const int covered = row * cols + col;
        ++owners[static_cast<std::size_t>(covered)];
        if (covered != index) {
          EXPECT_EQ(page.GetCelAt(covered)->GetRowMeargeSize(), 0) << covered;
          EXPECT_EQ(page.GetCelAt(covered)->GetColMeargeSize(), 0) << covered;
        }
      }
    }
  }
  EXPECT_EQ(owners, std::vector<int>(owners.size(), 1));
}

void ExpectSound(const CLayoutPageData& page, int lineMode) {
  ASSERT_GE(page.GetNumRow(), 1);
  ASSERT_LE(page.GetNumRow(), kMostLines);
  ASSERT_GE(page.GetNumCol(), 1);
  ASSERT_LE(page.GetNumCol(), kMostLines);
  ASSERT_EQ(page.GetCelSize(), page.GetNumRow() * page.GetNumCol());
  for (int row = 0; row < page.GetNumRow(); ++row) {
    EXPECT_TRUE(IsLength(page.GetLengthRow(row))) << row << ": " << page.GetLengthRow(row);
  }
  for (int col = 0; col < page.GetNumCol(); ++col) {
    EXPECT_TRUE(IsLength(page.GetLengthCol(col))) << col << ": " << page.GetLengthCol(col);
  }
  EXPECT_TRUE(IsLength(page.GetMargin()));
  EXPECT_EQ(page.GetType(), lineMode);
  ExpectSoundBlocks(page);
}

CLayoutPageData FirstPage() {
  CLayoutPageData page;
  page.DividePage(6, 5, kDotsPerMm);
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

/// Each dialog that the editor opens, and the menu, once: the first of a kind fill the system's
/// caches.
void OpenEverything(int lineMode) {
  const auto isEditor = driver::DialogWithControl(IDC_LAYOUT_IMAGE);
  const auto findOpened = [] {
    const std::vector<HWND> dialogs = driver::VisibleDialogs();
    const bool isOpened =
        !dialogs.empty() && ::GetDlgItem(dialogs.front(), IDC_LAYOUT_IMAGE) == nullptr;
    return isOpened ? dialogs.front() : nullptr;
  };
  const driver::Condition isOpened{"a dialog above the editor", findOpened};
  driver::ModalScript script;
  script.When(driver::Painted(isEditor), [](HWND editor) {
    const CRect picture(driver::ClientRectOf(driver::Control(editor, IDC_LAYOUT_IMAGE)));
    const CPoint centre((picture.left + picture.right) / 2, (picture.top + picture.bottom) / 2);
    driver::Drag(editor, centre, {centre.x, centre.y + 5});  // the border of the third row
    driver::ClickAt(editor, {centre.x, centre.y + 15});
  });
  std::vector<int> commands{IDM_EDIT_FONT, IDC_LAYOUT_TEXT_COLOUR_ARROW, IDM_OPEN_LAYOUT,
                            IDM_SAVE_LAYOUT};
  if (lineMode != 0) {
    commands.push_back(IDC_OUTER_LINE_COLOUR);
  }
  for (const int command : commands) {
    script.When(driver::Painted(isEditor), [command](HWND editor) {
      ::PostMessageW(editor, WM_COMMAND, static_cast<WPARAM>(command), 0);
    });
    script.When(driver::Painted(isOpened),
                [](HWND opened) { ::PostMessageW(opened, WM_COMMAND, IDCANCEL, 0); });
  }
  script.When(driver::Painted(isEditor), [](HWND editor) {
    ::SetWindowTextW(driver::Control(editor, IDC_LAYOUT_ROWS), L"21");
    ::PostMessageW(editor, WM_COMMAND, MAKEWPARAM(IDC_LAYOUT_ROWS, EN_KILLFOCUS), 0);
  });
  script.When(driver::Painted(isOpened), [](HWND box) {
    const HWND editor = ::GetWindow(box, GW_OWNER);
    ::SetWindowTextW(driver::Control(editor, IDC_LAYOUT_ROWS), L"6");
    ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
  });
  script.When(driver::Painted(isEditor),
              [](HWND editor) { ::PostMessageW(editor, WM_CONTEXTMENU, 0, -1); });
  script.When(driver::MenuShown(), [](HWND /*menu*/) {
    ::PostMessageW(driver::VisibleDialogs().front(), WM_KEYDOWN, VK_ESCAPE, 1);
  });
  script.When(driver::Painted(isEditor),
              [](HWND editor) { ::PostMessageW(editor, WM_COMMAND, IDCANCEL, 0); });
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
    EditorMessages messages(seed, count, GetParam().lastCommand);
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
  OpenEverything(GetParam().lineMode);
  run(MessageSeed(), kWarmUps);  // the first dialogs of a kind fill the system's caches
  const LeakCounters before = CountResources();
  run(MessageSeed() + 1, MessageCount());
  EXPECT_EQ(CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
