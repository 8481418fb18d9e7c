#include "kivfcl/kiv_color_palette_list.h"

#include "driver/controls.h"
#include "driver/leak_counters.h"
#include "driver/picture.h"
#include "support/control_owner.h"
#include "support/pixels.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>

namespace quorvel::test {
namespace {

constexpr UINT kId = 2001;
constexpr DWORD kStyle = WS_VISIBLE | WS_TABSTOP | KIVPALETTE_SCROLL | KIVPALETTE_NOTIFY;
constexpr CSize kSize{162, 70};  // 4 rows of 16 and a part

COLORREF ColorOf(int index) {
  return RGB(static_cast<BYTE>(index * 6), static_cast<BYTE>(255 - index * 5),
             static_cast<BYTE>(index % 7 * 36));
}

CArray<COLORREF, COLORREF> Colors(int count) {
  CArray<COLORREF, COLORREF> colors;
  for (int i = 0; i < count; ++i) {
    colors.Add(ColorOf(i));
  }
  return colors;
}

/// 41 entries of 24 x 16 pixels in rows of 6. What is told carries the selected entry.
class PaletteList : public ::testing::Test {
protected:
  void SetUp() override {
    m_owner.m_valueOf = [this](const NMHDR* /*header*/) { return m_palette->GetCurSel(); };
    Create(kStyle, 41);
  }

  void Create(DWORD style, int count) {
    m_palette = std::make_unique<CKivColorPaletteList>();
    m_palette->SetPalletData(Colors(count));
    ASSERT_TRUE(m_palette->Create(style, CRect(CPoint(10, 10), kSize), &m_owner, kId));
    ::UpdateWindow(Window());
  }
  void CreateAnew(DWORD style, int count) {
    m_palette->DestroyWindow();
    Create(style, count);
  }

  HWND Window() const { return m_palette->m_hWnd; }
  driver::Picture Look() const {
    ::UpdateWindow(Window());
    return driver::ReadPixels(Window());
  }
  /// The centre of an entry's cell, while `firstRow` is at the top.
  static CPoint CentreOf(int index, int firstRow = 0) {
    return {index % 6 * 24 + 12, (index / 6 - firstRow) * 16 + 8};
  }
  std::uint32_t ShownAt(const CPoint& point) const { return Look().At(point.x, point.y); }
  int FirstRow() const {
    for (int row = 0; row < 7; ++row) {
      if (ShownAt({12, 8}) == Pixel(ColorOf(row * 6))) {
        return row;
      }
    }
    return -1;
  }
  void Click(const CPoint& point) {
    Press(Window(), point);
    Release(Window(), point);
  }
  bool HasScrollBar() const { return (::GetWindowLongPtrW(Window(), GWL_STYLE) & WS_VSCROLL) != 0; }
  void Scroll(WORD code, WORD position = 0) {
    ::SendMessageW(Window(), WM_VSCROLL, MAKEWPARAM(code, position), 0);
  }
  std::vector<Told> TakeTold() { return m_owner.TakeTold(); }

  ControlOwner m_owner;
  std::unique_ptr<CKivColorPaletteList> m_palette;
};

std::vector<Told> Selected(int index) {
  return {{kId, KIVPALETTE_SELECTED, index}};
}

// --- The window

TEST_F(PaletteList, IsAChildOfTheClassOfItsName) {
  EXPECT_EQ(driver::ClassName(Window()), L"KivColorPaletteList");
  EXPECT_EQ(::GetParent(Window()), m_owner.m_hWnd);
  EXPECT_EQ(::SendMessageW(Window(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
  EXPECT_FALSE(m_palette->Create(kStyle, CRect(0, 0, 9, 9), &m_owner, 1));
}

TEST_F(PaletteList, SpeaksTheSelectedColour) {
  EXPECT_EQ(driver::Text(Window()), L"");
  m_palette->SetCurSel(3);
  m_palette->SetColor(3, RGB(255, 0, 1));
  EXPECT_EQ(driver::Text(Window()), L"赤 255 緑 0 青 1");
}

// --- The entries

TEST_F(PaletteList, EntriesAreAddedSetAndRemoved) {
  EXPECT_EQ(m_palette->GetColorCount(), 41);
  EXPECT_EQ(m_palette->GetColor(40), ColorOf(40));
  EXPECT_EQ(m_palette->GetColor(41), RGB(0, 0, 0));
  EXPECT_EQ(m_palette->GetColor(-1), RGB(0, 0, 0));
  EXPECT_EQ(m_palette->AddColor(RGB(1, 2, 3)), 41);
  EXPECT_EQ(m_palette->GetColor(41), RGB(1, 2, 3));
  m_palette->SetColor(0, RGB(9, 8, 7));
  m_palette->SetColor(42, RGB(9, 8, 7));
  m_palette->SetColor(-1, RGB(9, 8, 7));
  EXPECT_EQ(m_palette->GetColor(0), RGB(9, 8, 7));
  m_palette->RemoveColor(1);
  m_palette->RemoveColor(41);
  m_palette->RemoveColor(-1);
  EXPECT_EQ(m_palette->GetColorCount(), 41);
  EXPECT_EQ(m_palette->GetColor(1), ColorOf(2));
  EXPECT_EQ(m_palette->GetPaletteData()[40], RGB(1, 2, 3));
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(PaletteList, TheSelectionFollowsItsEntry) {
  EXPECT_EQ(m_palette->GetCurSel(), -1);
  EXPECT_EQ(m_palette->GetSelectColor(), RGB(0, 0, 0));
  m_palette->SetCurSel(7);
  EXPECT_EQ(m_palette->GetSelectColor(), ColorOf(7));
  m_palette->RemoveColor(8);
  EXPECT_EQ(m_palette->GetCurSel(), 7);
  m_palette->RemoveColor(2);
  EXPECT_EQ(m_palette->GetCurSel(), 6);
  EXPECT_EQ(m_palette->GetSelectColor(), ColorOf(7));
  m_palette->RemoveColor(6);
  EXPECT_EQ(m_palette->GetCurSel(), -1);
  m_palette->SetCurSel(5);
  m_palette->SetCurSel(39);
  EXPECT_EQ(m_palette->GetCurSel(), -1) << "no index";
  m_palette->SetCurSel(5);
  m_palette->SetPalletData(Colors(41));
  EXPECT_EQ(m_palette->GetCurSel(), -1);
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(PaletteList, WithoutAWindowTheCallsAskNothingOfOthers) {
  Look();
  CKivColorPaletteList bare;
  bare.SetItemSize(10, 10);
  bare.SetItemColumnCount(3);
  bare.SetPalletData(Colors(100));
  bare.SetCurSel(90);
  bare.SetColor(90, RGB(1, 1, 1));
  bare.RemoveColor(0);
  EXPECT_EQ(bare.GetCurSel(), 89);
  EXPECT_EQ(bare.GetSelectColor(), RGB(1, 1, 1));
  EXPECT_FALSE(TakeUnpainted(Window()));
}

TEST_F(PaletteList, CallsThatChangeNothingPaintNothing) {
  m_palette->SetCurSel(3);
  Look();
  m_palette->SetCurSel(3);
  m_palette->SetColor(5, ColorOf(5));
  m_palette->SetColor(40, RGB(0, 0, 0));  // out of sight
  EXPECT_FALSE(TakeUnpainted(Window()));
  m_palette->SetColor(5, RGB(0, 0, 0));
  EXPECT_TRUE(TakeUnpainted(Window()));
  m_palette->SetCurSel(4);
  EXPECT_TRUE(TakeUnpainted(Window()));
}

// --- The look

TEST_F(PaletteList, EachCellShowsItsColour) {
  const driver::Picture look = Look();
  for (int index = 0; index < 24; ++index) {
    const CPoint centre = CentreOf(index);
    for (const int x : {-10, 0, 10}) {
      for (const int y : {-6, 0, 6}) {
        ASSERT_EQ(look.At(centre.x + x, centre.y + y), Pixel(ColorOf(index))) << index;
      }
    }
  }
  EXPECT_EQ(look.At(12, 68), Pixel(ColorOf(24))) << "seen in part";
}

TEST_F(PaletteList, BehindTheLastEntryItIsEmpty) {
  CreateAnew(kStyle, 8);
  const driver::Picture look = Look();
  const std::uint32_t empty = Pixel(::GetSysColor(COLOR_WINDOW));
  for (const CPoint& point : {CPoint(48, 16), CPoint(150, 5), CPoint(161, 69), CPoint(5, 32)}) {
    EXPECT_EQ(look.At(point.x, point.y), empty);
  }
}

TEST_F(PaletteList, ItemSizeAndColumnsMoveTheCells) {
  m_palette->SetItemSize(10, 12);
  m_palette->SetItemColumnCount(3);
  const driver::Picture look = Look();
  for (int index = 0; index < 15; ++index) {
    EXPECT_EQ(look.At(index % 3 * 10 + 5, index / 3 * 12 + 6), Pixel(ColorOf(index)));
  }
  m_palette->SetItemSize(0, -3);
  m_palette->SetItemColumnCount(0);
  EXPECT_EQ(ShownAt({0, 5}), Pixel(ColorOf(5))) << "each counts as 1";
}

TEST_F(PaletteList, TheSelectedEntryIsMarkedOnAnyColour) {
  for (const COLORREF color :
       {RGB(0, 0, 0), RGB(255, 255, 255), RGB(128, 128, 128), RGB(255, 0, 0), RGB(0, 0, 128)}) {
    m_palette->SetColor(7, color);
    for (const bool focused : {false, true}) {
      ::SetFocus(focused ? Window() : m_owner.m_hWnd);
      m_palette->SetCurSel(0);
      EXPECT_EQ(ShownAt({27, 24}), Pixel(color)) << "not marked";
      m_palette->SetCurSel(7);
      const driver::Picture look = Look();
      int seen = 0;
      for (int x = 24; x < 48; ++x) {
        seen += Contrast(look.At(x, 24), Pixel(color)) >= 127 ? 1 : 0;
      }
      EXPECT_GE(seen, 2) << std::hex << color;
      EXPECT_EQ(look.At(36, 24), Pixel(color)) << "the centre stays";
    }
  }
}

TEST_F(PaletteList, TheFocusIsSeenWithAndWithoutASelection) {
  for (const int selected : {-1, 7}) {
    m_palette->SetCurSel(selected);
    ::SetFocus(m_owner.m_hWnd);
    const driver::Picture without = Look();
    ::SetFocus(Window());
    EXPECT_NE(Look(), without);
    ::SetFocus(m_owner.m_hWnd);
    EXPECT_EQ(Look(), without);
  }
}

TEST_F(PaletteList, ADisabledPaletteIsMuted) {
  m_palette->SetColor(0, RGB(0, 0, 0));
  ::EnableWindow(Window(), FALSE);
  EXPECT_GE(Contrast(ShownAt({12, 8}), 0), 64);
  ::EnableWindow(Window(), TRUE);
  EXPECT_EQ(ShownAt({12, 8}), 0U);
}

// --- The mouse

TEST_F(PaletteList, AClickSelectsAndTells) {
  Press(Window(), CentreOf(8));
  EXPECT_EQ(TakeTold(), Selected(8)) << "at once";
  MoveMouse(Window(), CentreOf(3));
  Release(Window(), CentreOf(3));
  EXPECT_TRUE(TakeTold().empty());
  EXPECT_EQ(m_palette->GetCurSel(), 8);
  EXPECT_EQ(::GetFocus(), Window());
  Click(CentreOf(8));
  EXPECT_EQ(TakeTold(), Selected(8)) << "once more";
  Click({23, 0});
  EXPECT_EQ(TakeTold(), Selected(0));
  Click({24, 16});
  EXPECT_EQ(TakeTold(), Selected(7));
}

TEST_F(PaletteList, AClickBesideTheEntriesSelectsNothingNew) {
  m_palette->SetCurSel(3);
  for (const CPoint& point : {CPoint(145, 5), CPoint(-1, 5), CPoint(5, -1), CPoint(5, 70)}) {
    Click(point);
  }
  m_palette->SetPalletData(Colors(2));
  m_palette->SetCurSel(1);
  Click(CentreOf(2));
  Click(CentreOf(6));
  EXPECT_EQ(m_palette->GetCurSel(), 1);
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(PaletteList, AClickOnAnEntrySeenInPartDoesNotScroll) {
  Click({12, 67});
  EXPECT_EQ(TakeTold(), Selected(24));
  EXPECT_EQ(FirstRow(), 0);
}

TEST_F(PaletteList, ADoubleClickIsToldAfterTheSelection) {
  const auto doubleClick = [&](const CPoint& first, const CPoint& second) {
    Click(first);
    ::SendMessageW(Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, PackedPoint(second));
    Release(Window(), second);
  };
  doubleClick(CentreOf(4), CentreOf(4));
  EXPECT_EQ(TakeTold(),
            (std::vector<Told>{{kId, KIVPALETTE_SELECTED, 4}, {kId, KIVPALETTE_DOUBLECLICKED, 4}}));
  doubleClick({23, 5}, {24, 5});
  EXPECT_EQ(TakeTold(),
            (std::vector<Told>{{kId, KIVPALETTE_SELECTED, 0}, {kId, KIVPALETTE_SELECTED, 1}}))
      << "over two entries these are two clicks";
  doubleClick({150, 5}, {150, 5});
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(PaletteList, TellsNobodyWithoutTheStyle) {
  CreateAnew(kStyle & ~static_cast<DWORD>(KIVPALETTE_NOTIFY), 41);
  Click(CentreOf(4));
  ::SendMessageW(Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, PackedPoint(CentreOf(4)));
  Key(Window(), VK_RIGHT);
  EXPECT_EQ(m_palette->GetCurSel(), 5);
  EXPECT_TRUE(TakeTold().empty());
}

// --- Keys

TEST_F(PaletteList, KeysSelectTellAndScroll) {
  struct Row {
    WPARAM key;
    int selected;
    int firstRow;
  };
  for (const Row& row : {Row{VK_DOWN, 0, 0}, Row{VK_RIGHT, 1, 0}, Row{VK_DOWN, 7, 0},
                         Row{VK_LEFT, 6, 0}, Row{VK_UP, 0, 0}, Row{VK_NEXT, 24, 1},
                         Row{VK_END, 40, 3}, Row{VK_PRIOR, 16, 2}, Row{VK_HOME, 0, 0}}) {
    Key(Window(), row.key);
    EXPECT_EQ(TakeTold(), Selected(row.selected));
    EXPECT_EQ(ShownAt({12 + 24 * 5, 8}), Pixel(ColorOf(row.firstRow * 6 + 5))) << row.selected;
  }
  for (const WPARAM key : {VK_LEFT, VK_UP, VK_HOME, VK_PRIOR, VK_RETURN, VK_ESCAPE, VK_DELETE}) {
    Key(Window(), key);
  }
  EXPECT_TRUE(TakeTold().empty()) << "nothing has changed";
}

TEST_F(PaletteList, TheSpaceBarTakesTheEntryOnceMore) {
  Key(Window(), VK_SPACE);
  EXPECT_EQ(TakeTold(), Selected(0));
  m_palette->SetCurSel(5);
  Key(Window(), VK_SPACE);
  EXPECT_EQ(TakeTold(), Selected(5));
}

TEST_F(PaletteList, WithoutEntriesKeysAndClicksDoNothing) {
  CreateAnew(kStyle, 0);
  for (const WPARAM key : {VK_LEFT, VK_DOWN, VK_END, VK_NEXT, VK_SPACE}) {
    Key(Window(), key);
  }
  Click({5, 5});
  Wheel(Window(), -120);
  Scroll(SB_BOTTOM);
  EXPECT_EQ(m_palette->GetCurSel(), -1);
  EXPECT_TRUE(TakeTold().empty());
  EXPECT_FALSE(HasScrollBar());
  Look();
}

// --- Scrolling

TEST_F(PaletteList, TheScrollBarComesAndGoesWithTheRows) {
  EXPECT_TRUE(HasScrollBar());
  EXPECT_GE(m_palette->GetClientRect().Width(), 144) << "six columns fit beside it";
  m_palette->SetPalletData(Colors(24));
  EXPECT_FALSE(HasScrollBar());
  EXPECT_EQ(m_palette->GetClientRect().Width(), 162);
  m_palette->AddColor(RGB(0, 0, 0));
  EXPECT_TRUE(HasScrollBar());
  m_palette->RemoveColor(24);
  EXPECT_FALSE(HasScrollBar());
  m_palette->ResizeTo({162, 63});
  EXPECT_TRUE(HasScrollBar());
  m_palette->SetItemSize(24, 15);
  EXPECT_FALSE(HasScrollBar());
  m_palette->SetItemColumnCount(5);
  EXPECT_TRUE(HasScrollBar());
  m_palette->SetPalletData(Colors(0));
  EXPECT_FALSE(HasScrollBar());
}

TEST_F(PaletteList, WithoutTheStyleThereIsNoScrollBar) {
  CreateAnew((kStyle & ~static_cast<DWORD>(KIVPALETTE_SCROLL)) | WS_VSCROLL, 41);
  EXPECT_FALSE(HasScrollBar());
  m_palette->SetCurSel(40);
  EXPECT_EQ(FirstRow(), 3) << "the selected entry is scrolled into sight all the same";
}

TEST_F(PaletteList, TheScrollBarScrollsWholeRows) {
  struct Row {
    WORD code;
    WORD position;
    int firstRow;
  };
  for (const Row& row :
       {Row{SB_LINEDOWN, 0, 1}, Row{SB_LINEUP, 0, 0}, Row{SB_LINEUP, 0, 0}, Row{SB_PAGEDOWN, 0, 3},
        Row{SB_LINEDOWN, 0, 3}, Row{SB_PAGEUP, 0, 0}, Row{SB_THUMBTRACK, 2, 2},
        Row{SB_THUMBPOSITION, 1, 1}, Row{SB_THUMBTRACK, 60'000, 3}, Row{SB_TOP, 0, 0},
        Row{SB_BOTTOM, 0, 3}, Row{SB_ENDSCROLL, 0, 3}}) {
    Scroll(row.code, row.position);
    EXPECT_EQ(FirstRow(), row.firstRow);
    EXPECT_EQ(::GetScrollPos(Window(), SB_VERT), row.firstRow);
  }
  Click({12, 8});
  EXPECT_EQ(TakeTold(), Selected(18)) << "a click means what is seen";
}

/// The rows that a notch scrolls, for as long as the object lives.
class WheelLines {
public:
  explicit WheelLines(UINT lines) {
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &m_before, 0);
    ::SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, lines, nullptr, 0);
  }
  ~WheelLines() { ::SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, m_before, nullptr, 0); }
  WheelLines(const WheelLines&) = delete;
  WheelLines& operator=(const WheelLines&) = delete;

private:
  UINT m_before = 0;
};

TEST_F(PaletteList, TheWheelScrollsAsManyRowsAsTheUserHasSet) {
  {
    const WheelLines one(1);
    Wheel(Window(), -120);
    EXPECT_EQ(FirstRow(), 1);
    Wheel(Window(), -60);
    EXPECT_EQ(FirstRow(), 1);
    Wheel(Window(), -60);
    EXPECT_EQ(FirstRow(), 2);
    Wheel(Window(), 240);
    EXPECT_EQ(FirstRow(), 0);
  }
  {
    const WheelLines three(3);
    Wheel(Window(), -40);
    EXPECT_EQ(FirstRow(), 1);
    Wheel(Window(), 120);
    EXPECT_EQ(FirstRow(), 0);
  }
  {
    const WheelLines page(WHEEL_PAGESCROLL);
    m_palette->SetPalletData(Colors(48));  // 8 rows
    Wheel(Window(), -120);
    Scroll(SB_LINEUP);
    EXPECT_EQ(FirstRow(), 3) << "a page is four rows";
  }
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(PaletteList, SelectingScrollsTheEntryIntoSight) {
  m_palette->SetCurSel(40);
  EXPECT_EQ(FirstRow(), 3);
  m_palette->SetCurSel(17);
  EXPECT_EQ(ShownAt(CentreOf(17, 2)), Pixel(ColorOf(17)));
  m_palette->SetCurSel(-1);
  EXPECT_EQ(FirstRow(), 2) << "none selected: no scrolling";
  m_palette->SetPalletData(Colors(48));
  EXPECT_EQ(FirstRow(), 0);
}

TEST_F(PaletteList, FewerEntriesOrMoreRoomShowNoEmptyRows) {
  Scroll(SB_BOTTOM);
  m_palette->ResizeTo({162, 96});
  EXPECT_EQ(FirstRow(), 1);
  for (int i = 0; i < 11; ++i) {
    m_palette->RemoveColor(m_palette->GetColorCount() - 1);
  }
  EXPECT_EQ(FirstRow(), 0);
}

// --- Large and small

TEST_F(PaletteList, ThousandsOfEntries) {
  CreateAnew(kStyle, 4096);
  Key(Window(), VK_END);
  EXPECT_EQ(TakeTold(), Selected(4095));
  const CPoint centre = CentreOf(4095, 4096 / 6 + 1 - 4);
  EXPECT_EQ(ShownAt(centre), Pixel(ColorOf(4095)));
  Scroll(SB_THUMBTRACK, 100);
  Click(CentreOf(0));
  EXPECT_EQ(TakeTold(), Selected(600));
}

TEST_F(PaletteList, AWindowWithoutRoomWorks) {
  for (const CSize& size : {CSize(0, 0), CSize(1, 1), CSize(40, 5), CSize(5, 40)}) {
    m_palette->ResizeTo(size);
    m_palette->SetCurSel(-1);
    Look();
    Key(Window(), VK_END);
    EXPECT_EQ(m_palette->GetCurSel(), 40);
    Key(Window(), VK_NEXT);
    Key(Window(), VK_PRIOR);
    Wheel(Window(), 120);
    Look();
  }
}

// --- Lives that end early

TEST_F(PaletteList, TheOwnerMayDestroyTheWindowOrTheObjectWhenItIsTold) {
  const auto destroyed = [&](bool withObject, const auto& act) {
    m_owner.m_onTold = nullptr;
    CreateAnew(kStyle, 41);
    m_palette->SetCurSel(3);
    const HWND window = Window();
    m_owner.m_onTold = [&] {
      if (withObject) {
        m_palette.reset();
      } else {
        m_palette->DestroyWindow();
      }
    };
    act(window);
    EXPECT_EQ(::IsWindow(window) != FALSE, withObject);
    EXPECT_EQ(m_palette == nullptr, withObject);
    ::DestroyWindow(window);
    m_palette = std::make_unique<CKivColorPaletteList>();
  };
  for (const bool withObject : {false, true}) {
    destroyed(withObject, [](HWND window) { Press(window, CentreOf(4)); });
    destroyed(withObject, [](HWND window) { Key(window, VK_END); });
    destroyed(withObject, [](HWND window) { Key(window, VK_SPACE); });
    destroyed(withObject, [](HWND window) {
      ::SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, PackedPoint(CentreOf(3)));
    });
  }
}

TEST_F(PaletteList, WhoLosesTheFocusToAClickMayDestroyWindowOrObject) {
  FocusLoser loser(m_owner);
  loser.m_onLost = [&] {
    m_palette->DestroyWindow();
    m_palette->Create(kStyle, CRect(CPoint(10, 10), kSize), &m_owner, kId);
  };
  Press(Window(), CentreOf(4));
  EXPECT_EQ(m_palette->GetCurSel(), -1) << "the click was on the window that is gone";
  m_palette->DestroyWindow();

  Create(kStyle, 41);
  ::SetFocus(loser.m_hWnd);
  loser.m_onLost = [&] { m_palette.reset(); };
  Press(Window(), CentreOf(4));
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(PaletteList, RandomMessagesKeepItSoundAndLeaveNothingBehind) {
  constexpr int kSteps = 1'000;
  std::mt19937 random(20'240'608);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  const auto act = [&] {
    constexpr std::array<WPARAM, 9> kKeys{VK_LEFT, VK_RIGHT, VK_UP,  VK_DOWN, VK_PRIOR,
                                          VK_NEXT, VK_HOME,  VK_END, VK_SPACE};
    const CPoint point(below(300) - 60, below(200) - 60);
    switch (below(16)) {
      case 0:
      case 1:
        return Press(Window(), point);
      case 2:
        return MoveMouse(Window(), point);
      case 3:
        return Release(Window(), point);
      case 4:
        ::SendMessageW(Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, PackedPoint(point));
        return;
      case 5:
      case 6:
        return Key(Window(), kKeys.at(static_cast<std::size_t>(below(9))));
      case 7:
        return Wheel(Window(), below(65'536) - 32'768);
      case 8:
        return m_palette->ResizeTo({below(200), below(120)});
      case 9:
        return Scroll(static_cast<WORD>(below(10)), static_cast<WORD>(below(65'536)));
      case 10:
        ::SetFocus(below(2) == 0 ? m_owner.m_hWnd : Window());
        ::EnableWindow(Window(), below(3) > 0 ? TRUE : FALSE);
        return;
      case 11:
        m_palette->SetItemSize(below(40) - 3, below(40) - 3);
        return m_palette->SetItemColumnCount(below(12) - 2);
      case 12:
        return m_palette->SetCurSel(below(60) - 5);
      case 13:
        return m_palette->RemoveColor(below(60) - 5);
      case 14:
        m_palette->AddColor(ColorOf(below(40)));
        return below(40) == 0 ? m_palette->SetPalletData(Colors(below(60))) : void();
      default:
        ::UpdateWindow(Window());
        return;
    }
  };
  const auto run = [&](int steps) {
    for (int i = 0; i < steps; ++i) {
      act();
      ASSERT_GE(m_palette->GetCurSel(), -1);
      ASSERT_LT(m_palette->GetCurSel(), m_palette->GetColorCount());
    }
    m_palette.reset();
    ::DestroyWindow(m_owner.GetDlgItem(kId));
    m_owner.TakeTold();
  };
  run(kSteps);  // fills the system's caches
  const driver::LeakCounters before = driver::CountResources();
  Create(kStyle, 41);
  run(kSteps);
  EXPECT_EQ(driver::CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
