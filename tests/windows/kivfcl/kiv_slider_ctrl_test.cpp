#include "kivfcl/kiv_slider_ctrl.h"

#include "driver/leak_counters.h"
#include "driver/picture.h"
#include "framework/dialog.h"
#include "support/control_owner.h"
#include "support/pixels.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <string>

namespace quorvel::test {
namespace {

constexpr UINT kId = 7;
constexpr CSize kSize{266, 20};  // its track is 255 pixels from 5 on
constexpr KIVCOLORCOMPONENTS kBlackRgb{0, 0, 0, 0};
constexpr KIVCOLORCOMPONENTS kRedRgb{255, 0, 0, 0};

std::vector<Told> Notifications(std::initializer_list<std::pair<UINT, int>> expected) {
  std::vector<Told> told;
  for (const auto& [code, position] : expected) {
    told.push_back({kId, code, position});
  }
  return told;
}

/// A slider whose positions are its places: position p stands at pixel p + 5.
class SliderCtrl : public ::testing::Test {
protected:
  void SetUp() override {
    m_owner.m_valueOf = [](const NMHDR* header) {
      return reinterpret_cast<const NMKIVSLIDER*>(header)->nPos;
    };
    Create(CRect(CPoint(10, 10), kSize), KIVSLIDER_HORIZONTAL);
  }

  void Create(const CRect& rect, int kind) {
    m_slider = std::make_unique<CKivSliderCtrl>();
    ASSERT_TRUE(m_slider->Create(WS_VISIBLE | WS_TABSTOP, rect, &m_owner, kId, kind));
    m_slider->SetRange(0, 255);
    m_slider->SetPos(100);
    m_slider->SetGradation(KIVGRADATION_RGB, kBlackRgb, kRedRgb);
    ::UpdateWindow(Window());
  }
  void CreateAnew(const CRect& rect, int kind) {
    m_slider->DestroyWindow();
    Create(rect, kind);
  }

  HWND Window() const { return m_slider->m_hWnd; }
  driver::Picture Look() const {
    ::UpdateWindow(Window());
    return driver::ReadPixels(Window());
  }
  std::vector<Told> TakeTold() { return m_owner.TakeTold(); }

  ControlOwner m_owner;
  std::unique_ptr<CKivSliderCtrl> m_slider;
};

CPoint At(int position) {
  return {position + 5, 10};
}

// --- The window

TEST_F(SliderCtrl, IsAChildOfTheClassOfItsName) {
  EXPECT_EQ(driver::ClassName(Window()), L"KivSliderCtrl");
  EXPECT_EQ(::GetParent(Window()), m_owner.m_hWnd);
  EXPECT_EQ(::GetDlgCtrlID(Window()), static_cast<int>(kId));
  EXPECT_EQ(m_owner.GetDlgItemRect(kId), CRect(CPoint(10, 10), kSize));
}

TEST_F(SliderCtrl, AnObjectHasOneWindowOnly) {
  const driver::LeakCounters before = driver::CountResources();
  EXPECT_FALSE(m_slider->Create(WS_VISIBLE, CRect(0, 0, 9, 9), &m_owner, 8, KIVSLIDER_UPRIGHT));
  EXPECT_EQ(driver::CountResources(), before);
  EXPECT_EQ(m_owner.GetDlgItemRect(kId), CRect(CPoint(10, 10), kSize));
}

TEST_F(SliderCtrl, AnObjectMayHaveAWindowAfterAnother) {
  Look();
  m_slider->DestroyWindow();
  ASSERT_TRUE(m_slider->Create(WS_VISIBLE, CRect(CPoint(10, 10), CSize(20, 266)), &m_owner, kId,
                               KIVSLIDER_UPRIGHT));
  EXPECT_EQ(m_slider->GetPos(), 100);
  EXPECT_EQ(Look().At(10, 60), test::Pixel(RGB(200, 0, 0))) << "position 200";
}

TEST_F(SliderCtrl, WantsTheArrowKeysAndNoOthers) {
  EXPECT_EQ(::SendMessageW(Window(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
}

TEST_F(SliderCtrl, SpeaksItsPosition) {
  EXPECT_EQ(driver::Text(Window()), L"100");
  m_slider->SetRange(-300, 300);
  m_slider->SetPos(-250);
  EXPECT_EQ(driver::Text(Window()), L"-250");
}

// --- The calls

TEST_F(SliderCtrl, PositionsAreKeptInTheRange) {
  m_slider->SetPos(256);
  EXPECT_EQ(m_slider->GetPos(), 255);
  m_slider->SetPos(-1);
  EXPECT_EQ(m_slider->GetPos(), 0);
  m_slider->SetRange(10, 20);
  EXPECT_EQ(m_slider->GetPos(), 10);
  m_slider->SetPos(20);
  m_slider->SetRange(0, 5);
  EXPECT_EQ(m_slider->GetPos(), 5);
  EXPECT_EQ(CKivSliderCtrl().GetPos(), 0);
}

TEST_F(SliderCtrl, TheCallsTellNobody) {
  m_slider->SetPos(50);
  m_slider->SetRange(60, 70);
  m_slider->SetGradation(KIVGRADATION_HSB, {0, 255, 255, 0}, {360, 255, 255, 0});
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(SliderCtrl, TheCallsPaintOnlyWhatHasChanged) {
  TakeUnpainted(Window());
  m_slider->SetPos(100);
  m_slider->SetRange(0, 255);
  m_slider->SetGradation(KIVGRADATION_RGB, kBlackRgb, kRedRgb);
  EXPECT_FALSE(TakeUnpainted(Window()));
  m_slider->SetPos(101);
  EXPECT_TRUE(TakeUnpainted(Window()));
  m_slider->SetRange(0, 256);
  EXPECT_TRUE(TakeUnpainted(Window()));
  m_slider->SetGradation(KIVGRADATION_RGB, kBlackRgb, kBlackRgb);
  EXPECT_TRUE(TakeUnpainted(Window()));
  m_slider->SetGradation(KIVGRADATION_HSB, kBlackRgb, kBlackRgb);
  EXPECT_TRUE(TakeUnpainted(Window()));
}

TEST_F(SliderCtrl, WithoutAWindowTheCallsAskNothingOfOthers) {
  TakeUnpainted(Window());
  CKivSliderCtrl bare;
  bare.SetRange(0, 10);
  bare.SetPos(5);
  bare.SetGradation(KIVGRADATION_RGB, kRedRgb, kBlackRgb);
  EXPECT_EQ(bare.GetPos(), 5);
  EXPECT_FALSE(TakeUnpainted(Window()));
}

// --- The mouse

TEST_F(SliderCtrl, AClickOnTheStripTakesTheThumbThereAndDragsItOn) {
  Press(Window(), At(200));
  EXPECT_EQ(m_slider->GetPos(), 200);
  EXPECT_EQ(::GetCapture(), Window());
  EXPECT_EQ(::GetFocus(), Window());
  MoveMouse(Window(), At(210));
  MoveMouse(Window(), At(210));
  Release(Window(), At(210));
  EXPECT_EQ(::GetCapture(), nullptr);
  MoveMouse(Window(), At(50));
  EXPECT_EQ(m_slider->GetPos(), 210);
  EXPECT_EQ(
      TakeTold(),
      Notifications({{KIVSLIDER_MOVING, 200}, {KIVSLIDER_MOVING, 210}, {KIVSLIDER_MOVED, 210}}));
}

TEST_F(SliderCtrl, ADoubleClickMovesLikeTwo) {
  Press(Window(), At(200));
  Release(Window(), At(200));
  ::SendMessageW(Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, PackedPoint(At(220)));
  Release(Window(), At(220));
  EXPECT_EQ(m_slider->GetPos(), 220);
}

TEST_F(SliderCtrl, BothEndsAreReachedAtTheEdgesAndBeyond) {
  for (const int x : {-30'000, -1, 0, 5}) {
    m_slider->SetPos(100);
    Press(Window(), At(120));
    MoveMouse(Window(), {x, 10});
    EXPECT_EQ(m_slider->GetPos(), 0) << x;
    Release(Window(), {x, 10});
  }
  for (const int x : {260, 265, 266, 30'000}) {
    Press(Window(), At(120));
    MoveMouse(Window(), {x, -5000});
    EXPECT_EQ(m_slider->GetPos(), 255) << x;
    Release(Window(), {x, -5000});
  }
  m_slider->SetPos(2);
  Press(Window(), {0, 10});
  Release(Window(), {0, 10});
  EXPECT_EQ(m_slider->GetPos(), 0) << "a click at the edge, even on the thumb";
}

TEST_F(SliderCtrl, TakingHoldOfTheThumbDoesNotMoveIt) {
  Press(Window(), At(103));
  Release(Window(), At(103));
  EXPECT_EQ(m_slider->GetPos(), 100);
  EXPECT_TRUE(TakeTold().empty());
  Press(Window(), At(103));
  MoveMouse(Window(), At(113));
  EXPECT_EQ(m_slider->GetPos(), 110);
  Release(Window(), At(113));
}

TEST_F(SliderCtrl, ADragBackToItsBeginningTellsItsEnd) {
  Press(Window(), At(100));
  MoveMouse(Window(), At(101));
  MoveMouse(Window(), At(100));
  Release(Window(), At(100));
  EXPECT_EQ(
      TakeTold(),
      Notifications({{KIVSLIDER_MOVING, 101}, {KIVSLIDER_MOVING, 100}, {KIVSLIDER_MOVED, 100}}));
}

TEST_F(SliderCtrl, AnUprightSliderIsHighestAtTheTop) {
  CreateAnew(CRect(CPoint(10, 10), CSize(20, 266)), KIVSLIDER_UPRIGHT);
  Press(Window(), {10, 60});
  EXPECT_EQ(m_slider->GetPos(), 200);
  MoveMouse(Window(), {10, -1});
  EXPECT_EQ(m_slider->GetPos(), 255);
  MoveMouse(Window(), {-400, 266});
  EXPECT_EQ(m_slider->GetPos(), 0);
  Release(Window(), {10, 266});
}

TEST_F(SliderCtrl, ADragThatIsTakenAwayEndsWhereItIs) {
  const auto dragTaken = [&](const auto& takeAway) {
    m_slider->SetPos(100);
    Press(Window(), At(200));
    takeAway();
    MoveMouse(Window(), At(30));
    EXPECT_EQ(m_slider->GetPos(), 200);
    EXPECT_NE(::GetCapture(), Window());
    EXPECT_EQ(TakeTold(), Notifications({{KIVSLIDER_MOVING, 200}, {KIVSLIDER_MOVED, 200}}));
  };
  dragTaken([] { ::ReleaseCapture(); });
  dragTaken([&] { ::SetCapture(m_owner.m_hWnd); });
  ::ReleaseCapture();
  dragTaken([&] { ::SendMessageW(Window(), WM_CANCELMODE, 0, 0); });
  dragTaken([&] { ::EnableWindow(Window(), FALSE); });
}

TEST_F(SliderCtrl, EscapeTakesADragBack) {
  Press(Window(), At(200));
  Key(Window(), VK_ESCAPE);
  EXPECT_EQ(m_slider->GetPos(), 100);
  EXPECT_EQ(::GetCapture(), nullptr);
  MoveMouse(Window(), At(30));
  Release(Window(), At(30));
  EXPECT_EQ(TakeTold(), Notifications({{KIVSLIDER_MOVING, 200}, {KIVSLIDER_MOVED, 100}}));
}

TEST_F(SliderCtrl, NoOtherKeyAndNoWheelCountsDuringADrag) {
  Press(Window(), At(200));
  Key(Window(), VK_RIGHT);
  Key(Window(), VK_HOME);
  Wheel(Window(), 240);
  EXPECT_EQ(m_slider->GetPos(), 200);
  Release(Window(), At(200));
}

/// A dialog with a slider in it, at its client corner.
class SliderDialog : public CDialog {
public:
  SliderDialog() : CDialog(IDD_NUMBERS) {}
  CKivSliderCtrl m_slider;
  int m_cancels = 0;

protected:
  BOOL OnInitDialog() override {
    m_slider.Create(WS_VISIBLE | WS_TABSTOP, CRect(CPoint(0, 0), kSize), this, kId,
                    KIVSLIDER_HORIZONTAL);
    m_slider.SetRange(0, 255);
    return CDialog::OnInitDialog();
  }
  void OnCancel() override {
    ++m_cancels;
    CDialog::OnCancel();
  }
};

TEST(SliderInADialog, EscapeDuringADragLeavesTheDialogOpen) {
  SliderDialog dialog;
  ModalScript script;
  script.When(Painted(AnyDialog()), [&](HWND /*window*/) {
    const HWND slider = dialog.m_slider.m_hWnd;
    ::PostMessageW(slider, WM_LBUTTONDOWN, MK_LBUTTON, PackedPoint(At(200)));
    PressKey(slider, VK_ESCAPE);
    // The key is still held, and repeats.
    ::PostMessageW(slider, WM_KEYDOWN, VK_ESCAPE, 1 | 1 << 30);
    ::PostMessageW(slider, WM_KEYUP, VK_ESCAPE, 1 | 1 << 30);
  });
  script.When(Painted(AnyDialog()), [&](HWND window) {
    EXPECT_EQ(::GetFocus(), dialog.m_slider.m_hWnd) << "the drag had begun";
    EXPECT_EQ(dialog.m_slider.GetPos(), 0);
    EXPECT_EQ(dialog.m_cancels, 0);
    PressKey(dialog.m_slider.m_hWnd, VK_RIGHT);
    PressKey(dialog.m_slider.m_hWnd, VK_ESCAPE);
    EXPECT_NE(window, nullptr);
  });
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
  EXPECT_EQ(dialog.m_cancels, 1);
  EXPECT_EQ(dialog.m_slider.GetPos(), 1) << "the arrow key is the slider's, not the dialog's";
}

// --- Keys and wheel

TEST_F(SliderCtrl, KeysMoveByOneByATenthAndToTheEnds) {
  struct Row {
    WPARAM key;
    int position;
  };
  for (const Row& row :
       {Row{VK_RIGHT, 101}, Row{VK_UP, 102}, Row{VK_LEFT, 101}, Row{VK_DOWN, 100},
        Row{VK_PRIOR, 125}, Row{VK_NEXT, 100}, Row{VK_END, 255}, Row{VK_HOME, 0}}) {
    Key(Window(), row.key);
    EXPECT_EQ(m_slider->GetPos(), row.position);
    EXPECT_EQ(TakeTold(), Notifications({{KIVSLIDER_MOVED, row.position}}));
  }
  for (const WPARAM key : {VK_LEFT, VK_DOWN, VK_NEXT, VK_HOME, VK_RETURN, VK_ESCAPE, VK_SPACE}) {
    Key(Window(), key);
  }
  EXPECT_EQ(m_slider->GetPos(), 0);
  EXPECT_TRUE(TakeTold().empty()) << "nothing has moved";
}

TEST_F(SliderCtrl, TheWheelMovesByOneForANotch) {
  Wheel(Window(), 120);
  EXPECT_EQ(m_slider->GetPos(), 101);
  Wheel(Window(), -240);
  EXPECT_EQ(m_slider->GetPos(), 99);
  EXPECT_EQ(TakeTold(), Notifications({{KIVSLIDER_MOVED, 101}, {KIVSLIDER_MOVED, 99}}));
  Wheel(Window(), 60);
  EXPECT_TRUE(TakeTold().empty());
  Wheel(Window(), 60);
  EXPECT_EQ(TakeTold(), Notifications({{KIVSLIDER_MOVED, 100}}));
}

// --- The look

std::uint32_t Pixel(const RgbColour& colour) {
  return test::Pixel(RGB(colour.red, colour.green, colour.blue));
}

TEST_F(SliderCtrl, TheStripShowsTheColourOfEachPosition) {
  for (const int thumb : {0, 255}) {  // to see each column without the thumb
    m_slider->SetPos(thumb);
    const driver::Picture look = Look();
    for (int position = 0; position <= 255; ++position) {
      if (std::abs(position - thumb) > 4) {
        for (const int y : {4, 10, 15}) {
          ASSERT_EQ(look.At(position + 5, y), Pixel({position, 0, 0})) << position << ", " << y;
        }
      }
    }
  }
  const driver::Picture look = Look();
  EXPECT_EQ(look.At(4, 10), Pixel({0, 0, 0})) << "before the track";
}

TEST_F(SliderCtrl, TheStripOfAnUprightSliderBeginsBelow) {
  CreateAnew(CRect(CPoint(10, 10), CSize(20, 266)), KIVSLIDER_UPRIGHT);
  const driver::Picture look = Look();
  for (int position = 0; position <= 255; ++position) {
    if (std::abs(position - 100) > 4) {
      ASSERT_EQ(look.At(10, 260 - position), Pixel({position, 0, 0})) << position;
    }
  }
}

TEST_F(SliderCtrl, TheStripFollowsModelSizeAndGradient) {
  m_slider->SetGradation(KIVGRADATION_HSB, {0, 255, 255, 0}, {360, 255, 255, 0});
  m_slider->SetPos(0);
  EXPECT_EQ(Look().At(132, 10), Pixel({0, 255, 251})) << "hue 179, at 127 of 255";
  m_slider->SetGradation(KIVGRADATION_CMYK, {0, 0, 0, 255}, {255, 0, 0, 0});
  EXPECT_EQ(Look().At(255, 10), Pixel({5, 250, 250}));
  m_slider->ResizeTo({161, 30});  // 150 pixels from 5 on
  const driver::Picture look = Look();
  EXPECT_EQ(look.At(155, 15), Pixel({0, 255, 255}));
  EXPECT_EQ(look.At(80, 15), Pixel({63, 127, 127})) << "half way, cyan and black are 128";
}

TEST_F(SliderCtrl, TheThumbIsSeenOnAnyColourAndWholeAtBothEnds) {
  for (const KIVCOLORCOMPONENTS& colour :
       {KIVCOLORCOMPONENTS{0, 0, 0, 0}, KIVCOLORCOMPONENTS{255, 255, 255, 0},
        KIVCOLORCOMPONENTS{128, 128, 128, 0}, KIVCOLORCOMPONENTS{255, 0, 0, 0},
        KIVCOLORCOMPONENTS{0, 0, 128, 0}}) {
    m_slider->SetGradation(KIVGRADATION_RGB, colour, colour);
    const std::uint32_t strip = Pixel({colour[0], colour[1], colour[2]});
    for (const int position : {0, 128, 255}) {
      m_slider->SetPos(position);
      const driver::Picture look = Look();
      const int left = position + 1;  // of 9 pixels around position + 5
      int columns = 0;
      for (int x = left; x < left + 9; ++x) {
        columns += Contrast(look.At(x, 10), strip) >= 127 ? 1 : 0;
      }
      EXPECT_GE(columns, 2) << position;
      for (int y = 2; y < 18; ++y) {
        ASSERT_EQ(look.At(left, y), look.At(left + 8, y)) << "both edges are there";
        ASSERT_EQ(look.At(left, y), 0U);
      }
    }
  }
}

TEST_F(SliderCtrl, TheFocusIsSeen) {
  ::SetFocus(m_owner.m_hWnd);
  const driver::Picture without = Look();
  ::SetFocus(Window());
  const driver::Picture with = Look();
  for (int x = 0; x < kSize.cx; ++x) {
    ASSERT_GE(Contrast(without.At(x, 0), with.At(x, 0)), 127);
    ASSERT_GE(Contrast(without.At(x, 19), with.At(x, 19)), 127);
  }
  ::SetFocus(m_owner.m_hWnd);
  EXPECT_EQ(Look(), without);
}

TEST_F(SliderCtrl, ADisabledSliderIsMuted) {
  const driver::Picture enabled = Look();
  ::EnableWindow(Window(), FALSE);
  const driver::Picture disabled = Look();
  EXPECT_GE(Contrast(enabled.At(255, 10), disabled.At(255, 10)), 64);
  EXPECT_GE(Contrast(enabled.At(101, 10), disabled.At(101, 10)), 64) << "the thumb's edge";
  ::EnableWindow(Window(), TRUE);
  EXPECT_EQ(Look(), enabled);
}

TEST_F(SliderCtrl, NothingIsErasedBeforeItIsPainted) {
  const driver::Picture painted = Look();
  m_slider->SetGradation(KIVGRADATION_RGB, kRedRgb, kBlackRgb);
  const HDC deviceContext = ::GetDC(Window());
  ::SendMessageW(Window(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(deviceContext), 0);
  ::ReleaseDC(Window(), deviceContext);
  EXPECT_EQ(driver::ReadPixels(Window()), painted);
}

TEST_F(SliderCtrl, AWindowWithoutRoomIsPainted) {
  for (const CSize& size : {CSize(0, 0), CSize(1, 1), CSize(3, 40), CSize(40, 3), CSize(9, 9)}) {
    m_slider->ResizeTo(size);
    m_slider->Invalidate();
    Look();
    Press(Window(), {0, 0});
    MoveMouse(Window(), {100, 100});
    EXPECT_EQ(m_slider->GetPos(), 255);
    MoveMouse(Window(), {-100, 100});
    EXPECT_EQ(m_slider->GetPos(), 0);
    Release(Window(), {0, 0});
  }
}

// --- Lives that end early

TEST_F(SliderCtrl, TheOwnerMayDestroyTheWindowWhenItIsTold) {
  m_owner.m_onTold = [&] { m_slider->DestroyWindow(); };
  Press(Window(), At(200));
  EXPECT_EQ(m_slider->m_hWnd, nullptr);
  EXPECT_EQ(::GetCapture(), nullptr);
  EXPECT_EQ(TakeTold().size(), 1U) << "the drag has ended with the window";

  Create(CRect(CPoint(10, 10), kSize), KIVSLIDER_HORIZONTAL);
  Key(Window(), VK_RIGHT);
  EXPECT_EQ(m_slider->m_hWnd, nullptr);
}

TEST_F(SliderCtrl, TheOwnerMayDestroyTheObjectWhenItIsTold) {
  const auto destroyed = [&](const auto& act) {
    m_owner.m_onTold = nullptr;
    Create(CRect(CPoint(10, 10), kSize), KIVSLIDER_HORIZONTAL);
    const HWND window = Window();
    m_owner.m_onTold = [&] { m_slider.reset(); };
    act(window);
    EXPECT_EQ(m_slider, nullptr);
    EXPECT_NE(::GetCapture(), window);
    ::DestroyWindow(window);
  };
  m_slider->DestroyWindow();
  destroyed([](HWND window) { Press(window, At(200)); });
  destroyed([](HWND window) { Key(window, VK_END); });
  destroyed([](HWND window) { Wheel(window, 120); });
  destroyed([&](HWND window) {
    m_owner.m_onTold = nullptr;
    Press(window, At(200));
    m_owner.m_onTold = [&] { m_slider.reset(); };
    Key(window, VK_ESCAPE);
  });
  destroyed([&](HWND window) {
    m_owner.m_onTold = nullptr;
    Press(window, At(200));
    m_owner.m_onTold = [&] { m_slider.reset(); };
    Release(window, At(200));
  });
}

TEST_F(SliderCtrl, WhoLosesTheFocusToAClickMayDestroyWindowOrObject) {
  FocusLoser loser(m_owner);
  loser.m_onLost = [&] { m_slider->DestroyWindow(); };
  Press(Window(), At(200));
  EXPECT_EQ(m_slider->GetPos(), 100);

  Create(CRect(CPoint(10, 10), kSize), KIVSLIDER_HORIZONTAL);
  const HWND window = Window();
  ::SetFocus(loser.m_hWnd);
  loser.m_onLost = [&] { m_slider.reset(); };
  Press(window, At(200));
  EXPECT_EQ(::GetCapture(), nullptr);
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(SliderCtrl, AnObjectThatDiesDuringADragLetsTheMouseGo) {
  const HWND window = Window();
  Press(window, At(200));
  TakeTold();
  m_slider.reset();
  EXPECT_EQ(::GetCapture(), nullptr);
  MoveMouse(window, At(10));
  Release(window, At(10));
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(SliderCtrl, AWindowThatDiesDuringADragTellsNothingMore) {
  Press(Window(), At(200));
  TakeTold();
  m_slider->DestroyWindow();
  EXPECT_TRUE(TakeTold().empty());
  EXPECT_EQ(::GetCapture(), nullptr);
  ASSERT_TRUE(m_slider->Create(WS_VISIBLE, CRect(CPoint(10, 10), kSize), &m_owner, kId,
                               KIVSLIDER_HORIZONTAL));
  MoveMouse(Window(), At(10));
  EXPECT_EQ(m_slider->GetPos(), 200) << "no drag is left over";
  Press(Window(), At(50));
  TakeTold();
  // Where the mouse is taken away from a window that is being destroyed.
  ::SendMessageW(Window(), WM_DESTROY, 0, 0);
  ::ReleaseCapture();
  EXPECT_TRUE(TakeTold().empty());
}

TEST_F(SliderCtrl, RandomMessagesKeepItSoundAndLeaveNothingBehind) {
  constexpr int kSteps = 4'000;
  std::mt19937 random(20'240'607);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  const auto anyKey = [&] {
    constexpr std::array<WPARAM, 9> kKeys{VK_LEFT, VK_RIGHT, VK_UP,  VK_DOWN,  VK_PRIOR,
                                          VK_NEXT, VK_HOME,  VK_END, VK_ESCAPE};
    return kKeys.at(static_cast<std::size_t>(below(9)));
  };
  const auto act = [&] {
    const CPoint point(below(400) - 60, below(400) - 60);
    switch (below(16)) {
      case 0:
        Press(Window(), point);
        break;
      case 1:
      case 2:
        MoveMouse(Window(), point);
        break;
      case 3:
        Release(Window(), point);
        break;
      case 4:
        ::SendMessageW(Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, PackedPoint(point));
        break;
      case 5:
      case 6:
        Key(Window(), anyKey());
        break;
      case 7:
        Wheel(Window(), below(65'536) - 32'768);
        break;
      case 8:
        m_slider->ResizeTo({below(300), below(60)});
        break;
      case 9:
        ::EnableWindow(Window(), below(3) > 0 ? TRUE : FALSE);
        break;
      case 10:
        ::SetFocus(below(2) == 0 ? m_owner.m_hWnd : Window());
        break;
      case 11:
        ::SendMessageW(Window(), below(2) == 0 ? WM_CANCELMODE : WM_CAPTURECHANGED, 0, 0);
        break;
      case 12:
        m_slider->SetRange(below(1000) - 500, below(1000) - 500);
        break;
      case 13:
        m_slider->SetPos(below(2000) - 1000);
        break;
      case 14:
        m_slider->SetGradation(below(4), {below(400), below(400), below(400), below(400)},
                               {below(400) - 100, below(400), below(400), below(400)});
        break;
      default:
        ::UpdateWindow(Window());
        break;
    }
  };
  const auto run = [&](int steps) {
    for (int i = 0; i < steps; ++i) {
      act();
      const int position = m_slider->GetPos();
      m_slider->SetPos(position);
      ASSERT_EQ(m_slider->GetPos(), position) << "outside the range";
      for (const Told& told : TakeTold()) {
        ASSERT_TRUE(told.code == KIVSLIDER_MOVING || told.code == KIVSLIDER_MOVED);
      }
    }
    ::ReleaseCapture();
    m_slider->DestroyWindow();
    m_owner.TakeTold();
  };
  run(500);  // fills the system's caches
  const auto round = [&] {
    Create(CRect(CPoint(10, 10), kSize), KIVSLIDER_UPRIGHT);
    run(kSteps);
    m_slider.reset();
  };
  round();
  const driver::LeakCounters before = driver::CountResources();
  round();
  EXPECT_EQ(driver::CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
