#include "framework/wnd.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

class Static {
public:
  Static()
      : m_window(::CreateWindowExW(0, L"STATIC", L"初め", WS_POPUP, 10, 20, 100, 50, nullptr, nullptr,
                                   nullptr, nullptr)) {}
  ~Static() { ::DestroyWindow(m_window); }
  Static(const Static&) = delete;
  Static& operator=(const Static&) = delete;
  HWND Handle() const { return m_window; }

private:
  HWND m_window;
};

constexpr UINT kQuestion = WM_APP + 1;

class Answering : public CWnd {
protected:
  LRESULT OnQuestion(WPARAM wParam, LPARAM lParam) {
    return static_cast<LRESULT>(wParam) + lParam;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Answering, CWnd)
  ON_MESSAGE(kQuestion, &Answering::OnQuestion)
END_MESSAGE_MAP()

class AnsweringMore : public Answering {
protected:
  LRESULT OnNext(WPARAM /*wParam*/, LPARAM /*lParam*/) { return 7; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(AnsweringMore, Answering)
  ON_MESSAGE(kQuestion + 1, &AnsweringMore::OnNext)
END_MESSAGE_MAP()

TEST(Wnd, HandlesMessagesThroughItsOwnMapAndItsBases) {
  const Static window;
  AnsweringMore object;
  ASSERT_TRUE(object.SubclassWindow(window.Handle()));
  EXPECT_EQ(::SendMessageW(window.Handle(), kQuestion, 40, 2), 42);
  EXPECT_EQ(::SendMessageW(window.Handle(), kQuestion + 1, 0, 0), 7);
  EXPECT_EQ(::SendMessageW(window.Handle(), kQuestion + 2, 0, 0), 0);
}

TEST(Wnd, AWindowHasOneObjectAndAnObjectOneWindow) {
  const Static window;
  const Static other;
  CWnd first;
  CWnd second;
  EXPECT_FALSE(first.SubclassWindow(nullptr));
  ASSERT_TRUE(first.SubclassWindow(window.Handle()));
  EXPECT_FALSE(first.SubclassWindow(other.Handle()));
  EXPECT_EQ(CWnd::FromHandlePermanent(window.Handle()), &first);
  ASSERT_TRUE(second.SubclassWindow(window.Handle()));
  EXPECT_EQ(first.m_hWnd, nullptr);
  EXPECT_EQ(CWnd::FromHandlePermanent(window.Handle()), &second);
  EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
}

TEST(Wnd, TheWindowGoesOnWhenTheObjectDies) {
  const Static window;
  const LONG_PTR ownProc = ::GetWindowLongPtrW(window.Handle(), GWLP_WNDPROC);
  {
    Answering object;
    ASSERT_TRUE(object.SubclassWindow(window.Handle()));
    EXPECT_NE(::GetWindowLongPtrW(window.Handle(), GWLP_WNDPROC), ownProc);
  }
  EXPECT_EQ(::GetWindowLongPtrW(window.Handle(), GWLP_WNDPROC), ownProc);
  EXPECT_EQ(::SendMessageW(window.Handle(), kQuestion, 40, 2), 0);
}

TEST(Wnd, TheObjectIsDetachedWhenTheWindowDies) {
  auto window = std::make_unique<Static>();
  CWnd object;
  ASSERT_TRUE(object.SubclassWindow(window->Handle()));
  window.reset();
  EXPECT_EQ(object.m_hWnd, nullptr);
  EXPECT_FALSE(object.UpdateData(TRUE));
}

TEST(Wnd, MovesResizesAndNames) {
  const Static window;
  CWnd object;
  ASSERT_TRUE(object.SubclassWindow(window.Handle()));
  EXPECT_STREQ(object.GetWindowText(), "初め");
  object.SetWindowText("表%s");
  EXPECT_STREQ(object.GetWindowText(), "表%s");
  object.SetWindowText(nullptr);
  EXPECT_TRUE(object.GetWindowText().IsEmpty());
  object.MoveTo({30, 40});
  object.ResizeTo({200, 60});
  EXPECT_EQ(object.GetWindowRect(), CRect(30, 40, 230, 100));
}

}  // namespace
