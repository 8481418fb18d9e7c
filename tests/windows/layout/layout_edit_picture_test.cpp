// The picture of the layout editor, and what mouse and keyboard do on it.
#include "driver/picture.h"
#include "layout/layout_editor.h"
#include "layout/tip_picture.h"
#include "res/ids.h"
#include "support/pixels.h"

#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using layout_editor::kImage;
using Cels = std::vector<int>;

constexpr std::uint32_t kGrey = 0xBFBFBF;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kRed = 0xFF0000;

HWND TextEdit(HWND dialog) { return ::GetDlgItem(dialog, kCelTextEdit); }

Picture Image(HWND dialog) {
  ::UpdateWindow(Control(dialog, kImage));
  return ReadPixels(Control(dialog, kImage));
}

/// The read-out that this process shows; null while none is there.
HWND ReadOut() { return ::FindWindowW(L"CToolTip", nullptr); }

class LayoutEditPicture : public ::testing::Test {
protected:
  /// 4 x 5 cells of 20 x 36 mm.
  LayoutEditor m_editor{4, 5, 80.0, 180.0};

  BOOL Run(const std::function<void(HWND, const PageOnScreen&)>& action) {
    return m_editor.Run([&](HWND dialog) { action(dialog, {dialog, m_editor.page}); });
  }
};

// ---- The picture

TEST_F(LayoutEditPicture, ShowsThePageOnGrey) {
  const COLORREF yellow = RGB(255, 255, 128);
  m_editor.Cel(8).GetFont()->SetBackColor(&yellow);
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture picture = Image(dialog);
    const CRect& area = page.Area();
    EXPECT_EQ(area.Height(), picture.height - 2);
    EXPECT_EQ(picture.At(0, 0), kGrey);
    EXPECT_EQ(picture.At(area.left - 2, area.top + 20), kGrey);
    EXPECT_EQ(picture.At(area.right + 1, area.top + 20), kGrey);
    EXPECT_EQ(picture.At(area.left + 5, area.top + 5), kWhite);
    const CPoint yellowCel = page.CentreOf(8);
    EXPECT_EQ(picture.At(yellowCel.x, yellowCel.y), 0xFFFF80U);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, CelsHaveBlackFramesTwoPixelsWide) {
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture picture = Image(dialog);
    const CRect cel = page.RectOf(6);
    const CPoint centre = page.CentreOf(6);
    const std::array columns{cel.left, cel.right};
    for (const LONG x : columns) {
      EXPECT_EQ(picture.At(x - 2, centre.y), kWhite);
      EXPECT_EQ(picture.At(x - 1, centre.y), kBlack);
      EXPECT_EQ(picture.At(x, centre.y), kBlack);
      EXPECT_EQ(picture.At(x + 1, centre.y), kWhite);
    }
    const std::array rows{cel.top, cel.bottom};
    for (const LONG y : rows) {
      EXPECT_EQ(picture.At(centre.x, y - 2), kWhite);
      EXPECT_EQ(picture.At(centre.x, y - 1), kBlack);
      EXPECT_EQ(picture.At(centre.x, y), kBlack);
      EXPECT_EQ(picture.At(centre.x, y + 1), kWhite);
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, SelectedFramesAreRedAndLieOnTop) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(6);
    const Picture picture = Image(dialog);
    const CRect cel = page.RectOf(6);
    const CPoint centre = page.CentreOf(6);
    for (const LONG x : {cel.left - 1, cel.left, cel.right - 1, cel.right}) {
      EXPECT_EQ(picture.At(x, centre.y), kRed) << x;
    }
    for (const LONG y : {cel.top - 1, cel.top, cel.bottom - 1, cel.bottom}) {
      EXPECT_EQ(picture.At(centre.x, y), kRed) << y;
    }
    EXPECT_EQ(picture.At(page.RectOf(7).right, centre.y), kBlack);
    page.ClickCel(6);
    EXPECT_EQ(Image(dialog).At(cel.left, centre.y), kBlack);
    Cancel(dialog);
  });
}

/// Bounds of the pixels that are not white inside a cell; empty where all are.
CRect InkIn(const Picture& picture, const CRect& cel) {
  constexpr int kFrame = 2;
  CRect ink(cel.right, cel.bottom, cel.left, cel.top);
  for (int y = cel.top + kFrame; y < cel.bottom - kFrame; ++y) {
    for (int x = cel.left + kFrame; x < cel.right - kFrame; ++x) {
      if (picture.At(x, y) != kWhite) {
        ink = {std::min<int>(ink.left, x), std::min<int>(ink.top, y),
               std::max<int>(ink.right, x + 1), std::max<int>(ink.bottom, y + 1)};
      }
    }
  }
  return ink;
}

TEST_F(LayoutEditPicture, TextsStandWhereTheirFontPlacesThem) {
  for (BYTE vertical = 0; vertical < 3; ++vertical) {
    for (BYTE horizontal = 0; horizontal < 3; ++horizontal) {
      CLayoutCelData& cel = m_editor.Cel(vertical * 5 + horizontal);
      cel.SetText("品");
      cel.GetFont()->SetVPos(vertical);
      cel.GetFont()->SetHPos(horizontal);
    }
  }
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture picture = Image(dialog);
    for (int vertical = 0; vertical < 3; ++vertical) {
      for (int horizontal = 0; horizontal < 3; ++horizontal) {
        SCOPED_TRACE(vertical * 10 + horizontal);
        const int index = vertical * 5 + horizontal;
        const CRect cel = page.RectOf(index);
        const CRect ink = InkIn(picture, cel);
        ASSERT_LT(ink.left, ink.right);
        const int fromLeft = ink.left - cel.left;
        const int fromRight = cel.right - ink.right;
        const int fromTop = ink.top - cel.top;
        const int fromBottom = cel.bottom - ink.bottom;
        constexpr int kNear = 8;
        EXPECT_EQ(fromLeft < kNear, horizontal == 0);
        EXPECT_EQ(fromRight < kNear, horizontal == 2);
        EXPECT_EQ(fromTop < kNear, vertical == 0);
        EXPECT_EQ(fromBottom < kNear, vertical == 2);
      }
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, LettersAreAsHighAsTheirMillimetres) {
  CKivFontEx& font = *m_editor.Cel(0).GetFont();
  font = CKivFontEx();
  m_editor.Cel(0).SetText("■");
  m_editor.Cel(1).SetText("■");
  font.SetV(16.0);
  m_editor.Cel(1).GetFont()->SetV(8.0);
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture picture = Image(dialog);
    const CRect large = InkIn(picture, page.RectOf(0));
    const CRect small = InkIn(picture, page.RectOf(1));
    EXPECT_NEAR(large.Height(), 2.0 * small.Height(), 3.0);
    // A black square fills most of its letter's height.
    EXPECT_GT(large.Height(), 0.6 * 16.0 * page.PixelsPerMm());
    EXPECT_LT(large.Height(), 16.0 * page.PixelsPerMm());
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, ATextIsCutOffAtItsCel) {
  m_editor.Cel(6).SetText("これはとても長いのでセルには入りきらない文字列ですから切り取られます");
  m_editor.Cel(6).GetFont()->SetV(12.0);
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture picture = Image(dialog);
    EXPECT_GT(InkIn(picture, page.RectOf(6)).Width(), 10);
    for (const int neighbour : {5, 7, 1, 11}) {
      const CRect ink = InkIn(picture, page.RectOf(neighbour));
      EXPECT_GE(ink.left, ink.right) << neighbour;
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, AnAmpersandIsACharacter) {
  m_editor.Cel(0).SetText("&");
  m_editor.Cel(0).GetFont()->SetV(12.0);
  Run([](HWND dialog, const PageOnScreen& page) {
    EXPECT_GT(InkIn(Image(dialog), page.RectOf(0)).Width(), 5);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, AMergedCelIsOne) {
  m_editor.Select({6, 7, 11, 12});
  ASSERT_TRUE(m_editor.page.MeargeCel(1, 1));
  Run([](HWND dialog, const PageOnScreen& page) {
    const CRect cel = page.RectOf(6);
    const CPoint centre = page.CentreOf(6);
    EXPECT_EQ(Image(dialog).At(centre.x, centre.y), kWhite);
    const std::array corners{CPoint(cel.left + 9, cel.top + 9),
                             CPoint(cel.right - 9, cel.bottom - 9)};
    page.Press(corners[0]);  // it was selected
    page.Release(corners[1]);
    EXPECT_EQ(Image(dialog).At(cel.right, centre.y), kBlack);
    page.Press(corners[1]);
    page.Release(corners[0]);
    EXPECT_EQ(Image(dialog).At(cel.right, centre.y), kRed);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({6}));
}

TEST_F(LayoutEditPicture, PartsArePaintedAsTheWholeIs) {
  for (int index = 0; index < 20; ++index) {
    m_editor.Cel(index).SetText("部品 A&B");
  }
  m_editor.Select({0, 6, 7, 13});
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture whole = Image(dialog);
    const HWND image = Control(dialog, kImage);
    for (const int index : {0, 3, 6, 12, 19}) {
      const RECT part = page.RectOf(index).Grown(1, 1);
      ::InvalidateRect(image, &part, FALSE);
      EXPECT_EQ(Image(dialog), whole) << index;
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, APageWithoutWidthIsShown) {
  m_editor = LayoutEditor(2, 2, 40.0, 0.0);
  Run([](HWND dialog, const PageOnScreen& page) {
    EXPECT_GT(page.Area().Width(), 0);
    const Picture picture = Image(dialog);
    EXPECT_EQ(picture.At(page.Area().left - 4, 50), kGrey);
    EXPECT_NE(picture.At(page.Area().left, 50), kGrey);
    Cancel(dialog);
  });
}

// ---- Selecting

TEST_F(LayoutEditPicture, ADragSelectsARectangle) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.DragCels(13, 6);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({6, 7, 8, 11, 12, 13}));
}

TEST_F(LayoutEditPicture, AClickElsewhereLeavesOneAndOnTheOnlyOneNone) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.DragCels(0, 6);
    page.ClickCel(6);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({6}));
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(6);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels());
}

TEST_F(LayoutEditPicture, ShiftDoesNotAdd) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(0);
    page.Send(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, page.CentreOf(7));
    page.Send(WM_LBUTTONUP, MK_SHIFT, page.CentreOf(7));
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({7}));
}

TEST_F(LayoutEditPicture, ADragMarksWhatAMergedCelCovers) {
  m_editor.Select({6, 7, 11, 12});
  ASSERT_TRUE(m_editor.page.MeargeCel(1, 1));
  Run([](HWND dialog, const PageOnScreen& page) {
    page.DragCels(0, 18);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected().size(), 16U);
  EXPECT_EQ(m_editor.Cel(12).GetSelected(), 1);
}

TEST_F(LayoutEditPicture, ADragThatEndsOutsideOrBetweenCelsSelectsNothing) {
  m_editor.Select({3});
  Run([](HWND dialog, const PageOnScreen& page) {
    page.Press(page.CentreOf(0));
    page.Release({-40, 20});  // off the picture
    page.Press(page.CentreOf(0));
    page.Release({5, 20});  // on the grey beside the page
    page.Press({5, 20});
    page.Release(page.CentreOf(0));
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({3}));
}

TEST_F(LayoutEditPicture, TheMouseIsCapturedDuringADrag) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.Press(page.CentreOf(0));
    EXPECT_EQ(::GetCapture(), dialog);
    page.Release(page.CentreOf(0));
    EXPECT_EQ(::GetCapture(), nullptr);
    page.Press({-40, 20});
    EXPECT_EQ(::GetCapture(), nullptr);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, ADragThatLosesTheMouseIsForgotten) {
  Run([](HWND dialog, const PageOnScreen& page) {
    const Picture before = Image(dialog);
    page.Press(page.CentreOf(0));
    ::ReleaseCapture();
    page.Release(page.CentreOf(6));
    const CRect cel = page.RectOf(0);
    page.Press({cel.right, cel.top + 20});
    EXPECT_NE(Image(dialog), before);
    ::ReleaseCapture();
    page.MoveTo({cel.right + 20, cel.top + 20});
    page.Release({cel.right + 20, cel.top + 20});
    EXPECT_EQ(Image(dialog), before);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels());
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 36.0);
}

TEST_F(LayoutEditPicture, EachDragHasItsCursor) {
  Run([](HWND dialog, const PageOnScreen& page) {
    const HMODULE product = ::GetModuleHandleW(L"Quorvel.dll");
    const auto cursor = [&](int id) { return ::LoadCursorW(product, MAKEINTRESOURCEW(id)); };
    const CRect cel = page.RectOf(6);
    const CPoint centre = page.CentreOf(6);
    const std::array<std::pair<CPoint, int>, 3> drags{{{centre, IDC_CURSOR_SELECT_CELLS},
                                                       {{cel.right, centre.y},
                                                        IDC_CURSOR_DRAG_COLUMN},
                                                       {{centre.x, cel.bottom},
                                                        IDC_CURSOR_DRAG_ROW}}};
    for (const auto& [point, id] : drags) {
      CPoint onScreen = page.InDialog(point);
      ::ClientToScreen(dialog, &onScreen);
      ::SetCursorPos(onScreen.x, onScreen.y);
      const LPARAM hit = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
      const auto window = reinterpret_cast<WPARAM>(dialog);
      ::SendMessageW(dialog, WM_SETCURSOR, window, hit);
      EXPECT_NE(::GetCursor(), cursor(id));
      page.Press(point);
      EXPECT_EQ(::GetCursor(), cursor(id)) << id;
      ::SetCursor(nullptr);
      EXPECT_EQ(::SendMessageW(dialog, WM_SETCURSOR, window, hit), TRUE);
      EXPECT_EQ(::GetCursor(), cursor(id)) << id;
      page.Release({-100, -100});
      EXPECT_NE(::GetCursor(), cursor(id));
    }
    Cancel(dialog);
  });
}

// ---- Dragging borders

/// What dragging by so many pixels adds, in whole millimetres.
double Millimetres(const PageOnScreen& page, int pixels) {
  return std::round(pixels / page.PixelsPerMm());
}

TEST_F(LayoutEditPicture, DraggingAColumnBorderMovesItByWholeMillimetres) {
  double moved = 0.0;
  Run([&](HWND dialog, const PageOnScreen& page) {
    const CPoint border(page.RectOf(6).right, page.CentreOf(6).y);
    moved = Millimetres(page, 25);
    page.Press(border);
    page.MoveTo({border.x + 10, border.y});
    page.Release({border.x + 25, border.y});
    Confirm(dialog);
  });
  EXPECT_GT(moved, 5.0);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 36.0 + moved);
  EXPECT_EQ(m_editor.page.GetLengthCol(2), 36.0 - moved);
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 36.0);
  EXPECT_EQ(m_editor.Selected(), Cels());
}

TEST_F(LayoutEditPicture, DraggingARowBorderUp) {
  double moved = 0.0;
  Run([&](HWND dialog, const PageOnScreen& page) {
    const CPoint border(page.CentreOf(6).x, page.RectOf(6).bottom);
    moved = Millimetres(page, 30);
    page.Press({border.x, border.y + 3});
    page.Release({border.x, border.y + 3 - 30});
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthRow(1), 20.0 - moved);
  EXPECT_EQ(m_editor.page.GetLengthRow(2), 20.0 + moved);
}

TEST_F(LayoutEditPicture, WhereBordersCrossTheRowIsDragged) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    const CRect cel = page.RectOf(6);
    page.Press({cel.right + 3, cel.bottom - 3});
    page.Release({cel.right + 30, cel.bottom + 20});
    Confirm(dialog);
  });
  EXPECT_GT(m_editor.page.GetLengthRow(1), 20.0);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 36.0);
}

TEST_F(LayoutEditPicture, FourPixelsFromABorderACelIsSelected) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    const CRect cel = page.RectOf(6);
    const CPoint inside(cel.right - 4, page.CentreOf(6).y);
    page.Press(inside);
    page.Release(inside);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({6}));
}

TEST_F(LayoutEditPicture, PastALimitTheLastPlaceCounts) {
  double moved = 0.0;
  Run([&](HWND dialog, const PageOnScreen& page) {
    const CPoint border(page.RectOf(6).right, page.CentreOf(6).y);
    moved = Millimetres(page, 12);
    page.Press(border);
    page.MoveTo({border.x + 12, border.y});
    page.MoveTo({page.RectOf(7).right, border.y});
    page.Release({page.RectOf(8).left + 30, border.y});
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 36.0 + moved);
  EXPECT_EQ(m_editor.page.GetLengthCol(2), 36.0 - moved);
}

TEST_F(LayoutEditPicture, AColumnCanBeDraggedToNothing) {
  m_editor = LayoutEditor(1, 40 / 2, 4.0, 20.0);  // columns of 1 mm, many pixels each
  Run([&](HWND dialog, const PageOnScreen& page) {
    const CRect cel = page.RectOf(0);
    const CPoint border(cel.right, page.CentreOf(0).y);
    page.Press(border);
    page.Release({cel.left + 1, border.y});
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 0.0);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 2.0);
}

TEST_F(LayoutEditPicture, ABorderReleasedOffThePictureStays) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    const Picture before = Image(dialog);
    const CPoint border(page.RectOf(6).right, page.CentreOf(6).y);
    page.Press(border);
    page.MoveTo({border.x + 20, border.y});
    page.MoveTo({border.x + 20, -10});
    page.Release({border.x + 20, -10});
    EXPECT_EQ(Image(dialog), before);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 36.0);
}

TEST_F(LayoutEditPicture, OneRowHasNoBorderToDrag) {
  m_editor = LayoutEditor(1, 1, 20.0, 36.0);
  Run([&](HWND dialog, const PageOnScreen& page) {
    page.Press({page.CentreOf(0).x, page.RectOf(0).bottom - 2});
    page.Release({page.CentreOf(0).x, page.RectOf(0).bottom - 2});
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({0}));
}

TEST_F(LayoutEditPicture, TheGuideLineFollowsThePointerAndVanishes) {
  const COLORREF black = RGB(0, 0, 0);
  m_editor.Cel(1).GetFont()->SetBackColor(&black);
  const COLORREF grey = RGB(128, 128, 128);
  m_editor.Cel(6).GetFont()->SetBackColor(&grey);
  Run([&](HWND dialog, const PageOnScreen& page) {
    const Picture before = Image(dialog);
    const CRect& area = page.Area();
    const CPoint border(page.RectOf(1).right, page.CentreOf(1).y);
    page.Press(border);
    const int x = border.x - 15;  // over the black and the grey cell and two white ones
    page.MoveTo({x, border.y});
    const Picture dragged = Image(dialog);
    for (const int index : {1, 6, 11, 16}) {
      int changed = 0;
      const CRect cel = page.RectOf(index);
      for (int y = cel.top; y < cel.bottom; ++y) {
        changed += dragged.At(x, y) != before.At(x, y) ? 1 : 0;
      }
      EXPECT_GT(changed, cel.Height() / 3) << index;
    }
    for (int y = 0; y < before.height; ++y) {  // nothing else has changed
      for (int at = 0; at < before.width; ++at) {
        if (at != x || y < area.top || y >= area.bottom) {
          ASSERT_EQ(dragged.At(at, y), before.At(at, y)) << at << ", " << y;
        }
      }
    }
    page.MoveTo({border.x, border.y});
    page.Release({border.x, border.y});
    EXPECT_EQ(Image(dialog), before);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, TheGuideLineOutlivesARepaint) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    const Picture before = Image(dialog);
    const CPoint border(page.RectOf(6).right, page.CentreOf(6).y);
    page.Press(border);
    page.MoveTo({border.x + 11, border.y});
    const Picture dragged = Image(dialog);
    const RECT part{page.Area().left, page.Area().top + 33, page.Area().right,
                    page.Area().top + 90};
    ::InvalidateRect(Control(dialog, kImage), &part, FALSE);
    EXPECT_EQ(Image(dialog), dragged);
    page.MoveTo({border.x, border.y});
    page.Release({border.x, border.y});
    EXPECT_EQ(Image(dialog), before);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, TheReadOutShowsBothLengthsBesideThePointer) {
  std::wstring expected;
  ModalScript script;
  script.When(Painted(AnyDialog()), [&](HWND dialog) {
    const PageOnScreen page(dialog, m_editor.page);
    const CPoint border(page.RectOf(6).right, page.CentreOf(6).y);
    page.Press(border);
    EXPECT_EQ(ReadOut(), nullptr);
    page.MoveTo({page.RectOf(7).right + 3, border.y});  // beyond the limit
    EXPECT_EQ(ReadOut(), nullptr);
    const CPoint target(border.x + 20, border.y);
    CPoint onScreen = page.InDialog(target);
    ::ClientToScreen(dialog, &onScreen);
    ::SetCursorPos(onScreen.x, onScreen.y);
    page.MoveTo(target);
    EXPECT_NE(ReadOut(), nullptr);
    const long change = std::lround(20 / page.PixelsPerMm());
    const auto length = [](double mm) { return std::to_wstring(std::lround(mm)) + L"mm"; };
    expected = length(m_editor.page.GetLengthCol(2) + change) + L" / " +
               length(m_editor.page.GetLengthCol(3) - change);
  });
  script.When({"the read-out is shown",
               [] { return ::IsWindowVisible(ReadOut()) != FALSE ? ReadOut() : nullptr; }},
              [&](HWND readOut) {
                EXPECT_TRUE(ShowsLine(readOut, expected));
                EXPECT_EQ(::GetWindow(readOut, GW_OWNER),
                          ::GetAncestor(VisibleDialogs().at(0), GA_ROOT));
              });
  script.When(AnyDialog(), [&](HWND dialog) {
    const PageOnScreen page(dialog, m_editor.page);
    page.Release({page.RectOf(6).right + 20, page.CentreOf(6).y});
    EXPECT_EQ(ReadOut(), nullptr);
    Cancel(dialog);
  });
  m_editor.Run(script);
}

// ---- Editing a text in its cell

TEST_F(LayoutEditPicture, ATextIsEditedInItsCel) {
  m_editor.Cel(6).SetText("品名 ソ");
  Run([&](HWND dialog, const PageOnScreen& page) {
    page.DragCels(6, 12);
    Command(dialog, IDM_EDIT_TEXT);
    const HWND edit = TextEdit(dialog);
    ASSERT_NE(edit, nullptr);
    // Some platforms draw the border themselves and take its style away.
    EXPECT_EQ(::GetWindowLongPtrW(edit, GWL_STYLE) | WS_BORDER, 0x50801080);
    CRect place = page.RectOf(6).Grown(-1, -1);
    const CPoint corner = page.InDialog(place.TopLeft());
    EXPECT_EQ(CRect(ClientRectOf(edit)), CRect(corner, place.Size()));
    EXPECT_EQ(Text(edit), L"品名 ソ");
    EXPECT_EQ(SelectionOf(edit), WholeText(edit));
    EXPECT_EQ(::GetFocus(), edit);
    EXPECT_EQ(::SendMessageW(edit, WM_GETFONT, 0, 0), ::SendMessageW(dialog, WM_GETFONT, 0, 0));
    Command(dialog, IDM_EDIT_TEXT);  // it is open already
    EXPECT_EQ(TextEdit(dialog), edit);
    Cancel(dialog);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, NothingIsEditedWithoutASelectedCel) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    Command(dialog, IDM_EDIT_TEXT);
    EXPECT_EQ(TextEdit(dialog), nullptr);
    page.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, page.CentreOf(3));
    EXPECT_EQ(TextEdit(dialog), nullptr);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, ACoveredCelIsNotEdited) {
  m_editor.Select({6, 7, 11, 12});
  ASSERT_TRUE(m_editor.page.MeargeCel(1, 1));
  m_editor.Cel(6).SetSelected(0);
  m_editor.Cel(7).SetSelected(1);  // covered
  m_editor.Cel(13).SetSelected(1);
  Run([&](HWND dialog, const PageOnScreen&) {
    Command(dialog, IDM_EDIT_TEXT);
    EXPECT_EQ(TextEdit(dialog), nullptr);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, EachEndingKeyStoresTheTextInEverySelectedCel) {
  for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT}) {
    SCOPED_TRACE(key);
    m_editor = LayoutEditor(4, 5, 80.0, 180.0);
    ModalScript script;
    script.When(Painted(AnyDialog()), [&](HWND dialog) {
      PageOnScreen(dialog, m_editor.page).DragCels(6, 12);
      Command(dialog, IDM_EDIT_TEXT);
      ASSERT_NE(TextEdit(dialog), nullptr);
      TypeText(TextEdit(dialog), L"数量 %s");
      PressKey(TextEdit(dialog), key);
    });
    script.When({"the field is gone",
                 [] {
                   const std::vector<HWND> dialogs = VisibleDialogs();
                   return !dialogs.empty() && TextEdit(dialogs[0]) == nullptr ? dialogs[0]
                                                                              : nullptr;
                 }},
                [](HWND dialog) {
                  EXPECT_EQ(::GetFocus(), dialog);
                  Confirm(dialog);
                });
    EXPECT_TRUE(m_editor.Run(script));
    for (const int index : {6, 7, 11, 12}) {
      EXPECT_EQ(m_editor.TextOf(index), "数量 %s") << index;
    }
    EXPECT_EQ(m_editor.TextOf(8), "");
  }
}

TEST_F(LayoutEditPicture, OtherKeysAreTheFields) {
  ModalScript script;
  script.When(Painted(AnyDialog()), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(0);
    Command(dialog, IDM_EDIT_TEXT);
    TypeText(TextEdit(dialog), L"abc");
    for (const UINT key : {VK_HOME, VK_UP, VK_SHIFT, VK_CONTROL, VK_DELETE}) {
      PressKey(TextEdit(dialog), key);
    }
    TypeText(TextEdit(dialog), L"x");
    PressKey(TextEdit(dialog), VK_RETURN);
    Click(dialog, IDOK);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(0), "xbc");
}

TEST_F(LayoutEditPicture, KeysTheDialogIsToldOfEndTheFieldOrNot) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(0);
    Command(dialog, IDM_EDIT_TEXT);
    for (const WPARAM key : {VK_SHIFT, VK_CONTROL, VK_UP, VK_TAB, VK_SPACE}) {
      ::SendMessageW(dialog, WM_KEYDOWN, key, 0);
      EXPECT_NE(TextEdit(dialog), nullptr) << key;
    }
    ::SendMessageW(dialog, WM_KEYDOWN, VK_RIGHT, 0);
    EXPECT_EQ(TextEdit(dialog), nullptr);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, AnUntouchedTextIsStoredNowhere) {
  m_editor.Cel(0).SetText("a");
  m_editor.Cel(1).SetText("b");
  Run([&](HWND dialog, const PageOnScreen& page) {
    page.DragCels(0, 1);
    Command(dialog, IDM_EDIT_TEXT);
    ::SendMessageW(dialog, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(TextEdit(dialog), nullptr);
    EXPECT_EQ(::GetFocus(), dialog);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(0), "a");
  EXPECT_EQ(m_editor.TextOf(1), "b");
}

TEST_F(LayoutEditPicture, TheMouseEndsTheFieldAndStoresItsText) {
  const std::array<UINT, 3> messages{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONUP};
  for (const UINT message : messages) {
    SCOPED_TRACE(message);
    m_editor = LayoutEditor(4, 5, 80.0, 180.0);
    Run([&](HWND dialog, const PageOnScreen& page) {
      page.ClickCel(0);
      Command(dialog, IDM_EDIT_TEXT);
      ::SendMessageW(TextEdit(dialog), WM_CHAR, L'x', 0);
      page.Send(message, 0, {-30, -30});
      EXPECT_EQ(TextEdit(dialog), nullptr);
      Confirm(dialog);
    });
    EXPECT_EQ(m_editor.TextOf(0), "x");
  }
}

TEST_F(LayoutEditPicture, ADoubleClickOpensTheFieldUnderThePointer) {
  for (const bool wasSelected : {false, true}) {
    SCOPED_TRACE(wasSelected);
    m_editor = LayoutEditor(4, 5, 80.0, 180.0);
    Run([&](HWND dialog, const PageOnScreen& page) {
      if (wasSelected) {
        page.ClickCel(8);
      }
      const CPoint point = page.CentreOf(8);
      page.Press(point);
      page.Release(point);
      page.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, point);
      const HWND edit = TextEdit(dialog);
      ASSERT_NE(edit, nullptr);
      CPoint onScreen = page.InDialog(point);
      ::ClientToScreen(dialog, &onScreen);
      EXPECT_EQ(::WindowFromPoint(onScreen), edit);
      page.Release(point);  // the end of the double click
      EXPECT_EQ(TextEdit(dialog), edit);
      page.Press(page.CentreOf(3));
      EXPECT_EQ(TextEdit(dialog), nullptr);
      page.Release(page.CentreOf(3));
      Confirm(dialog);
    });
    EXPECT_EQ(m_editor.Selected(), Cels({3}));
  }
}

TEST_F(LayoutEditPicture, ClickingTwiceIsNoDoubleClick) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(8);
    page.ClickCel(8);
    EXPECT_EQ(TextEdit(dialog), nullptr);
    page.ClickCel(7);
    page.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, page.CentreOf(7));
    EXPECT_NE(TextEdit(dialog), nullptr);
    Cancel(dialog);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, TheFieldStaysAboveThePicture) {
  Run([&](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(8);
    Command(dialog, IDM_EDIT_TEXT);
    const HWND edit = TextEdit(dialog);
    ::UpdateWindow(edit);
    const Picture before = ReadPixels(edit);
    ::InvalidateRect(Control(dialog, kImage), nullptr, TRUE);
    Image(dialog);
    EXPECT_EQ(ReadPixels(edit), before);
    Cancel(dialog);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditPicture, CtrlWithAnArrowKeySelectsTheNextCel) {
  m_editor.Select({0});
  ModalScript script;
  for (const UINT key : {VK_RIGHT, VK_DOWN}) {
    script.When(SteadyOnScreen(AnyDialog()), [key](HWND dialog) {
      ::SetFocus(Control(dialog, IDOK));
      SendKey(key, {VK_CONTROL});
    });
  }
  script.When(SteadyOnScreen(AnyDialog()), [&](HWND dialog) {
    const PageOnScreen page(dialog, m_editor.page);
    EXPECT_EQ(Image(dialog).At(page.RectOf(6).left, page.CentreOf(6).y), kRed);
    EXPECT_EQ(Image(dialog).At(page.RectOf(0).left, page.CentreOf(0).y), kBlack);
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.Selected(), Cels({6}));
}

TEST_F(LayoutEditPicture, F2EditsAndConfirmingStoresWhatIsTyped) {
  ModalScript script;
  script.When(Painted(AnyDialog()), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(4);
    PressKey(Control(dialog, IDOK), VK_F2);
  });
  script.When(DialogWithControl(kCelTextEdit), [](HWND dialog) {
    TypeText(TextEdit(dialog), L"確認");
    Click(dialog, IDOK);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(4), "確認");
}

}  // namespace
}  // namespace quorvel::test
