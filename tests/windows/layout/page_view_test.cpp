#include "dialogs/layout/page_view.h"

#include "driver/picture.h"
#include "support/control_owner.h"

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

constexpr double kDotsPerMm = 11.811;
constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr UINT kId = 7;
constexpr float kWidth = 120.0F;

/// A view of a block of 2 x 3 cells that has been laid out and painted.
class PageView : public ::testing::Test {
protected:
  PageView() {
    m_page.DividePage(kBlock, 2, 3, kDotsPerMm);
    m_page.SetAllLengthCol(kWidth, 1);
    m_page.SetAllLengthRow(kBlock, 60.0F, 1);
    ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 10, 10, 300, 200, m_owner.m_hWnd,
                      reinterpret_cast<HMENU>(UINT_PTR{kId}), nullptr, nullptr);
    m_view.Attach(kId, &m_owner);
    m_view.LayOut();
    Painted();
  }

  driver::Picture Painted() {
    m_view.Invalidate();
    ::UpdateWindow(m_view.m_hWnd);
    return driver::ReadPixels(m_view.m_hWnd);
  }

  /// As an editor of the same page does that lies above the one of the view.
  void InsertColumns(int count) {
    for (int i = 0; i < count; ++i) {
      m_page.InsertCol(0);
    }
    m_page.SetAllLengthCol(kWidth, 1);
  }

  ControlOwner m_owner;
  CLayoutExPageData m_page;
  ExtendedBlock m_block{m_page, kBlock};
  CPageView m_view{m_block, CelStyle::kRuled};
};

TEST_F(PageView, PaintsThePageAsItIsWhereSomebodyElseChangesItsShape) {
  InsertColumns(2);
  const driver::Picture painted = Painted();
  m_view.LayOut();
  EXPECT_EQ(painted, Painted());
}

TEST_F(PageView, KnowsNoCelOfAShapeInWhichItWasNotLaidOut) {
  ASSERT_TRUE(m_view.RectOf(5));
  InsertColumns(100);
  EXPECT_FALSE(m_view.RectOf(5));
  EXPECT_FALSE(m_view.RectOf(200));
  EXPECT_EQ(m_view.CelAt({150, 100}), -1);
  m_view.LayOut();
  EXPECT_TRUE(m_view.RectOf(200));
}

}  // namespace
}  // namespace quorvel::test
