// What a screen reader calls each control of each dialog, in the order of the windows.
#include "dialogs/colour/colour_grid.h"
#include "framework/control_names.h"
#include "layout/layout_editor.h"
#include "support/accessible_name.h"
#include "support/colour_environment.h"
#include "support/layout_dialogs.h"
#include "support/work.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

struct ExpectedNames {
  std::string dialog;
  std::vector<NamedControl> controls;
};

// The colour grid has a function of its own below, so has the dialog with tabs.
const std::vector<ExpectedNames>& ExpectedNamesOfDialogs() {
  static const std::vector<ExpectedNames> expected{
        {"InputText",
         {{1, L"OK"},
          {2, L"キャンセル"},
          {10000, L"説明"},
          {10001, L"説明"}}},
        {"InputScale",
         {{1, L"OK"},
          {2, L"キャンセル"},
          {10001, L"縮尺 1 /"},
          {10000, L"説明"}}},
        {"InputDpi",
         {{4012, L"画像解像度:"},
          {1939, L"画像解像度:"},
          {1, L"実行(E)"}}},
        {"InputPointXY",
         {{1, L"OK"},
          {2, L"キャンセル"},
          {4056, L"X座標(X)"},
          {4057, L"Y座標(Y)"},
          {4060, L"ﾏｳｽ指定"}}},
        {"InputPointXYZ",
         {{1, L"OK"},
          {2, L"キャンセル"},
          {4056, L"X座標(X)"},
          {4057, L"Y座標(Y)"},
          {4058, L"Z座標(Z)"},
          {4059, L"Z座標(Z)"}}},
        {"UserPaper",
         {{13367, L"用紙名:"},
          {13521, L"(420x297)"},
          {13368, L"横:"},
          {13369, L"縦:"},
          {1, L"OK"},
          {2, L"ｷｬﾝｾﾙ"},
          {13322, L"ﾕｰｻﾞｰ用紙の全消去"}}},
        {"CheckList",
         {{1, L"OK"},
          {2, L"キャンセル"},
          {4030, L"項目の一覧"}}},
        {"SelFont",
         {{1088, L"ﾌｫﾝﾄ名(F):"},
          {1136, L"ﾌｫﾝﾄ名(F):"},
          {1089, L"ｽﾀｲﾙ(Y):"},
          {1137, L"ｽﾀｲﾙ(Y):"},
          {1040, L"取り消し線(K)"},
          {4027, L"取り消し線の種類"},
          {1041, L"下線(U)"},
          {1091, L"色(C):"},
          {2003, L"文字の色 赤 0 緑 0 青 0"},
          {2005, L"縦ｻｲｽﾞ(V):"},
          {2006, L"横ｻｲｽﾞ(H):"},
          {1, L"OK"},
          {2, L"ｷｬﾝｾﾙ"}}},
        {"SelFontEx",
         {{1088, L"ﾌｫﾝﾄ名(F):"},
          {1136, L"ﾌｫﾝﾄ名(F):"},
          {1089, L"ｽﾀｲﾙ(Y):"},
          {1137, L"ｽﾀｲﾙ(Y):"},
          {1040, L"取り消し線(K)"},
          {1041, L"下線(U)"},
          {1091, L"色(C):"},
          {2003, L"文字の色 赤 0 緑 0 青 0"},
          {1094, L"背景色(B):"},
          {2004, L"背景の色 赤 255 緑 255 青 255"},
          {2005, L"縦(V):"},
          {2006, L"横(H):"},
          {2007, L"縦(A):"},
          {2008, L"横(O):"},
          {1, L"OK"},
          {2, L"ｷｬﾝｾﾙ"}}},
        {"EditColor",
         {{1, L"OK"},
          {2, L"ｷｬﾝｾﾙ"},
          {100, L"色の表し方"},
          {120, L"R 153"},
          {110, L"R"},
          {121, L"G 102"},
          {111, L"G"},
          {122, L"B 51"},
          {112, L"B"}}},
        {"SelRgb",
         {{13557, L"色合いと鮮やかさ"},
          {13555, L"明るさの帯"},
          {13540, L"明るさの調整"},
          {13556, L"現在の色の見本"},
          {13374, L"色合い"},
          {13545, L"色合いの調整"},
          {13371, L"鮮やかさ"},
          {13544, L"鮮やかさの調整"},
          {13370, L"明るさ"},
          {13543, L"明るさの調整"},
          {13542, L"赤(R)"},
          {13375, L"赤(R)"},
          {13541, L"緑(G)"},
          {13373, L"緑(G)"},
          {13539, L"青(B)"},
          {13372, L"青(B)"},
          {1, L"OK"},
          {2, L"ｷｬﾝｾﾙ"}}},
        {"LayoutEdit",
         {{2040, L"ﾚｲｱｳﾄのｲﾒｰｼﾞ"},
          {2011, L"行(R):"},
          {2022, L"列(C):"},
          {2023, L"行(O):"},
          {10002, L"均等"},
          {2024, L"列(L):"},
          {10003, L"均等"},
          {2027, L"ﾏｰｼﾞﾝ(M):"},
          {2026, L"ﾏｰｼﾞﾝ(M):"},
          {2028, L"mm"},
          {2029, L"ﾌﾚｰﾑを表示(F)"},
          {2041, L"文字の色 赤 0 緑 0 青 0"},
          {2043, L"文字の色を選ぶ"},
          {2042, L"背景の色 赤 255 緑 255 青 255"},
          {2044, L"背景の色を選ぶ"},
          {2045, L"ｾﾙに入れる項目"},
          {4029, L"挿入"},
          {1, L"OK"},
          {2, L"キャンセル"},
          {0, L"ｾﾙの編集"},
          {0, L"ﾚｲｱｳﾄのﾌｧｲﾙ"}}},
        {"LayoutEditOfLines",
         {{2040, L"ﾚｲｱｳﾄのｲﾒｰｼﾞ"},
          {2011, L"行(R):"},
          {2022, L"列(C):"},
          {2023, L"行(O):"},
          {10002, L"均等"},
          {2024, L"列(L):"},
          {10003, L"均等"},
          {2030, L"外側"},
          {2031, L"外側の線の種類"},
          {2032, L"外側の線の色 赤 153 緑 102 青 51"},
          {2033, L"外側の線の幅"},
          {2034, L"mm"},
          {2035, L"内側"},
          {2036, L"内側の線の種類"},
          {2037, L"内側の線の色 赤 153 緑 102 青 51"},
          {2038, L"内側の線の幅"},
          {2039, L"mm"},
          {2041, L"文字の色 赤 0 緑 0 青 0"},
          {2043, L"文字の色を選ぶ"},
          {2042, L"背景の色 赤 255 緑 255 青 255"},
          {2044, L"背景の色を選ぶ"},
          {2045, L"ｾﾙに入れる項目"},
          {4029, L"挿入"},
          {1, L"OK"},
          {2, L"キャンセル"},
          {0, L"ｾﾙの編集"},
          {0, L"ﾚｲｱｳﾄのﾌｧｲﾙ"}}},
        {"LayoutExEdit",
         {{4035, L"ﾌｯﾀｰのｲﾒｰｼﾞ"},
          {4033, L"ﾘｽﾄのｲﾒｰｼﾞ"},
          {4031, L"ﾍｯﾀﾞｰのｲﾒｰｼﾞ"},
          {2024, L"全幅:"},
          {10003, L"列幅均等"},
          {2022, L"列数:"},
          {4051, L"先頭頁"},
          {4052, L"中間頁"},
          {4053, L"末尾頁"},
          {4045, L"ｵﾌｾｯﾄ:"},
          {2030, L"外側"},
          {2031, L"外側の線の種類"},
          {2032, L"外側の線の色 赤 153 緑 102 青 51"},
          {2033, L"外側の線の幅"},
          {2034, L"mm"},
          {2035, L"内側"},
          {2036, L"内側の線の種類"},
          {2037, L"内側の線の色 赤 153 緑 102 青 51"},
          {2038, L"内側の線の幅"},
          {2039, L"mm"},
          {2041, L"文字の色 赤 0 緑 0 青 0"},
          {2043, L"文字の色を選ぶ"},
          {2042, L"背景の色 赤 255 緑 255 青 255"},
          {2044, L"背景の色を選ぶ"},
          {2045, L"ｾﾙに入れる項目"},
          {4029, L"追加"},
          {4030, L"ﾌｨｰﾙﾄﾞ"},
          {4044, L"選択したｾﾙのﾃｷｽﾄ"},
          {4032, L"ﾍｯﾀﾞｰ"},
          {4037, L"ﾍｯﾀﾞｰの高さ"},
          {4038, L"ﾍｯﾀﾞｰの行数"},
          {10004, L"行高均等"},
          {4034, L"ﾘｽﾄ"},
          {4040, L"ﾘｽﾄの高さ"},
          {4039, L"ﾘｽﾄの行数"},
          {10005, L"行高均等"},
          {4041, L"ﾘｽﾄの回数"},
          {4036, L"ﾌｯﾀｰ"},
          {4043, L"ﾌｯﾀｰの高さ"},
          {4042, L"ﾌｯﾀｰの行数"},
          {10006, L"行高均等"},
          {1, L"OK"},
          {2, L"キャンセル"},
          {0, L"ｾﾙの編集"},
          {0, L"ﾚｲｱｳﾄのﾌｧｲﾙ"}}},
        {"LayoutCelSizeEdit",
         {{4055, L"左または上の長さ"},
          {4056, L"右または下の長さ"},
          {1, L"OK"},
          {2, L"キャンセル"}}},
        {"LayoutFrameEdit",
         {{4015, L"なし(N)"},
          {4017, L"外枠(O)"},
          {4018, L"内側(I)"},
          {2040, L"罫線の見本"},
          {4019, L"上の罫線 オン"},
          {4020, L"内側の横罫線 オン"},
          {4021, L"下の罫線 オン"},
          {4022, L"左の罫線 オン"},
          {4023, L"内側の縦罫線 オン"},
          {4024, L"右の罫線 オン"},
          {1, L"OK"},
          {2, L"キャンセル"}}},
        {"LayoutFieldEdit",
         {{4045, L"ﾀｲﾌﾟ:"},
          {4046, L"ﾌｨｰﾙﾄﾞ1"},
          {4050, L"条件の比較"},
          {4047, L"条件の値"},
          {4049, L"ﾌｨｰﾙﾄﾞ2"},
          {4029, L"桁指定"},
          {4054, L"小数点以下の桁数"},
          {4030, L"3桁区切り"},
          {1, L"OK"},
          {2, L"キャンセル"}}},
        {"LayoutListEdit",
         {{4031, L"ﾚｲｱｳﾄのｲﾒｰｼﾞ"},
          {2041, L"文字の色 赤 0 緑 0 青 0"},
          {2043, L"文字の色を選ぶ"},
          {2042, L"背景の色 赤 255 緑 255 青 255"},
          {2044, L"背景の色を選ぶ"},
          {2045, L"ｾﾙに入れる項目"},
          {4029, L"追加"},
          {4030, L"ﾌｨｰﾙﾄﾞ"},
          {4032, L"ﾃｷｽﾄ等倍表示"},
          {4044, L"選択したｾﾙのﾃｷｽﾄ"},
          {1, L"終了"},
          {0, L"ｾﾙの編集"}}},
  };
  return expected;
}

std::wstring WithColor(const std::wstring& name, COLORREF color) {
  return name + L" 赤 " + std::to_wstring(GetRValue(color)) + L" 緑 " +
         std::to_wstring(GetGValue(color)) + L" 青 " + std::to_wstring(GetBValue(color));
}

std::vector<NamedControl> NamesOfColourGrid() {
  std::vector<NamedControl> names;
  const auto colours = InitialGridColors();
  names.reserve(kGridButtonCount);
  for (int index = 0; index < kGridButtonCount; ++index) {
    names.push_back({GridControlId(index), WithColor(IsMadeColor(index) ? L"作成色" : L"基本色",
                                                     colours[static_cast<std::size_t>(index)])});
  }
  names.push_back({13441, L"選択色 赤 153 緑 102 青 51"});
  names.push_back({13323, L"その他の色"});
  names.push_back({IDOK, L"決定"});
  names.push_back({IDCANCEL, L"ｷｬﾝｾﾙ"});
  return names;
}

/// The page that the dialog with tabs opens with, above the dialog's own controls.
std::vector<NamedControl> NamesOfColourTabs() {
  return {{100, L"色の表し方"}, {120, L"R 153"}, {110, L"R"}, {121, L"G 102"}, {111, L"G"},
          {122, L"B 51"}, {112, L"B"}, {IDOK, L"OK"}, {IDCANCEL, L"ｷｬﾝｾﾙ"},
          {1000, L"色の選び方"}};
}

std::vector<NamedControl> ExpectedOf(const std::string& dialog) {
  if (dialog == "SelColor") {
    return NamesOfColourGrid();
  }
  if (dialog == "SelColorEx") {
    return NamesOfColourTabs();
  }
  const auto& expected = ExpectedNamesOfDialogs();
  const auto found = std::ranges::find(expected, dialog, &ExpectedNames::dialog);
  return found != expected.end() ? found->controls : std::vector<NamedControl>();
}

class AccessibleNames : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, AccessibleNames, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(AccessibleNames, OfEveryControl) {
  WorkDialog([] { return GetParam().run(nullptr); }, [](HWND dialog) {
    EXPECT_EQ(NamedControls(dialog), ExpectedOf(GetParam().name));
    Cancel(dialog);
  });
}

TEST_P(AccessibleNames, AreNoStopsOfTheTabulatorKey) {
  WorkDialog([] { return GetParam().run(nullptr); }, [](HWND dialog) {
    for (const HWND control : TabOrder(dialog)) {
      EXPECT_NE(::GetDlgCtrlID(control), kNameLabelId);
      EXPECT_FALSE(AccessibleName(control).empty()) << ::GetDlgCtrlID(control);
    }
    Cancel(dialog);
  });
}

/// The names on the page that a tab shows.
std::vector<NamedControl> NamesOfTab(HWND dialog, WPARAM tab) {
  ::SendMessageW(Control(dialog, 1000), TCM_SETCURFOCUS, tab, 0);
  return NamedControls(ShownPage(dialog));
}

TEST(AccessibleNamesOfColourTabs, OfTheListAndOfTheSelection) {
  ColourEnvironment environment;
  environment.Store({RGB(1, 2, 3), RGB(255, 0, 0)});
  COLORREF color = RGB(255, 0, 0);
  const auto ask = [&] { return __SelColorDlgEx(&environment.Env(), &color, nullptr); };
  WorkDialog(ask, [](HWND dialog) {
    EXPECT_EQ(NamesOfTab(dialog, 0),
              (std::vector<NamedControl>{{1011, L"編集(E)"},
                                         {1010, L"追加(A)"},
                                         {1012, L"削除(D)"},
                                         {2001, L"色の一覧 赤 255 緑 0 青 0"}}));
    EXPECT_EQ(NamesOfTab(dialog, 2), (std::vector<NamedControl>{{2109, L"色相 0 彩度 255"},
                                                                 {2010, L"明るさ 255"}}));
    Cancel(dialog);
  });
}

TEST(AccessibleNamesOfColourEdit, FollowTheModel) {
  constexpr int kModel = 100;
  constexpr int kCmyk = 1;
  COLORREF color = RGB(255, 0, 0);
  WorkDialog([&] { return __EditColorDlg(nullptr, &color, nullptr); }, [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    const HWND model = Control(page, kModel);
    ::SendMessageW(model, CB_SETCURSEL, kCmyk, 0);
    ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(kModel, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(model));
    EXPECT_EQ(NamedControls(page),
              (std::vector<NamedControl>{{100, L"色の表し方"},
                                         {120, L"C 0"},
                                         {110, L"C"},
                                         {121, L"M 255"},
                                         {111, L"M"},
                                         {122, L"Y 255"},
                                         {112, L"Y"},
                                         {123, L"K 0"},
                                         {113, L"K"}}));
    Cancel(dialog);
  });
}

TEST(AccessibleNamesOfTheTextDialog, TheTitleStandsInForAMissingComment) {
  CString text;
  WorkDialog([&] { return __InputTextDlg("題名", "", &text, nullptr); }, [](HWND dialog) {
    EXPECT_EQ(AccessibleName(Control(dialog, 10001)), L"題名");
    Cancel(dialog);
  });
}

TEST(AccessibleNamesOfLayoutEdit, OfTheFieldInACell) {
  LayoutEditor editor(3, 4, 60.0, 160.0);
  editor.Select({5});
  editor.Run([](HWND dialog) {
    for (int times = 0; times < 2; ++times) {
      Command(dialog, 31000);
      EXPECT_EQ(AccessibleName(Control(dialog, kCelTextEdit)), L"ｾﾙのﾃｷｽﾄ");
      const HWND label = ::GetWindow(Control(dialog, kCelTextEdit), GW_HWNDPREV);
      ::SendMessageW(dialog, WM_KEYDOWN, VK_RETURN, 0);
      EXPECT_EQ(::GetDlgItem(dialog, kCelTextEdit), nullptr);
      EXPECT_FALSE(::IsWindow(label));
    }
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
