#include "kivfcl/kiv_color_button.h"

#include "driver/controls.h"
#include "driver/picture.h"
#include "support/control_owner.h"
#include "support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace quorvel::test {
namespace {

constexpr int kId = 11;
constexpr int kWidth = 40;
constexpr int kHeight = 24;

class ColorButton : public ::testing::Test {
protected:
  void SetUp() override {
    ::CreateWindowExW(0, L"BUTTON", L"色", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, 10,
                      10, kWidth, kHeight, m_owner.m_hWnd,
                      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kId)), nullptr, nullptr);
    ASSERT_TRUE(m_button.SubclassDlgItem(kId, &m_owner));
    ::SetFocus(m_owner.m_hWnd);
  }

  driver::Picture Look() const {
    ::UpdateWindow(m_button.m_hWnd);
    return driver::ReadPixels(m_button.m_hWnd);
  }

  ControlOwner m_owner;
  CKivColorButton m_button;
};

constexpr std::array kColors{RGB(0, 0, 0),   RGB(255, 255, 255), RGB(128, 128, 128),
                             RGB(255, 0, 0), RGB(127, 255, 0),   RGB(1, 2, 254)};

TEST_F(ColorButton, FillsItselfWithItsColour) {
  EXPECT_EQ(Look().At(20, 12), 0xFFFFFFU);
  for (const COLORREF color : kColors) {
    m_button.Recolor(color);
    EXPECT_EQ(m_button.m_color, color);
    const driver::Picture look = Look();
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        ASSERT_EQ(look.At(x, y), Pixel(color)) << x << ", " << y;
      }
    }
  }
}

TEST_F(ColorButton, TheFocusIsSeenOnAnyColour) {
  ::SetFocus(m_button.m_hWnd);
  for (const COLORREF color : kColors) {
    m_button.Recolor(color);
    const driver::Picture look = Look();
    for (int x = 1; x < kWidth - 1; ++x) {
      ASSERT_GE(
          std::max(Contrast(look.At(x, 0), Pixel(color)), Contrast(look.At(x, 1), Pixel(color))),
          127);
    }
    for (int y = 1; y < kHeight - 1; ++y) {
      ASSERT_GE(
          std::max(Contrast(look.At(0, y), Pixel(color)), Contrast(look.At(1, y), Pixel(color))),
          127);
    }
    EXPECT_EQ(look.At(20, 12), Pixel(color));
  }
  ::SetFocus(m_owner.m_hWnd);
  EXPECT_EQ(Look().At(0, 0), Pixel(kColors.back())) << "the mark goes with the focus";
}

TEST_F(ColorButton, PressedItIsSunkenWithTheFocusToo) {
  for (const bool focused : {false, true}) {
    ::SetFocus(focused ? m_button.m_hWnd : m_owner.m_hWnd);
    for (const COLORREF color : kColors) {
      m_button.Recolor(color);
      const driver::Picture up = Look();
      ::SendMessageW(m_button.m_hWnd, BM_SETSTATE, TRUE, 0);
      const driver::Picture down = Look();
      ::SendMessageW(m_button.m_hWnd, BM_SETSTATE, FALSE, 0);
      int changed = 0;
      for (int x = 0; x < kWidth; ++x) {
        for (const int y : {0, 1, 2, 3}) {
          changed = std::max(changed, Contrast(up.At(x, y), down.At(x, y)));
        }
      }
      EXPECT_GE(changed, 64) << focused << " " << std::hex << color;
      EXPECT_EQ(down.At(20, 12), Pixel(color));
      EXPECT_EQ(down.At(0, 12) == up.At(0, 12), focused) << "the focus mark stays outside";
      EXPECT_EQ(Look(), up);
    }
  }
}

TEST_F(ColorButton, DisabledItShowsLessOfItsColour) {
  ::EnableWindow(m_button.m_hWnd, FALSE);
  for (const COLORREF color : kColors) {
    m_button.Recolor(color);
    const driver::Picture look = Look();
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        const bool isInside = 3 <= x && x < kWidth - 3 && 3 <= y && y < kHeight - 3;
        ASSERT_EQ(look.At(x, y), Pixel(isInside ? color : ::GetSysColor(COLOR_BTNFACE)));
      }
    }
  }
}

TEST_F(ColorButton, SpeaksItsNameAndItsColour) {
  m_button.Recolor(RGB(255, 0, 17));
  EXPECT_EQ(driver::Text(m_button.m_hWnd), L"色 赤 255 緑 0 青 17");
  m_button.SetWindowText("背景の色");
  EXPECT_EQ(driver::Text(m_button.m_hWnd), L"背景の色 赤 255 緑 0 青 17");
}

TEST_F(ColorButton, SpeaksANameInPlaceOfItsTextUntilItIsGivenAnother) {
  m_button.m_color = RGB(255, 0, 17);
  m_button.m_name = L"基本色";
  EXPECT_EQ(driver::Text(m_button.m_hWnd), L"基本色 赤 255 緑 0 青 17");
  ::SetWindowTextW(m_button.m_hWnd, L"背景の色");
  EXPECT_EQ(driver::Text(m_button.m_hWnd), L"背景の色 赤 255 緑 0 青 17");
}

TEST_F(ColorButton, SpeaksItsColour) {
  m_button.SetWindowText("");
  m_button.Recolor(RGB(255, 0, 17));
  EXPECT_EQ(driver::Text(m_button.m_hWnd), L"赤 255 緑 0 青 17");
  EXPECT_STREQ(m_button.GetWindowText(), "赤 255 緑 0 青 17");
  std::wstring cut(5, L'?');
  EXPECT_EQ(::SendMessageW(m_button.m_hWnd, WM_GETTEXT, 4, reinterpret_cast<LPARAM>(cut.data())),
            3);
  EXPECT_EQ(cut, std::wstring(L"赤 2\0?", 5));
  EXPECT_EQ(::SendMessageW(m_button.m_hWnd, WM_GETTEXT, 0, reinterpret_cast<LPARAM>(cut.data())),
            0);
  EXPECT_EQ(::SendMessageW(m_button.m_hWnd, WM_GETTEXT, 5, 0), 0);
}

TEST_F(ColorButton, ATinyButtonIsDrawn) {
  for (const CSize& size : {CSize(1, 1), CSize(2, 9), CSize(5, 5)}) {
    m_button.ResizeTo(size);
    for (const BOOL enabled : {FALSE, TRUE}) {
      ::EnableWindow(m_button.m_hWnd, enabled);
      m_button.Recolor(RGB(9, 9, 9));
      Look();
    }
  }
  m_button.ResizeTo({kWidth, kHeight});
  EXPECT_EQ(Look().At(20, 12), 0x090909U);
}

}  // namespace
}  // namespace quorvel::test
