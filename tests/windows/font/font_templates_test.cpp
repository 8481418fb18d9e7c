// The templates of the font dialogs, in tab order.
#include "font/font_work.h"
#include "support/templates.h"

namespace quorvel::test {
namespace {

CKivFontEx TableFont() {
  auto font = OddFont<CKivFontEx>("IPAゴシック");
  font.SetV(4.0);
  font.SetH(2.0);
  return font;
}

void ExpectHidden(HWND dialog, std::initializer_list<int> ids) {
  for (const int id : ids) {
    EXPECT_FALSE(IsShown(dialog, id)) << id;
  }
}

void ExpectStyle(HWND dialog) {
  const LONG_PTR style = ::GetWindowLongPtrW(dialog, GWL_STYLE);
  EXPECT_EQ(style & (WS_CAPTION | WS_SYSMENU | DS_MODALFRAME),
            LONG_PTR{WS_CAPTION | WS_SYSMENU | DS_MODALFRAME});
  EXPECT_EQ(::GetWindowLongPtrW(Control(dialog, kFace), GWL_STYLE) &
                (CBS_SIMPLE | CBS_OWNERDRAWFIXED | CBS_SORT | CBS_HASSTRINGS),
            LONG_PTR{CBS_SIMPLE | CBS_OWNERDRAWFIXED | CBS_SORT | CBS_HASSTRINGS});
}

// The colour buttons' texts are those that a screen reader speaks.
constexpr const wchar_t* kSpokenColour = L"文字の色 赤 192 緑 129 青 66";

TEST(Templates, Font) {
  CKivFontEx font = TableFont();
  const auto call = [&] {
    return __SelFontDlg(nullptr, &font, -1.0, nullptr, TRUE, FALSE, QUORVEL_FONT_ALL);
  };
  WorkDialog(call, [](HWND dialog) {
    ExpectTemplate(dialog, L"ﾌｫﾝﾄの指定", {279, 150}, L"MS Shell Dlg",
                   {{1088, L"Static", L"ﾌｫﾝﾄ名(&F):", {5, 5, 40, 8}},
                    {1136, L"ComboBox", GothicFace(), {5, 15, 85, 60}},
                    {1089, L"Static", L"ｽﾀｲﾙ(&Y):", {95, 5, 38, 8}},
                    {1137, L"ComboBox", ItalicStyle(), {95, 15, 50, 60}},
                    {1072, L"Button", L"文字飾り", {150, 5, 124, 66}},
                    {1040, L"Button", L"取り消し線(&K)", {160, 16, 58, 12}},
                    {4027, L"ComboBox", L"1本", {218, 16, 50, 90}},
                    {1041, L"Button", L"下線(&U)", {160, 28, 40, 12}},
                    {1091, L"Static", L"色(&C):", {160, 44, 30, 8}},
                    {2003, L"Button", kSpokenColour, {218, 42, 50, 12}},
                    {kNoId, L"Static", L"縦ｻｲｽﾞ(&V):", {6, 76, 40, 12}},
                    {2005, L"Edit", L"4", {46, 76, 40, 12}},
                    {kNoId, L"Static", L"mm", {90, 76, 14, 12}},
                    {kNoId, L"Static", L"横ｻｲｽﾞ(&H):", {122, 76, 40, 12}},
                    {2006, L"Edit", L"2", {162, 76, 40, 12}},
                    {kNoId, L"Static", L"mm", {206, 76, 14, 12}},
                    {1139, L"ComboBox", L"", {221, 86, 54, 100}},
                    {1138, L"ComboBox", L"13", {223, 75, 51, 34}},
                    {1093, L"Static", L"", {239, 81, 25, 10}},
                    {1026, L"Button", L"文字飾り(&A)", {221, 86, 50, 14}},
                    {1038, L"Button", L"ﾍﾙﾌﾟ(&H)", {223, 89, 50, 14}},
                    {2002, L"ComboBox", L"", {222, 81, 52, 25}},
                    {1073, L"Button", L"ｻﾝﾌﾟﾙ", {6, 94, 214, 50}},
                    {1092, L"Static", L"AaBbYyZz", {12, 104, 200, 34}},
                    {IDOK, L"Button", L"OK", {224, 110, 50, 14}},
                    {IDCANCEL, L"Button", L"ｷｬﾝｾﾙ", {224, 130, 50, 14}}});
    ExpectHidden(dialog, {1139, 1138, 1093, 1026, 1038, 2002, 1092});
    ExpectStyle(dialog);
    Cancel(dialog);
  });
}

TEST(Templates, FontEx) {
  CKivFontEx font = TableFont();
  const auto call = [&] {
    return __SelFontExDlg(nullptr, &font, -1.0, nullptr, FALSE, QUORVEL_FONT_ALL);
  };
  WorkDialog(call, [](HWND dialog) {
    ExpectTemplate(dialog, L"ﾌｫﾝﾄの指定", {279, 177}, L"MS Shell Dlg",
                   {{1088, L"Static", L"ﾌｫﾝﾄ名(&F):", {5, 5, 40, 8}},
                    {1136, L"ComboBox", GothicFace(), {5, 15, 85, 60}},
                    {1089, L"Static", L"ｽﾀｲﾙ(&Y):", {95, 5, 38, 8}},
                    {1137, L"ComboBox", ItalicStyle(), {95, 15, 50, 60}},
                    {1072, L"Button", L"文字飾り", {150, 5, 127, 66}},
                    {1040, L"Button", L"取り消し線(&K)", {160, 16, 58, 12}},
                    {4027, L"ComboBox", L"1本", {218, 16, 50, 90}},
                    {1041, L"Button", L"下線(&U)", {160, 28, 40, 12}},
                    {1091, L"Static", L"色(&C):", {160, 42, 22, 12}},
                    {2003, L"Button", kSpokenColour, {218, 42, 51, 12}},
                    {1094, L"Static", L"背景色(&B):", {160, 56, 37, 12}},
                    {2004, L"Button", L"背景の色 赤 255 緑 255 青 255", {218, 56, 51, 12}},
                    {kNoId, L"Button", L"ｻｲｽﾞ", {6, 74, 104, 42}},
                    {kNoId, L"Static", L"縦(&V):", {16, 84, 20, 12}},
                    {2005, L"Edit", L"4", {44, 84, 40, 12}},
                    {kNoId, L"Static", L"mm", {88, 84, 14, 12}},
                    {kNoId, L"Static", L"横(&H):", {16, 98, 20, 12}},
                    {2006, L"Edit", L"2", {44, 98, 40, 12}},
                    {kNoId, L"Static", L"mm", {88, 98, 14, 12}},
                    {kNoId, L"Button", L"配置", {118, 74, 102, 42}},
                    {kNoId, L"Static", L"縦(&A):", {128, 84, 20, 12}},
                    {2007, L"ComboBox", L"上寄せ", {156, 84, 54, 73}},
                    {kNoId, L"Static", L"横(&O):", {128, 98, 20, 12}},
                    {2008, L"ComboBox", L"左寄せ", {156, 98, 54, 73}},
                    {1139, L"ComboBox", L"", {221, 86, 54, 100}},
                    {1138, L"ComboBox", L"13", {223, 75, 51, 34}},
                    {1093, L"Static", L"", {239, 81, 25, 10}},
                    {1026, L"Button", L"文字飾り(&A)", {221, 86, 50, 14}},
                    {1038, L"Button", L"ﾍﾙﾌﾟ(&H)", {223, 89, 50, 14}},
                    {2002, L"ComboBox", L"", {222, 81, 52, 25}},
                    {1073, L"Button", L"ｻﾝﾌﾟﾙ", {6, 120, 214, 50}},
                    {1092, L"Static", L"AaBbYyZz", {12, 130, 200, 34}},
                    {IDOK, L"Button", L"OK", {223, 136, 50, 14}},
                    {IDCANCEL, L"Button", L"ｷｬﾝｾﾙ", {223, 156, 50, 14}}});
    ExpectHidden(dialog, {1139, 1138, 1093, 1026, 1038, 2002, 1092, 4027});
    ExpectStyle(dialog);
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
