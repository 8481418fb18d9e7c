#include "dialogs/layout/tool_tip.h"

#include "driver/leak_counters.h"
#include "driver/picture.h"
#include "framework/device_context.h"
#include "framework/dialog.h"
#include "framework/errors.h"
#include "layout/tip_picture.h"
#include "support/control_owner.h"
#include "support/pixels.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>

namespace quorvel::test {
namespace {

constexpr const wchar_t* kClassName = L"CToolTip";
constexpr const char* kText = "20mm / 30mm";
constexpr const wchar_t* kWideText = L"20mm / 30mm";
constexpr UINT_PTR kTimer = 1010;

bool ClassInfo(WNDCLASSEXW& description) {
  description.cbSize = sizeof description;
  return ::GetClassInfoExW(::GetModuleHandleW(nullptr), kClassName, &description) != FALSE;
}

/// Counts its timer's messages and shows any lines.
class CountingTip : public CToolTip {
public:
  int m_ticks = 0;
  using CToolTip::m_lines;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    const LRESULT result = CToolTip::WindowProc(message, wParam, lParam);
    m_ticks += message == WM_TIMER ? 1 : 0;
    return result;
  }
};

void WaitUntil(const std::string& what, const std::function<bool()>& holds) {
  WaitFor({what, [&]() -> HWND { return holds() ? ::GetDesktopWindow() : nullptr; }});
}

std::size_t Hooks() {
  static const bool watched = driver::WatchHooksAndTimers(::GetModuleHandleW(nullptr));
  EXPECT_TRUE(watched);
  return driver::CountResources().hooks;
}

bool Shown(const CToolTip& tip) { return ::IsWindowVisible(tip.m_hWnd) != FALSE; }

CRect PlaceOf(const CToolTip& tip) { return tip.GetWindowRect(); }

/// What the text measures in the tip's font.
CSize TextSize(const CWnd& window, const std::wstring& text) {
  const OwnedFont font = TipFont();
  const CClientDC deviceContext(&window);
  const SelectedObject selected(deviceContext.Handle(), font.get());
  CSize size;
  ::GetTextExtentPoint32W(deviceContext.Handle(), text.data(), static_cast<int>(text.size()),
                          &size);
  return size;
}

/// How many pixels of a colour a window shows.
std::ptrdiff_t CountOf(const driver::Picture& picture, COLORREF color) {
  return std::count(picture.bgrx.begin(), picture.bgrx.end(), Pixel(color));
}

class ToolTip : public ::testing::Test {
protected:
  void SetUp() override {
    m_tip = std::make_unique<CountingTip>();
    ASSERT_TRUE(m_tip->Create(&m_owner));
  }

  CPoint OnScreen(CPoint point) const {
    ::ClientToScreen(m_owner.m_hWnd, &point);
    return point;
  }
  void PutPointerAt(const CPoint& point) {
    const CPoint onScreen = OnScreen(point);
    ::SetCursorPos(onScreen.x, onScreen.y);
  }
  /// The pointer goes there, too.
  void RequestAt(const CPoint& point, const char* text = kText) {
    PutPointerAt(point);
    m_tip->Request(point, text);
  }
  void WaitUntilShown() {
    WaitUntil("the tip is shown", [this] { return Shown(*m_tip); });
  }
  void WaitForTicks(int ticks) {
    WaitUntil("the timer has come", [this, ticks] { return m_tip->m_ticks >= ticks; });
  }
  void ShowAt(const CPoint& point, const char* text = kText) {
    RequestAt(point, text);
    WaitUntilShown();
  }
  BOOL Translate(UINT message) {
    MSG record{};
    record.hwnd = m_tip->m_hWnd;
    record.message = message;
    return m_tip->PreTranslateMessage(&record);
  }

  ControlOwner m_owner;
  std::unique_ptr<CountingTip> m_tip;
};

// --- What all tips have in common

// The first test of this file: the class is registered once in a process.
TEST(ToolTipClass, ThatCannotBeRegisteredIsTold) {
  WNDCLASSEXW description{};
  if (ClassInfo(description)) {
    GTEST_SKIP() << "another test has made a tip before";
  }
  const std::size_t hooks = Hooks();
  description = {};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &::DefWindowProcW;
  description.hInstance = ::GetModuleHandleW(nullptr);
  description.lpszClassName = kClassName;
  ASSERT_NE(::RegisterClassExW(&description), 0);
  EXPECT_THROW(CToolTip(), CResourceException);
  EXPECT_EQ(Hooks(), hooks);
  ASSERT_TRUE(::UnregisterClassW(kClassName, ::GetModuleHandleW(nullptr)));
  EXPECT_NO_THROW(CToolTip());
}

TEST_F(ToolTip, HasItsClass) {
  WNDCLASSEXW description{};
  ASSERT_TRUE(ClassInfo(description));
  EXPECT_EQ(description.style, static_cast<UINT>(CS_DBLCLKS | CS_SAVEBITS));
  EXPECT_EQ(description.hCursor, ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW)));
  EXPECT_EQ(description.hIcon, nullptr);
  EXPECT_EQ(description.lpszMenuName, nullptr);
  LOGBRUSH brush{};
  ::GetObjectW(description.hbrBackground, sizeof brush, &brush);
  EXPECT_EQ(brush.lbStyle, static_cast<UINT>(BS_SOLID));
  EXPECT_EQ(brush.lbColor, ::GetSysColor(COLOR_INFOBK));
}

TEST_F(ToolTip, FontBrushAndClassAreMadeOnce) {
  WNDCLASSEXW first{};
  ASSERT_TRUE(ClassInfo(first));
  const std::size_t objects = driver::CountResources().graphicsObjects;
  m_tip.reset();
  for (int i = 0; i < 5; ++i) {
    const CToolTip another;
    WNDCLASSEXW description{};
    ASSERT_TRUE(ClassInfo(description));
    EXPECT_EQ(description.hbrBackground, first.hbrBackground);
    EXPECT_EQ(driver::CountResources().graphicsObjects, objects);
  }
}

TEST_F(ToolTip, TheFirstSetsTheHookAndTheLastRemovesIt) {
  const std::size_t withOne = Hooks();
  {
    const CToolTip second;
    const CToolTip third;
    EXPECT_EQ(Hooks(), withOne);
  }
  EXPECT_EQ(Hooks(), withOne);
  m_tip.reset();
  EXPECT_EQ(Hooks(), withOne - 1);
  const CToolTip again;
  EXPECT_EQ(Hooks(), withOne);
}

// --- The window

TEST_F(ToolTip, IsAHiddenPopupOfTheOwnersWindow) {
  const HWND window = m_tip->m_hWnd;
  EXPECT_EQ(ClassName(window), kClassName);
  EXPECT_EQ(Text(window), L"");
  EXPECT_FALSE(Shown(*m_tip));
  EXPECT_EQ(PlaceOf(*m_tip), CRect(0, 0, 10, 10));
  EXPECT_EQ(::GetWindow(window, GW_OWNER), m_owner.m_hWnd);
  EXPECT_EQ(::GetWindowLongPtrW(window, GWL_STYLE),
            static_cast<LONG_PTR>(WS_POPUP | WS_CLIPSIBLINGS | WS_BORDER));
  EXPECT_EQ(::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, WS_EX_TOOLWINDOW);
}

TEST_F(ToolTip, WithoutAWindowNothingHappens) {
  CToolTip tip;
  tip.Request({5, 5}, kText);
  tip.Hide();
  EXPECT_FALSE(tip.DestroyWindow());
  EXPECT_EQ(tip.m_hWnd, nullptr);
}

TEST_F(ToolTip, AWindowThatCannotBeMadeIsTold) {
  class Dead : public CWnd {
  public:
    Dead() { m_hWnd = reinterpret_cast<HWND>(1); }
    ~Dead() override { m_hWnd = nullptr; }
    Dead(const Dead&) = delete;
    Dead& operator=(const Dead&) = delete;
  };
  Dead dead;
  CToolTip tip;
  EXPECT_FALSE(tip.Create(&dead));
  tip.Request({0, 0}, kText);
  EXPECT_EQ(tip.m_hWnd, nullptr);
}

TEST_F(ToolTip, TheWindowGoesWithItsObjectAndMayBeMadeAgain) {
  const HWND window = m_tip->m_hWnd;
  EXPECT_TRUE(m_tip->DestroyWindow());
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_FALSE(m_tip->DestroyWindow());
  ASSERT_TRUE(m_tip->Create(&m_owner));
  ShowAt({20, 20});
  const HWND second = m_tip->m_hWnd;
  m_tip.reset();
  EXPECT_FALSE(::IsWindow(second));
}

TEST_F(ToolTip, MayLoseItsWindowToItsOwnerWhileItIsShown) {
  ShowAt({20, 20});
  m_owner.CWnd::DestroyWindow();
  EXPECT_EQ(m_tip->m_hWnd, nullptr);
  m_tip->Request({30, 30}, kText);
  m_tip->Hide();
}

// --- Requests

TEST_F(ToolTip, AppearsWhereThePointerStandsStill) {
  ShowAt({50, 40});
  const CSize text = TextSize(*m_tip, kWideText);
  const CPoint anchor = OnScreen({50, 40});
  EXPECT_EQ(PlaceOf(*m_tip), CRect(CPoint(anchor.x + 6, anchor.y + 18),
                                   CSize(text.cx + 8, text.cy + 4)));
  EXPECT_EQ(m_tip->m_ticks, 1);
}

TEST_F(ToolTip, DoesNotAppearWhereThePointerIsNot) {
  PutPointerAt({51, 40});
  m_tip->Request({50, 40}, kText);
  WaitForTicks(1);
  EXPECT_FALSE(Shown(*m_tip));
  // The timer is gone.
  RequestAt({60, 40});
  WaitUntilShown();
  EXPECT_EQ(m_tip->m_ticks, 2);
}

TEST_F(ToolTip, TakesNeitherFocusNorActivation) {
  ::SetActiveWindow(m_owner.m_hWnd);
  ::SetFocus(m_owner.m_hWnd);
  ShowAt({50, 40});
  EXPECT_EQ(::GetActiveWindow(), m_owner.m_hWnd);
  EXPECT_EQ(::GetFocus(), m_owner.m_hWnd);
}

TEST_F(ToolTip, OnlyPointsInTheOwnersClientAreaCount) {
  const CRect client = m_owner.GetClientRect();
  for (const CPoint outside : {CPoint(-1, 5), CPoint(5, -1), CPoint(client.right, 5),
                               CPoint(5, client.bottom)}) {
    RequestAt(outside);
    EXPECT_FALSE(::KillTimer(m_tip->m_hWnd, kTimer)) << outside.x << "," << outside.y;
    EXPECT_TRUE(m_tip->m_lines.IsEmpty());
  }
  for (const CPoint inside : {CPoint(0, 0), CPoint(client.right - 1, client.bottom - 1)}) {
    RequestAt(inside);
    EXPECT_TRUE(::KillTimer(m_tip->m_hWnd, kTimer)) << inside.x << "," << inside.y;
  }
}

TEST_F(ToolTip, ASecondRequestForThePointChangesNothing) {
  ShowAt({50, 40}, "first");
  m_tip->Request({50, 40}, "second and longer");
  EXPECT_FALSE(::KillTimer(m_tip->m_hWnd, kTimer));
  ASSERT_EQ(m_tip->m_lines.GetSize(), 1);
  EXPECT_STREQ(m_tip->m_lines.GetAt(0), "first");
  // Not even when it has been hidden meanwhile.
  m_tip->Hide();
  m_tip->Request({50, 40}, "third");
  EXPECT_FALSE(::KillTimer(m_tip->m_hWnd, kTimer));
  EXPECT_FALSE(Shown(*m_tip));
}

TEST_F(ToolTip, TheFirstRequestIsNotForTheScreensCorner) {
  m_owner.MoveTo({0, 0});
  RequestAt({0, 0});
  EXPECT_FALSE(::KillTimer(m_tip->m_hWnd, kTimer));
  EXPECT_TRUE(m_tip->m_lines.IsEmpty());
}

TEST_F(ToolTip, StaysWhereItIsUntilTheNewTextAppears) {
  ShowAt({50, 40}, "first");
  const CRect before = PlaceOf(*m_tip);
  PutPointerAt({90, 80});
  m_tip->Request({80, 80}, "second and longer");
  EXPECT_TRUE(Shown(*m_tip));
  EXPECT_EQ(PlaceOf(*m_tip), before);
  WaitForTicks(2);
  EXPECT_TRUE(Shown(*m_tip)) << "a pointer that has moved on hides nothing";
  RequestAt({90, 80}, "third");
  WaitForTicks(3);
  const CPoint anchor = OnScreen({90, 80});
  EXPECT_EQ(PlaceOf(*m_tip).TopLeft(), CPoint(anchor.x + 6, anchor.y + 18));
  EXPECT_EQ(PlaceOf(*m_tip).Width(), TextSize(*m_tip, L"third").cx + 8);
}

TEST_F(ToolTip, ANewRequestStartsTheTimerAnew) {
  PutPointerAt({80, 80});
  m_tip->Request({50, 40}, "first");
  m_tip->Request({80, 80}, "second");
  WaitUntilShown();
  EXPECT_EQ(m_tip->m_ticks, 1);
  EXPECT_STREQ(m_tip->m_lines.GetAt(0), "second");
}

// --- Hiding

TEST_F(ToolTip, HideStopsWhatIsUnderWay) {
  RequestAt({50, 40});
  m_tip->Hide();
  EXPECT_FALSE(::KillTimer(m_tip->m_hWnd, kTimer));
  EXPECT_FALSE(Shown(*m_tip));
}

TEST_F(ToolTip, ClicksOnItHideItAndNoOtherMessages) {
  constexpr std::array kHiding{WM_CANCELMODE, WM_LBUTTONDOWN, WM_LBUTTONUP,
                               WM_RBUTTONDOWN, WM_RBUTTONUP,  WM_MBUTTONDOWN};
  int x = 50;
  for (UINT message = 0; message < WM_USER; ++message) {
    const bool hides = std::find(kHiding.begin(), kHiding.end(), message) != kHiding.end();
    if (!Shown(*m_tip)) {
      ShowAt({++x, 40});
    }
    EXPECT_FALSE(Translate(message)) << "each goes on: " << message;
    EXPECT_EQ(Shown(*m_tip), !hides) << message;
  }
  EXPECT_EQ(x, 57) << "six have hidden it";
}

TEST_F(ToolTip, AnyKeyOfTheThreadHidesIt) {
  ::SetForegroundWindow(m_owner.m_hWnd);
  ::SetFocus(m_owner.m_hWnd);
  ShowAt({50, 40});
  SendKey(VK_F8);
  WaitUntil("the tip is hidden", [this] { return !Shown(*m_tip); });
}

TEST_F(ToolTip, AKeyStopsTheTimerOfTheTipOnScreenOnly) {
  ::SetForegroundWindow(m_owner.m_hWnd);
  ::SetFocus(m_owner.m_hWnd);
  CountingTip other;
  ASSERT_TRUE(other.Create(&m_owner));
  ShowAt({50, 40});
  SendKey(VK_F8);
  WaitUntil("the tip is hidden", [this] { return !Shown(*m_tip); });
  PutPointerAt({70, 40});
  other.Request({70, 40}, kText);
  SendKey(VK_F8);
  WaitUntil("the other is shown", [&] { return Shown(other); });
}

TEST_F(ToolTip, ThePointerOverItHidesIt) {
  ShowAt({50, 40});
  MoveMouse(m_tip->m_hWnd, {3, 3});
  EXPECT_FALSE(Shown(*m_tip));
}

TEST_F(ToolTip, ThePointerWithinTwoPixelsOfTheAnchorDoesNot) {
  ShowAt({50, 40});
  const auto moveTo = [this](const CPoint& onScreen) {
    CPoint point = onScreen;
    ::ScreenToClient(m_tip->m_hWnd, &point);
    MoveMouse(m_tip->m_hWnd, point);
    return Shown(*m_tip);
  };
  const CPoint anchor = OnScreen({50, 40});
  EXPECT_TRUE(moveTo(anchor));
  EXPECT_TRUE(moveTo({anchor.x - 2, anchor.y - 2}));
  EXPECT_TRUE(moveTo({anchor.x + 1, anchor.y + 1}));
  EXPECT_FALSE(moveTo({anchor.x + 2, anchor.y + 1}));
}

TEST_F(ToolTip, OneIsOnScreenAtATime) {
  ShowAt({50, 40});
  CountingTip other;
  ASSERT_TRUE(other.Create(&m_owner));
  PutPointerAt({90, 90});
  other.Request({90, 90}, kText);
  WaitUntil("the other is shown", [&] { return Shown(other); });
  EXPECT_FALSE(Shown(*m_tip));
  ShowAt({70, 40});
  EXPECT_FALSE(Shown(other));
}

// --- Painting

TEST_F(ToolTip, OneLineIsPaintedInTheMiddleInTheSystemsColours) {
  ShowAt({50, 40});
  ::UpdateWindow(m_tip->m_hWnd);
  const driver::Picture picture = driver::ReadPixels(m_tip->m_hWnd);
  EXPECT_GT(CountOf(picture, ::GetSysColor(COLOR_INFOTEXT)), 0);
  EXPECT_TRUE(ShowsLine(m_tip->m_hWnd, kWideText));
}

TEST_F(ToolTip, SeveralLinesMeasureTheLongest) {
  RequestAt({50, 40}, "ab");
  m_tip->m_lines.Add("a longer line");
  m_tip->m_lines.Add("the last");
  WaitUntilShown();
  const CSize longest = TextSize(*m_tip, L"a longer line");
  const CPoint anchor = OnScreen({50, 40});
  EXPECT_EQ(PlaceOf(*m_tip), CRect(CPoint(anchor.x + 8, anchor.y + 20),
                                   CSize(longest.cx + 4, 3 * longest.cy + 1)));
  ::UpdateWindow(m_tip->m_hWnd);
  const driver::Picture picture = driver::ReadPixels(m_tip->m_hWnd);
  const auto inked = [&](int line) {
    int pixels = 0;
    for (int y = line * longest.cy; y < (line + 1) * longest.cy && y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        pixels += picture.At(x, y) == Pixel(::GetSysColor(COLOR_INFOTEXT)) ? 1 : 0;
      }
    }
    return pixels;
  };
  EXPECT_GT(inked(0), 0);
  EXPECT_GT(inked(1), inked(0));
  EXPECT_GT(inked(2), 0);
}

TEST_F(ToolTip, OfEquallyLongLinesTheFirstIsMeasured) {
  RequestAt({50, 40}, "a");
  m_tip->m_lines.Add("\x83\x41");  // a wide letter: one character, too
  WaitUntilShown();
  const int narrow = TextSize(*m_tip, L"a").cx;
  ASSERT_LT(narrow, TextSize(*m_tip, L"ア").cx);
  EXPECT_EQ(PlaceOf(*m_tip).Width(), narrow + 4);
}

TEST_F(ToolTip, WithoutLinesIsAsWideAsTenPixels) {
  RequestAt({50, 40});
  m_tip->m_lines.RemoveAll();
  WaitUntilShown();
  EXPECT_EQ(PlaceOf(*m_tip).Width(), 10);
}

/// Paints a tip without lines as soon as it is asked to.
class EmptyTipDialog : public CDialog {
public:
  EmptyTipDialog() : CDialog(IDD_NUMBERS) {}

protected:
  void OnOpen() {
    CToolTip tip;
    tip.Create(this);
    ::SendMessageW(tip.m_hWnd, WM_PAINT, 0, 0);
  }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(EmptyTipDialog, CDialog)
  ON_BN_CLICKED(IDC_OPEN, &EmptyTipDialog::OnOpen)
END_MESSAGE_MAP()

TEST(ToolTipWithoutLines, CannotBePainted) {
  EmptyTipDialog dialog;
  ModalScript script;
  script.When(Painted(AnyDialog()), [](HWND window) { Click(window, IDC_OPEN); });
  EXPECT_THROW(dialog.DoModal(), CInvalidArgException);
  EXPECT_TRUE(script.Finished()) << script.Problem();
}

// --- Over and over

TEST_F(ToolTip, LeavesNothingAfterAThousandTimes) {
  const auto showAndHide = [this](int i) {
    CountingTip tip;
    ASSERT_TRUE(tip.Create(&m_owner));
    const CPoint point(10 + i % 100, 10 + i / 100);
    PutPointerAt(point);
    tip.Request(point, kText);
    WaitUntil("the tip is shown", [&] { return Shown(tip); });
    ::UpdateWindow(tip.m_hWnd);
    if (i % 2 == 0) {
      tip.Hide();
      tip.DestroyWindow();
    }
  };
  m_tip.reset();
  for (int i = 0; i < 20; ++i) {
    showAndHide(i);
  }
  Hooks();
  const driver::LeakCounters before = driver::CountResources();
  for (int i = 0; i < 1'000; ++i) {
    showAndHide(i);
  }
  EXPECT_EQ(driver::CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
