#include "driver/picture.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kList = 4030;

struct Answer {
  INT_PTR result;
  std::vector<int> states;
};

Answer Ask(const std::vector<std::string>& names, const std::vector<int>& initial,
           ModalScript& script) {
  const CString title("項目一覧 %d");
  CArray<CString, CString&> items;
  for (const std::string& name : names) {
    CString item(name.c_str());
    items.Add(item);
  }
  CByteArray states;
  for (const int state : initial) {
    states.Add(static_cast<BYTE>(state));
  }
  Answer answer{};
  answer.result = Work(script, [&] { return __CheckListDlg(&title, &items, &states); });
  for (INT_PTR i = 0; i < states.GetSize(); ++i) {
    answer.states.push_back(states[i]);
  }
  return answer;
}

Condition Shown() { return Painted(DialogWithTitle(L"項目一覧 %d")); }

Answer Ask(const std::vector<std::string>& names, const std::vector<int>& initial,
           ModalScript::Action action) {
  ModalScript script;
  script.When(Shown(), std::move(action));
  return Ask(names, initial, script);
}

HWND ListOf(HWND dialog) { return Control(dialog, kList); }

POINT CheckCell(HWND dialog, int row) {
  RECT cell{LVIR_BOUNDS, 1, 0, 0};
  ::SendMessageW(ListOf(dialog), LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&cell));
  return {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
}

std::wstring CellText(HWND dialog, int row, int column) {
  std::wstring text(100, L'\0');
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  const LRESULT length = ::SendMessageW(ListOf(dialog), LVM_GETITEMTEXTW,
                                        static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

int ColumnWidth(HWND dialog, int column) {
  return static_cast<int>(
      ::SendMessageW(ListOf(dialog), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

/// The measures that the layout follows: in the font that a device context comes with.
struct Measured {
  int widest = 0;
  int rowHeight = 0;
};
Measured MeasureFrom(HWND list, const std::vector<std::wstring>& names) {
  const HDC deviceContext = ::GetDC(list);
  Measured measured;
  for (const std::wstring& name : names) {
    SIZE size{};
    ::GetTextExtentPoint32W(deviceContext, name.c_str(), static_cast<int>(name.size()), &size);
    measured.widest = std::max<int>(measured.widest, size.cx);
  }
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(deviceContext, &metrics);
  measured.rowHeight = metrics.tmHeight - metrics.tmDescent;
  ::ReleaseDC(list, deviceContext);
  return measured;
}

void ExpectLayout(HWND dialog, const std::vector<std::wstring>& measuredNames, int rows) {
  const Measured measured = MeasureFrom(ListOf(dialog), measuredNames);
  const CRect list = ClientRectOf(ListOf(dialog));
  EXPECT_EQ(list.Width(), std::max(measured.widest + 41, 200));
  EXPECT_EQ(list.Height(), measured.rowHeight * (rows + 1));
  EXPECT_EQ(ColumnWidth(dialog, 0), measured.widest + 20);
  EXPECT_EQ(ColumnWidth(dialog, 1), 21);

  const CRect ok = ClientRectOf(Control(dialog, IDOK));
  const CRect cancel = ClientRectOf(Control(dialog, IDCANCEL));
  CRect okClient;
  ::GetClientRect(Control(dialog, IDOK), &okClient);
  const int width = okClient.Width();
  EXPECT_EQ(cancel.TopLeft(), CPoint(list.right - width, list.bottom + 10));
  EXPECT_EQ(ok.TopLeft(), CPoint(list.right - 2 * width - 10, list.bottom + 10));
  EXPECT_EQ(CRect(WindowRect(dialog)).Size(),
            CSize(list.Width() + 20,
                  list.Height() + ok.Height() + ::GetSystemMetrics(SM_CYCAPTION) + 30));
}

TEST(CheckListDlg, ShowsTitleHeadingsAndItems) {
  Ask({"用紙枠", "表ソ100%s", "寸法線"}, {1, 0, 9}, [](HWND dialog) {
    const auto columns =
        ::SendMessageW(reinterpret_cast<HWND>(::SendMessageW(ListOf(dialog), LVM_GETHEADER, 0, 0)),
                       HDM_GETITEMCOUNT, 0, 0);
    EXPECT_EQ(columns, 2);
    EXPECT_NE(::GetWindowLongPtrW(dialog, GWL_EXSTYLE) & WS_EX_LEFTSCROLLBAR, 0);
    std::wstring heading(40, L'\0');
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = heading.data();
    column.cchTextMax = static_cast<int>(heading.size());
    ::SendMessageW(ListOf(dialog), LVM_GETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    EXPECT_STREQ(heading.c_str(), L"項目名");
    ::SendMessageW(ListOf(dialog), LVM_GETCOLUMNW, 1, reinterpret_cast<LPARAM>(&column));
    EXPECT_STREQ(heading.c_str(), L"");
    EXPECT_EQ(::SendMessageW(ListOf(dialog), LVM_GETITEMCOUNT, 0, 0), 3);
    EXPECT_EQ(CellText(dialog, 1, 0), L"表ソ100%s");
    EXPECT_EQ(CellText(dialog, 0, 1), L"オン") << "for screen readers";
    EXPECT_EQ(CellText(dialog, 1, 1), L"オフ");
    Cancel(dialog);
  });
}

TEST(CheckListDlg, WritesOnly0And1) {
  const Answer answer = Ask({"甲", "乙", "丙"}, {255, 0, 2}, Confirm);
  EXPECT_EQ(answer.result, IDOK);
  EXPECT_EQ(answer.states, (std::vector{1, 0, 1}));
}

TEST(CheckListDlg, AClickIntoTheSecondColumnToggles) {
  const Answer answer = Ask({"甲", "乙", "丙"}, {0, 1, 0}, [](HWND dialog) {
    ClickAt(ListOf(dialog), CheckCell(dialog, 0));
    ClickAt(ListOf(dialog), CheckCell(dialog, 1));
    DoubleClickAt(ListOf(dialog), CheckCell(dialog, 2));  // there and back
    Confirm(dialog);
  });
  EXPECT_EQ(answer.states, (std::vector{1, 0, 0}));
}

TEST(CheckListDlg, AClickOnANameDoesNotToggle) {
  const Answer answer = Ask({"甲", "乙"}, {0, 1}, [](HWND dialog) {
    POINT point = CheckCell(dialog, 0);
    point.x = 5;
    ClickAt(ListOf(dialog), point);
    Confirm(dialog);
  });
  EXPECT_EQ(answer.states, (std::vector{0, 1}));
}

TEST(CheckListDlg, TheKeyboardAloneTicks) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), IDOK);
    PressTab(dialog);
    PressTab(dialog);
  });
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kList);
    PressKey(ListOf(dialog), VK_SPACE);
    PressKey(ListOf(dialog), VK_DOWN);
    PressKey(ListOf(dialog), VK_DOWN);
    PressKey(ListOf(dialog), VK_SPACE);
    PressKey(ListOf(dialog), VK_SPACE);
    PressKey(ListOf(dialog), VK_SPACE);
    PressKey(ListOf(dialog), VK_RETURN);
  });
  const Answer answer = Ask({"甲", "乙", "丙"}, {0, 0, 0}, script);
  EXPECT_EQ(answer.result, IDOK);
  EXPECT_EQ(answer.states, (std::vector{1, 0, 1}));
}

TEST(CheckListDlg, TheSpaceKeyGivesAllSelectedRowsTheFocusedOnesState) {
  const Answer answer = Ask({"甲", "乙", "丙"}, {0, 1, 0}, [](HWND dialog) {
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED;
    state.state = LVIS_SELECTED;
    ::SendMessageW(ListOf(dialog), LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                   reinterpret_cast<LPARAM>(&state));
    PressKey(ListOf(dialog), VK_SPACE);
    Confirm(dialog);
  });
  EXPECT_EQ(answer.states, (std::vector{1, 1, 1}));
}

TEST(CheckListDlg, CancelReturns2AndLeavesTheStates) {
  const Answer answer = Ask({"甲", "乙"}, {255, 0}, [](HWND dialog) {
    ClickAt(ListOf(dialog), CheckCell(dialog, 0));
    ClickAt(ListOf(dialog), CheckCell(dialog, 1));
    Click(dialog, IDCANCEL);
  });
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_EQ(answer.states, (std::vector{255, 0}));
}

TEST(CheckListDlg, ShowsAsManyItemsAsBothListsHave) {
  const auto rows = [](HWND dialog) {
    return ::SendMessageW(ListOf(dialog), LVM_GETITEMCOUNT, 0, 0);
  };
  const Answer moreNames = Ask({"甲", "乙", "丙"}, {3, 0}, [&](HWND dialog) {
    EXPECT_EQ(rows(dialog), 2);
    Confirm(dialog);
  });
  EXPECT_EQ(moreNames.states, (std::vector{1, 0}));
  const Answer moreStates = Ask({"甲"}, {0, 7, 8}, [&](HWND dialog) {
    EXPECT_EQ(rows(dialog), 1);
    Confirm(dialog);
  });
  EXPECT_EQ(moreStates.states, (std::vector{0, 7, 8}));
  const Answer nothing = Ask({}, {}, [&](HWND dialog) {
    EXPECT_EQ(rows(dialog), 0);
    Confirm(dialog);
  });
  EXPECT_EQ(nothing.result, IDOK);
}

TEST(CheckListDlg, SizesItselfToTheWidestNameAndTheItems) {
  Ask({"甲", "とても長い名前の項目がここにあるので一覧は広くなる", "丙", "丁"}, {0, 0, 0, 0},
      [](HWND dialog) {
        ExpectLayout(dialog, {L"とても長い名前の項目がここにあるので一覧は広くなる"}, 4);
        EXPECT_GT(CRect(ClientRectOf(ListOf(dialog))).Width(), 200);
        Cancel(dialog);
      });
}

TEST(CheckListDlg, ALongFirstNameAloneDoesNotWidenTheList) {
  Ask({"とても長い名前の項目がここにあるが一覧は広くならない", "乙"}, {0, 0}, [](HWND dialog) {
    ExpectLayout(dialog, {L"乙"}, 2);
    EXPECT_EQ(CRect(ClientRectOf(ListOf(dialog))).Width(), 200);
    Cancel(dialog);
  });
}

TEST(CheckListDlg, OneNameOnlyIsNotMeasured) {
  Ask({"とても長い名前の項目がひとつだけ"}, {1}, [](HWND dialog) {
    ExpectLayout(dialog, {}, 1);
    EXPECT_EQ(ColumnWidth(dialog, 0), 20);
    Cancel(dialog);
  });
}

TEST(CheckListDlg, NamesBeyondTheStatesAreMeasuredToo) {
  Ask({"甲", "乙", "この長い名前の項目には状態がないので表示されない"}, {0, 0}, [](HWND dialog) {
    ExpectLayout(dialog, {L"この長い名前の項目には状態がないので表示されない"}, 2);
    Cancel(dialog);
  });
}

TEST(CheckListDlg, EveryTickIsInSightWithoutScrolling) {
  for (const int count : {1, 2, 8, 30}) {
    const std::vector<std::string> names(static_cast<std::size_t>(count),
                                         "幅を決める名前の長い項目ですからね");
    Ask(names, std::vector<int>(static_cast<std::size_t>(count), 1), [count](HWND dialog) {
      const LONG_PTR style = ::GetWindowLongPtrW(ListOf(dialog), GWL_STYLE);
      EXPECT_EQ(style & (WS_HSCROLL | WS_VSCROLL), 0) << count << " items";
      CRect client;
      ::GetClientRect(ListOf(dialog), &client);
      const POINT last = CheckCell(dialog, count - 1);
      EXPECT_TRUE(::PtInRect(&client, last));
      Cancel(dialog);
    });
  }
}

TEST(CheckListDlg, TheRowOfHeadingsHasOneColourOverTheWholeWidth) {
  Ask({"甲", "乙"}, {0, 0}, [](HWND dialog) {
    const Picture list = ReadPixels(ListOf(dialog));
    const int beside = ColumnWidth(dialog, 0) + ColumnWidth(dialog, 1) + 1;
    ASSERT_LT(beside, list.width);
    for (const int x : {beside, list.width - 1}) {
      EXPECT_EQ(list.At(x, 3), list.At(ColumnWidth(dialog, 0) + 1, 3)) << x;
    }
    Cancel(dialog);
  });
}

TEST(CheckListDlg, ATickIsPainted) {
  ModalScript script;
  Picture unticked;
  const auto pictureOfCell = [](HWND dialog) {
    const Picture list = ReadPixels(ListOf(dialog));
    const POINT centre = CheckCell(dialog, 1);
    Picture cell{.width = 13, .height = 13, .bgrx = {}};
    for (int y = -6; y <= 6; ++y) {
      for (int x = -6; x <= 6; ++x) {
        cell.bgrx.push_back(list.At(centre.x + x, centre.y + y));
      }
    }
    return cell;
  };
  script.When(Shown(), [&](HWND dialog) {
    unticked = pictureOfCell(dialog);
    ClickAt(ListOf(dialog), CheckCell(dialog, 1));
    ClickAt(ListOf(dialog), CheckCell(dialog, 0));  // takes the selection's colour away
    Focus(Control(dialog, IDOK));
  });
  script.When(Shown(), [&](HWND dialog) {
    EXPECT_NE(pictureOfCell(dialog).bgrx, unticked.bgrx);
    ClickAt(ListOf(dialog), CheckCell(dialog, 1));
    ClickAt(ListOf(dialog), CheckCell(dialog, 0));
  });
  script.When(Shown(), [&](HWND dialog) { Focus(Control(dialog, IDOK)); });
  script.When(Shown(), [&](HWND dialog) {
    EXPECT_EQ(pictureOfCell(dialog).bgrx, unticked.bgrx);
    Cancel(dialog);
  });
  Ask({"甲", "乙"}, {0, 0}, script);
}

TEST(CheckListDlg, TheFirstAnswerCounts) {
  const auto answerTwice = [](WPARAM first, WPARAM second) {
    return Ask({"a"}, {7}, [=](HWND dialog) {
      ::SendMessageW(dialog, WM_COMMAND, first, 0);
      ::SendMessageW(dialog, WM_COMMAND, second, 0);
    });
  };
  const Answer confirmed = answerTwice(IDOK, IDCANCEL);
  EXPECT_EQ(confirmed.result, IDOK);
  EXPECT_EQ(confirmed.states, std::vector<int>({1}));
  const Answer cancelled = answerTwice(IDCANCEL, IDOK);
  EXPECT_EQ(cancelled.result, IDCANCEL);
  EXPECT_EQ(cancelled.states, std::vector<int>({7}));
}

}  // namespace
}  // namespace quorvel::test
