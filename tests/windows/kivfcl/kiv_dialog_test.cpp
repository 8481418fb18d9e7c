#include "kivfcl/kiv_dialog.h"

#include "kivfcl/display_rate.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

namespace quorvel::test {
namespace {

class PlacedDialog : public CKivDialog {
public:
  PlacedDialog(CPoint point, CWnd* reference, BOOL keepVisible)
      : CKivDialog(IDD_NUMBERS),
        m_point(point),
        m_reference(reference),
        m_keepVisible(keepVisible) {}

protected:
  BOOL OnInitDialog() override {
    CKivDialog::OnInitDialog();
    MovePosition(m_point, m_reference, m_keepVisible);
    m_placed = GetWindowRect().TopLeft();  // once shown, a window manager may have its own way
    return TRUE;
  }

public:
  CPoint m_placed;

private:
  CPoint m_point;
  CWnd* m_reference;
  BOOL m_keepVisible;
};

CPoint PlaceOf(PlacedDialog& dialog) {
  WorkDialog([&] { return dialog.DoModal(); }, Cancel);
  return dialog.m_placed;
}

TEST(KivDialog, MovesToScreenPixelsOrToClientPixelsOfAWindow) {
  PlacedDialog onScreen({111, 222}, nullptr, TRUE);
  EXPECT_EQ(PlaceOf(onScreen), CPoint(111, 222));

  const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 300, 400, 50, 50, nullptr,
                                        nullptr, nullptr, nullptr);
  {
    CWnd reference;
    ASSERT_TRUE(reference.SubclassWindow(window));
    PlacedDialog relative({10, 20}, &reference, TRUE);
    EXPECT_EQ(PlaceOf(relative), CPoint(310, 420));
  }
  ::DestroyWindow(window);
}

TEST(KivDialog, StaysVisibleOnlyWhereToldTo) {
  PlacedDialog kept({-50, 100}, nullptr, TRUE);
  EXPECT_EQ(PlaceOf(kept), CPoint(0, 100));
  PlacedDialog taken({-50, 100}, nullptr, FALSE);
  EXPECT_EQ(PlaceOf(taken), CPoint(-50, 100));
}

TEST(DisplayRate, IsOneAt96DotsPerInch) {
  const HDC screen = ::GetDC(nullptr);
  const double dotsPerInch = ::GetDeviceCaps(screen, LOGPIXELSX);
  ::ReleaseDC(nullptr, screen);
  EXPECT_EQ(__KivFcl_GetDispRate(), dotsPerInch / 96.0);
}

}  // namespace
}  // namespace quorvel::test
