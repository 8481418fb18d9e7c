#include "dialogs/layout/layout_frame_edit_dlg.h"

#include "driver/picture.h"
#include "driver/product_state.h"
#include "support/work.h"

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr double kDotsPerMm = 11.811;
constexpr std::size_t kLines = 6;
constexpr std::array kLineIds{4019, 4020, 4021, 4022, 4023, 4024};
constexpr int kNone = 4015;
constexpr int kOuter = 4017;
constexpr int kInner = 4018;
constexpr int kPreview = 2040;
constexpr int kStyles = 4013;
constexpr int kColour = 2003;

using Flags = std::array<int, kLines>;

/// A page whose list block has a selected run without lines at (1, 1).
class Page {
public:
  Page(int rows, int cols) {
    m_page.DividePage(kBlock, 5, 5, kDotsPerMm);
    for (int row = 0; row < rows; ++row) {
      for (int col = 0; col < cols; ++col) {
        Cell(1 + row, 1 + col).SetSelected(1);
      }
    }
    m_page.SetShowLine(kBlock, 0, 0, 0, 0, 0, 0);
  }

  void Show(const Flags& flags) {
    m_page.SetShowLine(kBlock, flags[0], flags[1], flags[2], flags[3], flags[4], flags[5]);
  }

  /// Runs the dialog, which `action` works.
  INT_PTR Edit(ModalScript::Action action) {
    CLayoutFrameEditDlg dialog(nullptr, &m_page, kBlock, nullptr);
    return WorkDialog([&] { return RunWithProductResources(dialog); }, std::move(action));
  }

  Flags Lines() const {
    Flags flags{};
    const FrameLines lines = ReadFrameLines(m_page, kBlock);
    std::copy_n(lines.shown.begin(), flags.size(), flags.begin());
    return flags;
  }
  CLayoutCelData& Cell(int row, int col) {
    return *m_page.GetCelAt(kBlock, m_page.GetIndexFromRowCol(row, col));
  }

private:
  CLayoutExPageData m_page;
};

/// A click that has been dealt with when the call returns.
void Press(HWND dialog, int id) { ::SendMessageW(Control(dialog, id), BM_CLICK, 0, 0); }

bool IsPressed(HWND dialog, int id) {
  return (::SendMessageW(Control(dialog, id), BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
}

/// What the preview's pixels must be, drawn from the table of its lines on plain white.
Picture ExpectedPreview(HDC like, const CSize& size, const Flags& flags, bool rows, bool columns) {
  struct Line {
    int x1, y1, x2, y2;
  };
  constexpr std::array<Line, kLines> kTable{{{5, 5, 125, 5},
                                             {5, 40, 125, 40},
                                             {5, 75, 125, 75},
                                             {5, 5, 5, 75},
                                             {65, 5, 65, 75},
                                             {125, 5, 125, 75}}};
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* pixels = nullptr;
  const OwnedBitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  const MemoryDC memory(like);
  const SelectedObject selected(memory.Handle(), bitmap.get());
  ::PatBlt(memory.Handle(), 0, 0, size.cx, size.cy, WHITENESS);
  for (std::size_t i = 0; i < kLines; ++i) {
    if ((i == 1 && !rows) || (i == 4 && !columns)) {
      continue;
    }
    const OwnedPen pen(flags[i] != 0 ? ::CreatePen(PS_SOLID, 1, RGB(0, 0, 0))
                                     : ::CreatePen(PS_DOT, 1, RGB(0xC0, 0xC0, 0xC0)));
    const SelectedObject selectedPen(memory.Handle(), pen.get());
    ::MoveToEx(memory.Handle(), kTable[i].x1, kTable[i].y1, nullptr);
    ::LineTo(memory.Handle(), kTable[i].x2, kTable[i].y2);
  }
  ::GdiFlush();
  Picture picture{size.cx, size.cy, {}};
  const auto* first = static_cast<const std::uint32_t*>(pixels);
  for (int i = 0; i < size.cx * size.cy; ++i) {
    picture.bgrx.push_back(first[i] & 0xFFFFFFU);
  }
  return picture;
}

/// The preview with two pixels around it, as the dialog shows it.
Picture PreviewOf(HWND dialog) {
  const RECT rect = ClientRectOf(Control(dialog, kPreview));
  const Picture all = ReadPixels(dialog);
  Picture picture{rect.right - rect.left + 4, rect.bottom - rect.top + 4, {}};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      picture.bgrx.push_back(all.At(rect.left - 2 + x, rect.top - 2 + y));
    }
  }
  return picture;
}

Picture ExpectedWithRim(HWND dialog, const Flags& flags, bool rows, bool columns) {
  const HWND preview = Control(dialog, kPreview);
  RECT client{};
  ::GetClientRect(preview, &client);
  CWnd dialogObject;  // never attached: a device context of the screen is enough
  const CClientDC screen(&dialogObject);
  // Two pixels more at the right and the bottom can hold parts of lines.
  const Picture larger =
      ExpectedPreview(screen.Handle(), {client.right + 2, client.bottom + 2}, flags, rows, columns);
  Picture picture{larger.width + 2, larger.height + 2, {}};
  for (int y = -2; y < larger.height; ++y) {
    for (int x = -2; x < larger.width; ++x) {
      picture.bgrx.push_back(x < 0 || y < 0 ? 0xFFFFFFU : larger.At(x, y));
    }
  }
  return picture;
}

Flags FlagsOf(int bits) {
  Flags flags{};
  for (std::size_t i = 0; i < kLines; ++i) {
    flags[i] = bits >> i & 1;
  }
  return flags;
}

struct Shape {
  int rows;
  int cols;
};

class LayoutFrameEditDlgPreview : public ::testing::TestWithParam<Shape> {};

INSTANTIATE_TEST_SUITE_P(Runs, LayoutFrameEditDlgPreview,
                         ::testing::Values(Shape{1, 1}, Shape{2, 1}, Shape{1, 2}, Shape{2, 2}),
                         [](const auto& info) {
                           return std::to_string(info.param.rows) + "x" +
                                  std::to_string(info.param.cols);
                         });

/// All 64 combinations, walked so that one line changes at a time.
TEST_P(LayoutFrameEditDlgPreview, ShowsEveryCombinationToThePixel) {
  const bool rows = GetParam().rows > 1;
  const bool columns = GetParam().cols > 1;
  Page page(GetParam().rows, GetParam().cols);
  page.Edit([&](HWND dialog) {
    int gray = 0;
    for (int step = 0; step < 64; ++step) {
      const int next = step ^ (step >> 1);
      if (next != gray) {
        std::size_t line = 0;
        while ((next ^ gray) >> line != 1) {
          ++line;
        }
        // Also a line without room: the command reaches it, a click would not.
        ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(kLineIds[line], BN_CLICKED),
                       reinterpret_cast<LPARAM>(Control(dialog, kLineIds[line])));
        gray = next;
      }
      ::RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
      ASSERT_TRUE(PreviewOf(dialog) == ExpectedWithRim(dialog, FlagsOf(gray), rows, columns))
          << "combination " << gray;
      for (std::size_t line = 0; line < kLines; ++line) {
        ASSERT_EQ(IsPressed(dialog, kLineIds[line]), FlagsOf(gray)[line] != 0);
      }
    }
    Cancel(dialog);
  });
}

TEST_P(LayoutFrameEditDlgPreview, EveryCombinationIsReadShownAndWritten) {
  for (int bits = 0; bits < 64; ++bits) {
    Page page(GetParam().rows, GetParam().cols);
    page.Show(FlagsOf(bits));
    const Flags before = page.Lines();
    EXPECT_EQ(page.Edit([&](HWND dialog) {
                for (std::size_t line = 0; line < kLines; ++line) {
                  EXPECT_EQ(IsPressed(dialog, kLineIds[line]), before[line] != 0);
                }
                Confirm(dialog);
              }),
              IDOK);
    EXPECT_EQ(page.Lines(), before);
  }
}

TEST(LayoutFrameEditDlg, IsPaintedWhenItOpens) {
  Page page(2, 2);
  page.Show({1, 0, 1, 1, 0, 1});
  page.Edit([](HWND dialog) {
    EXPECT_TRUE(PreviewOf(dialog) == ExpectedWithRim(dialog, {1, 0, 1, 1, 0, 1}, true, true));
    Cancel(dialog);
  });
}

TEST(LayoutFrameEditDlg, IsPaintedAgainAfterItWasCovered) {
  Page page(2, 2);
  page.Edit([](HWND dialog) {
    const Picture before = PreviewOf(dialog);
    ::RedrawWindow(dialog, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    EXPECT_TRUE(PreviewOf(dialog) == before);
    ::RedrawWindow(Control(dialog, kPreview), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_TRUE(PreviewOf(dialog) == before);
    Cancel(dialog);
  });
}

TEST(LayoutFrameEditDlg, OneCellHasNoInnerButtons) {
  Page page(1, 1);
  page.Edit([](HWND dialog) {
    for (const int id : {kInner, 4020, 4023}) {
      EXPECT_FALSE(IsEnabled(dialog, id)) << id;
    }
    for (const int id : {kNone, kOuter, 4019, 4021, 4022, 4024}) {
      EXPECT_TRUE(IsEnabled(dialog, id)) << id;
    }
    Cancel(dialog);
  });
}

TEST(LayoutFrameEditDlg, ARunOfOneColumnHasOneInnerButtonAndThePresetSetsBothLines) {
  Page page(2, 1);
  page.Edit([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kInner));
    EXPECT_TRUE(IsEnabled(dialog, 4020));
    EXPECT_FALSE(IsEnabled(dialog, 4023));
    Press(dialog, kInner);
    EXPECT_TRUE(IsPressed(dialog, 4020));
    EXPECT_TRUE(IsPressed(dialog, 4023));
    Confirm(dialog);
  });
  EXPECT_EQ(page.Lines(), (Flags{0, 1, 0, 0, 0, 0}));
}

TEST(LayoutFrameEditDlg, OkWritesAnInnerLineThatTheSelectionHasNoRoomFor) {
  // What one call writes is seen with another selection: the run grows while the dialog is open.
  Page page(2, 1);
  page.Edit([&](HWND dialog) {
    Press(dialog, kInner);
    page.Cell(1, 2).SetSelected(1);
    page.Cell(2, 2).SetSelected(1);
    page.Cell(1, 1).SetShowLineHR(0);
    page.Cell(2, 1).SetShowLineHR(0);
    Confirm(dialog);
  });
  EXPECT_NE(page.Cell(1, 1).GetShowLineHR(), 0);
  EXPECT_NE(page.Cell(2, 1).GetShowLineHR(), 0);
}

TEST(LayoutFrameEditDlg, ARunOfOneRowHasTheOtherInnerButton) {
  Page page(1, 2);
  page.Edit([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kInner));
    EXPECT_FALSE(IsEnabled(dialog, 4020));
    EXPECT_TRUE(IsEnabled(dialog, 4023));
    Cancel(dialog);
  });
}

TEST(LayoutFrameEditDlg, OuterAfterInnerLeavesAllLinesOnAndNoneTakesAllOff) {
  Page page(2, 2);
  page.Edit([](HWND dialog) {
    Press(dialog, kInner);
    Press(dialog, kOuter);
    Confirm(dialog);
  });
  EXPECT_EQ(page.Lines(), (Flags{1, 1, 1, 1, 1, 1}));
  page.Edit([](HWND dialog) {
    Press(dialog, kNone);
    Confirm(dialog);
  });
  EXPECT_EQ(page.Lines(), Flags{});
}

TEST(LayoutFrameEditDlg, OuterLeavesInnerLinesAlone) {
  Page page(2, 2);
  page.Show({0, 1, 0, 0, 0, 0});
  page.Edit([](HWND dialog) {
    Press(dialog, kOuter);
    Confirm(dialog);
  });
  EXPECT_EQ(page.Lines(), (Flags{1, 1, 1, 1, 0, 1}));
}

TEST(LayoutFrameEditDlg, EachButtonTogglesItsLine) {
  for (std::size_t line = 0; line < kLines; ++line) {
    Page page(2, 2);
    page.Edit([line](HWND dialog) {
      Click(dialog, kLineIds[line]);
      Click(dialog, IDOK);
    });
    Flags expected{};
    expected[line] = 1;
    EXPECT_EQ(page.Lines(), expected);
    page.Edit([line](HWND dialog) {
      Click(dialog, kLineIds[line]);
      Click(dialog, IDOK);
    });
    EXPECT_EQ(page.Lines(), Flags{});
  }
}

TEST(LayoutFrameEditDlg, CancelWritesNothing) {
  Page page(2, 2);
  page.Show({1, 0, 0, 0, 0, 0});
  EXPECT_EQ(page.Edit([](HWND dialog) {
              Press(dialog, kNone);
              Press(dialog, kInner);
              Cancel(dialog);
            }),
            IDCANCEL);
  EXPECT_EQ(page.Lines(), (Flags{1, 0, 0, 0, 0, 0}));
}

TEST(LayoutFrameEditDlg, WithoutASelectionAllIsOff) {
  CLayoutExPageData page;  // with all lines shown, which the dialog must leave alone
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, nullptr);
  WorkDialog([&] { return RunWithProductResources(dialog); }, [](HWND window) {
    for (const int id : {kInner, 4020, 4023}) {
      EXPECT_FALSE(IsEnabled(window, id)) << id;
    }
    EXPECT_TRUE(PreviewOf(window) == ExpectedWithRim(window, Flags{}, false, false));
    Confirm(window);
  });
  EXPECT_NE(page.GetCelAt(kBlock, 0)->GetShowLineVT(), 0);
}

TEST(LayoutFrameEditDlg, ButtonsSayWhatTheyAreAndWhetherTheyAreOn) {
  Page page(2, 2);
  page.Edit([](HWND dialog) {
    EXPECT_EQ(Text(dialog, 4023), L"内側の縦罫線 オフ");
    Press(dialog, 4023);
    EXPECT_EQ(Text(dialog, 4023), L"内側の縦罫線 オン");
    Cancel(dialog);
  });
}

TEST(LayoutFrameEditDlg, APressThatIsDraggedAwayChangesNothing) {
  Page page(2, 2);
  page.Show({1, 0, 0, 0, 0, 0});
  page.Edit([](HWND dialog) {
    for (const int id : {4019, 4021}) {
      const bool before = IsPressed(dialog, id);
      const HWND button = Control(dialog, id);
      ::SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
      ::SendMessageW(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 5));
      ::SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(500, 5));
      EXPECT_EQ(IsPressed(dialog, id), before) << id;
    }
    Confirm(dialog);
  });
  EXPECT_EQ(page.Lines(), (Flags{1, 0, 0, 0, 0, 0}));
}

TEST(LayoutFrameEditDlg, TheSpaceBarTogglesTheLineWithTheFocus) {
  Page page(2, 2);
  page.Edit([](HWND dialog) {
    const HWND button = Control(dialog, 4022);
    Focus(button);
    PressKey(button, VK_SPACE);
    Click(dialog, IDOK);
  });
  EXPECT_EQ(page.Lines(), (Flags{0, 0, 0, 1, 0, 0}));
}

/// The caption's key presses the button and does not only lead to it, wherever the focus is.
TEST(LayoutFrameEditDlg, AccessKeysPressThePresets) {
  for (const int focused : {kNone, kOuter, 4019, static_cast<int>(IDOK)}) {
    Page page(2, 2);
    page.Show({0, 0, 0, 0, 1, 0});
    page.Edit([focused](HWND dialog) {
      const HWND control = Control(dialog, focused);
      Focus(control);
      constexpr LPARAM kAltDown = 1 << 29 | 1;
      ::PostMessageW(control, WM_SYSCHAR, L'o', kAltDown);
      Click(dialog, IDOK);
    });
    EXPECT_EQ(page.Lines(), (Flags{1, 0, 1, 1, 1, 1})) << focused;
  }
}

TEST(LayoutFrameEditDlg, KeepsItsHiddenListOfStyles) {
  Page page(1, 1);
  page.Edit([](HWND dialog) {
    const HWND list = Control(dialog, kStyles);
    constexpr std::array kExpected{L"規定値", L"実線 0.1m", L"実線 0.3mm", L"実線 0.5mm",
                                   L"実線 1.0mm"};
    ASSERT_EQ(::SendMessageW(list, LB_GETCOUNT, 0, 0), static_cast<LRESULT>(kExpected.size()));
    for (std::size_t i = 0; i < kExpected.size(); ++i) {
      std::array<wchar_t, 64> text{};
      ::SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text.data()));
      EXPECT_STREQ(text.data(), kExpected[i]);
    }
    EXPECT_EQ(::SendMessageW(list, LB_GETCURSEL, 0, 0), 0);
    Cancel(dialog);
  });
}

TEST(LayoutFrameEditDlg, TheHiddenColourButtonChoosesAColour) {
  CLayoutExPageData page;
  const PEN_STATUS before = page.GetInLineStatus();
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, nullptr);
  ModalScript script;
  const auto open = [](HWND window) {
    ::PostMessageW(window, WM_COMMAND, MAKEWPARAM(kColour, BN_CLICKED),
                   reinterpret_cast<LPARAM>(Control(window, kColour)));
  };
  constexpr int kBlue = 13398;
  script.When(Painted(DialogWithTitle(L"罫線編集")), open);
  script.When(Painted(DialogWithTitle(L"色設定")), [](HWND grid) {
    EXPECT_EQ(Text(grid, 13441), L"選択色 赤 0 緑 0 青 0");
    Click(grid, kBlue);
    Click(grid, IDOK);
  });
  script.When(Painted(DialogWithTitle(L"罫線編集")), [&](HWND window) {
    EXPECT_EQ(Text(window, kColour), L"線の色 赤 0 緑 0 青 255");
    open(window);
  });
  script.When(Painted(DialogWithTitle(L"色設定")), [](HWND grid) {
    EXPECT_EQ(Text(grid, 13441), L"選択色 赤 0 緑 0 青 255");
    Cancel(grid);
  });
  script.When(Painted(DialogWithTitle(L"罫線編集")), [](HWND window) {
    EXPECT_EQ(Text(window, kColour), L"線の色 赤 0 緑 0 青 255");
    Confirm(window);
  });
  EXPECT_EQ(Work(script, [&] { return RunWithProductResources(dialog); }), IDOK);
  EXPECT_EQ(page.GetInLineStatus().color, before.color);
}

TEST(LayoutFrameEditDlg, IsPlacedWhereTheCallerWants) {
  CLayoutExPageData page;
  CPoint position(120, 90);
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, &position);
  WorkDialog([&] { return RunWithProductResources(dialog); }, [](HWND window) {
    EXPECT_EQ(WindowRect(window).left, 120);
    EXPECT_EQ(WindowRect(window).top, 90);
    Cancel(window);
  });
}

}  // namespace
}  // namespace quorvel::test
