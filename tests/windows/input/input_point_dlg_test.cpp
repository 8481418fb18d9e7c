#include "support/work.h"

#include <quorvel/quorvel.h>

#include <array>

namespace quorvel::test {
namespace {

constexpr int kX = 4056;
constexpr int kY = 4057;
constexpr int kZLabel = 4058;
constexpr int kZ = 4059;
constexpr int kMouse = 4060;

using Point2 = std::array<double, 2>;
using Point3 = std::array<double, 3>;

INT_PTR AskXY(Point2& point, BOOL allowMousePick, ModalScript::Action action) {
  return WorkDialog([&] { return __InputPointXYDlg(point.data(), allowMousePick, nullptr); },
                    std::move(action));
}

INT_PTR AskXYZ(Point3& point, BOOL allowMousePick, ModalScript::Action action) {
  return WorkDialog([&] { return __InputPointXYZDlg(point.data(), allowMousePick, nullptr); },
                    std::move(action));
}

TEST(InputPointDlg, FieldXShowsElement1AndFieldYElement0) {
  Point2 point{100.0, 200.0};
  const INT_PTR result = AskXY(point, FALSE, [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"座標入力");
    EXPECT_EQ(Text(dialog, kX), L"200.000");
    EXPECT_EQ(Text(dialog, kY), L"100.000");
    Confirm(dialog);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(point, (Point2{100.0, 200.0}));
}

TEST(InputPointDlg, TheFieldsComeBackCrosswise) {
  Point3 point{1.0, 2.0, 3.0};
  const INT_PTR result = AskXYZ(point, FALSE, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kZ), L"3.000");
    ReplaceText(Control(dialog, kX), L"11.5");
    ReplaceText(Control(dialog, kY), L"-22.25");
    ReplaceText(Control(dialog, kZ), L"33.123456");
    Confirm(dialog);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(point, (Point3{-22.25, 11.5, 33.123456}));
}

TEST(InputPointDlg, ValuesAreRoundedToThreeDecimals) {
  Point3 point{1.23456, 2.0005, -0.0004};
  AskXYZ(point, FALSE, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kY), L"1.235");
    EXPECT_EQ(Text(dialog, kX), L"2.001");
    EXPECT_EQ(Text(dialog, kZ), L"0.000");
    Confirm(dialog);
  });
  EXPECT_EQ(point, (Point3{1.235, 2.001, 0.0}));
}

TEST(InputPointDlg, ATextThatIsNoNumberGivesZero) {
  Point2 point{1.0, 2.0};
  const INT_PTR result = AskXY(point, FALSE, [](HWND dialog) {
    ReplaceText(Control(dialog, kX), L"abc");
    ReplaceText(Control(dialog, kY), L"");
    Confirm(dialog);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(point, (Point2{0.0, 0.0}));
}

TEST(InputPointDlg, CancelReturns1AndLeavesThePoint) {
  Point2 point{1.23456, 2.0};
  const INT_PTR result = AskXY(point, TRUE, [](HWND dialog) {
    ReplaceText(Control(dialog, kX), L"9");
    Click(dialog, IDCANCEL);
  });
  EXPECT_EQ(result, 1);
  EXPECT_EQ(point, (Point2{1.23456, 2.0}));
}

TEST(InputPointDlg, TheMouseButtonReturns2AndLeavesThePoint) {
  Point2 flat{1.23456, 2.0};
  const auto edit = [](HWND dialog) {
    EXPECT_TRUE(IsShown(dialog, kMouse));
    ReplaceText(Control(dialog, kX), L"9");
    Click(dialog, kMouse);
  };
  EXPECT_EQ(AskXY(flat, TRUE, edit), 2);
  EXPECT_EQ(flat, (Point2{1.23456, 2.0}));
  Point3 solid{1.23456, 2.0, 3.0};
  EXPECT_EQ(AskXYZ(solid, TRUE, edit), 2);
  EXPECT_EQ(solid, (Point3{1.23456, 2.0, 3.0}));
}

TEST(InputPointDlg, TheMouseButtonIsHiddenUnlessAllowed) {
  Point2 flat{};
  Point3 solid{};
  const auto expectHidden = [](HWND dialog) {
    EXPECT_FALSE(IsShown(dialog, kMouse));
    Cancel(dialog);
  };
  AskXY(flat, FALSE, expectHidden);
  AskXYZ(solid, FALSE, expectHidden);
}

TEST(InputPointDlg, TwoCoordinatesCloseUpBelowTheYField) {
  struct Layout {
    RECT dialog;
    RECT y;
    RECT ok;
    RECT cancel;
    RECT mouse;
    bool zShown;
  };
  const auto layoutOf = [](HWND dialog) {
    return Layout{WindowRect(dialog),
                  ClientRectOf(Control(dialog, kY)),
                  ClientRectOf(Control(dialog, IDOK)),
                  ClientRectOf(Control(dialog, IDCANCEL)),
                  ClientRectOf(Control(dialog, kMouse)),
                  IsShown(dialog, kZ) || IsShown(dialog, kZLabel)};
  };
  Layout flat{};
  Layout solid{};
  Point2 point2{};
  Point3 point3{};
  AskXY(point2, TRUE, [&](HWND dialog) { flat = layoutOf(dialog); Cancel(dialog); });
  AskXYZ(point3, TRUE, [&](HWND dialog) { solid = layoutOf(dialog); Cancel(dialog); });

  EXPECT_FALSE(flat.zShown);
  EXPECT_TRUE(solid.zShown);
  const int shift = solid.y.bottom - solid.ok.top + 12;
  EXPECT_LT(shift, 0);
  EXPECT_EQ(flat.ok.top, flat.y.bottom + 12);
  for (const auto& [moved, from] : {std::pair{flat.ok, solid.ok},
                                    {flat.cancel, solid.cancel}, {flat.mouse, solid.mouse}}) {
    CRect expected = from;
    expected.OffsetRect(0, shift);
    EXPECT_EQ(CRect(moved), expected);
  }
  EXPECT_EQ(CRect(flat.dialog).Width(), CRect(solid.dialog).Width());
  EXPECT_EQ(CRect(flat.dialog).Height(), CRect(solid.dialog).Height() + shift);
}

TEST(InputPointDlg, TwoCoordinatesArePlacedAfterTheDialogHasShrunk) {
  const int screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
  Point2 point{};
  CPoint bottom(10, screenHeight);
  WorkDialog([&] { return __InputPointXYDlg(point.data(), FALSE, &bottom); }, [&](HWND dialog) {
    EXPECT_EQ(WindowRect(dialog).bottom, screenHeight);
    Cancel(dialog);
  });
}

TEST(InputPointDlg, MnemonicsReachTheFields) {
  ModalScript script;
  const Condition shown = Painted(DialogWithControl(kX));
  Point3 point{1, 2, 3};
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), IDOK);
    ::PostMessageW(Control(dialog, IDOK), WM_SYSCHAR, L'y', 1 << 29);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kY);
    EXPECT_EQ(SelectionOf(Control(dialog, kY)), WholeText(Control(dialog, kY)));
    ::PostMessageW(Control(dialog, kY), WM_SYSCHAR, L'z', 1 << 29);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kZ);
    Cancel(dialog);
  });
  EXPECT_EQ(Work(script, [&] { return __InputPointXYZDlg(point.data(), FALSE, nullptr); }), 1);
}

}  // namespace
}  // namespace quorvel::test
