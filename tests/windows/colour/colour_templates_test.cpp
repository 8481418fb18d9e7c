// The templates of the colour dialogs, in tab order.
#include "colour/page_controls.h"
#include "dialogs/colour/colour_grid.h"
#include "support/templates.h"

// Needs <windows.h> above.
#include <commctrl.h>

namespace quorvel::test {
namespace {

constexpr const wchar_t* kSpoken = L"選択色 赤 255 緑 128 青 64";

std::wstring SpokenBasicColor(int index) {
  const COLORREF color = kBasicColors[static_cast<std::size_t>(index)].color;
  return L"基本色 赤 " + std::to_wstring(GetRValue(color)) + L" 緑 " + std::to_wstring(GetGValue(color)) +
         L" 青 " + std::to_wstring(GetBValue(color));
}

TEST(Templates, ColourGrid) {
  std::vector<ExpectedControl> controls{{kNoId, L"Button", L"基本色", {7, 6, 105, 76}}};
  for (int i = 0; i < kBasicColorCount; ++i) {
    controls.push_back({GridControlId(i), L"Button", SpokenBasicColor(i),
                        {11 + 12 * (i % 8), 18 + 10 * (i / 8), 12, 9}});
  }
  controls.push_back({kNoId, L"Button", L"作成色", {118, 6, 104, 35}});
  for (int i = 0; i < kMadeColorButtonCount; ++i) {
    controls.push_back({GridControlId(kBasicColorCount + i), L"Button", L"作成色 赤 255 緑 255 青 255",
                        {122 + 12 * (i % 8), 17 + 10 * (i / 8), 12, 9}});
  }
  controls.push_back({kNoId, L"Button", L"選択色", {132, 50, 78, 29}});
  controls.push_back({13441, L"Button", kSpoken, {140, 61, 63, 12}});
  controls.push_back({13323, L"Button", L"その他の色", {7, 88, 105, 14}});
  controls.push_back({IDOK, L"Button", L"決定", {131, 87, 40, 14}});
  controls.push_back({IDCANCEL, L"Button", L"ｷｬﾝｾﾙ", {172, 87, 39, 14}});

  COLORREF color = RGB(255, 128, 64);
  WorkDialog([&] { return __SelColorDlg(nullptr, &color, nullptr); }, [&](HWND dialog) {
    ExpectTemplate(dialog, L"色設定", {227, 107}, L"ＭＳ Ｐゴシック", controls);
    for (int i = 0; i < kGridButtonCount; ++i) {
      const HWND button = Control(dialog, GridControlId(i));
      const LONG_PTR style = ::GetWindowLongPtrW(button, GWL_STYLE);
      EXPECT_EQ(style & BS_TYPEMASK, BS_OWNERDRAW);
      EXPECT_NE(style & WS_TABSTOP, 0);
      EXPECT_NE(::GetWindowLongPtrW(button, GWL_EXSTYLE) & WS_EX_STATICEDGE, 0);
    }
    Cancel(dialog);
  });
}

TEST(Templates, ColourPicker) {
  COLORREF color = RGB(153, 102, 51);
  WorkDialog([&] { return __SelRGBDlg(&color); }, [](HWND dialog) {
    ExpectTemplate(dialog, L"色の設定", {293, 151}, L"MS Shell Dlg",
                   {{13557, L"Static", L"色合いと鮮やかさ", {9, 9, 117, 113}},
                    {13555, L"Static", L"明るさの帯", {130, 13, 8, 107}},
                    {13540, L"ScrollBar", L"", {139, 13, 8, 107}},
                    {kNoId, L"Static", L"現在の色", {151, 15, 44, 9}},
                    {13556, L"Static", L"現在の色の見本", {153, 27, 40, 34}},
                    {kNoId, L"Button", L"色彩", {200, 6, 86, 59}},
                    {kNoId, L"Static", L"色合い", {207, 18, 38, 12}},
                    {13374, L"Edit", L"21", {247, 18, 24, 12}},
                    {13545, L"ScrollBar", L"", {272, 18, 8, 12}},
                    {kNoId, L"Static", L"鮮やかさ", {207, 33, 38, 12}},
                    {13371, L"Edit", L"127", {247, 33, 24, 12}},
                    {13544, L"ScrollBar", L"", {272, 33, 8, 12}},
                    {kNoId, L"Static", L"明るさ", {207, 48, 38, 12}},
                    {13370, L"Edit", L"102", {247, 48, 24, 12}},
                    {13543, L"ScrollBar", L"", {272, 48, 8, 12}},
                    {kNoId, L"Button", L"RGB値", {153, 67, 133, 58}},
                    {kNoId, L"Static", L"赤(R)", {160, 79, 24, 12}},
                    {13542, L"ScrollBar", L"", {186, 80, 68, 10}},
                    {13375, L"Edit", L"153", {257, 79, 24, 12}},
                    {kNoId, L"Static", L"緑(G)", {160, 94, 24, 12}},
                    {13541, L"ScrollBar", L"", {186, 95, 68, 10}},
                    {13373, L"Edit", L"102", {257, 94, 24, 12}},
                    {kNoId, L"Static", L"青(B)", {160, 109, 24, 12}},
                    {13539, L"ScrollBar", L"", {186, 110, 68, 10}},
                    {13372, L"Edit", L"51", {257, 109, 24, 12}},
                    {IDOK, L"Button", L"OK", {182, 131, 50, 14}},
                    {IDCANCEL, L"Button", L"ｷｬﾝｾﾙ", {236, 131, 50, 14}}});
    Cancel(dialog);
  });
}

/// A control that a page has, beside those that it makes.
void ExpectPlace(HWND parent, HWND dialog, int id, const CRect& units) {
  EXPECT_EQ(CRect(ClientRectOf(Control(parent, id))), PixelsOf(dialog, units)) << id;
}

TEST(Templates, ColourEditDialogAndPage) {
  COLORREF color = RGB(153, 102, 51);
  WorkDialog([&] { return __EditColorDlg(nullptr, &color, nullptr); }, [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"色編集");
    EXPECT_EQ(Text(dialog, IDOK), L"OK");
    EXPECT_EQ(Text(dialog, IDCANCEL), L"ｷｬﾝｾﾙ");
    ExpectPlace(dialog, dialog, IDOK, {44, 70, 50, 14});
    ExpectPlace(dialog, dialog, IDCANCEL, {100, 70, 50, 14});
    ExpectPlace(dialog, dialog, 1011, {4, 4, 146, 62});
    EXPECT_FALSE(IsShown(dialog, 1011));
    const HWND page = ShownPage(dialog);
    const RECT place = ClientRectOf(Control(dialog, 1011));
    EXPECT_EQ(ClientRectOf(page).left, place.left);
    EXPECT_EQ(ClientRectOf(page).top, place.top);
    EXPECT_EQ(ClientRectOf(page).right, place.right);
    ExpectPlace(page, dialog, 1011, {28, 4, 128, 70});
    ExpectPlace(page, dialog, 2000, {4, 4, 16, 16});
    Cancel(dialog);
  });
}

TEST(Templates, TabbedColourDialogAndPages) {
  COLORREF color = RGB(153, 102, 51);
  WorkDialog([&] { return __SelColorDlgEx(nullptr, &color, nullptr); }, [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"色設定");
    EXPECT_EQ(FontFace(dialog), L"MS Shell Dlg");
    ExpectPlace(dialog, dialog, IDOK, {87, 102, 40, 14});
    ExpectPlace(dialog, dialog, IDCANCEL, {130, 102, 40, 14});
    ExpectPlace(dialog, dialog, 1000, {4, 4, 166, 94});
    const auto select = [dialog](int tab) {
      ::SendMessageW(Control(dialog, 1000), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
      return ShownPage(dialog);
    };
    const HWND list = select(0);
    ExpectPlace(list, dialog, 2000, {4, 4, 16, 16});
    ExpectPlace(list, dialog, 2001, {48, 4, 108, 72});
    ExpectPlace(list, dialog, 1011, {4, 22, 40, 14});
    ExpectPlace(list, dialog, 1010, {4, 38, 40, 14});
    ExpectPlace(list, dialog, 1012, {4, 54, 40, 14});
    EXPECT_EQ(Text(list, 1011), L"編集(&E)");
    EXPECT_EQ(Text(list, 1010), L"追加(&A)");
    EXPECT_EQ(Text(list, 1012), L"削除(&D)");
    const HWND field = select(2);
    ExpectPlace(field, dialog, 2000, {4, 4, 16, 16});
    ExpectPlace(field, dialog, 2010, {136, 4, 20, 70});
    ExpectPlace(field, dialog, 2009, {28, 4, 106, 70});
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
