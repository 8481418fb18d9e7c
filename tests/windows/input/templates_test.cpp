// The templates as tables: every control with its identifier, text and place in dialog units.
#include "support/templates.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <array>

namespace quorvel::test {
namespace {

TEST(Templates, Text) {
  CString text("値");
  WorkDialog([&] { return __InputTextDlg("題", "説明", &text, nullptr); }, [](HWND dialog) {
    ExpectTemplate(dialog, L"題", {156, 65}, L"MS Shell Dlg",
                   {{IDOK, L"Button", L"OK", {24, 44, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {84, 44, 50, 14}},
                    {10000, L"Static", L"説明", {8, 8, 140, 12}},
                    {10001, L"Edit", L"値", {8, 24, 140, 12}}});
    Cancel(dialog);
  });
}

TEST(Templates, Scale) {
  double scale = 500.0;
  WorkDialog([&] { return __InputScaleDlg("題", "説明", &scale, nullptr); }, [](HWND dialog) {
    ExpectTemplate(dialog, L"題", {156, 65}, L"MS Shell Dlg",
                   {{IDOK, L"Button", L"OK", {24, 44, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {84, 44, 50, 14}},
                    {10001, L"Edit", L"500", {63, 24, 85, 12}},
                    {kNoId, L"Static", L"縮尺", {7, 24, 17, 12}},
                    {kNoId, L"Static", L"1 /", {48, 24, 12, 12}},
                    {10000, L"Static", L"説明", {8, 8, 140, 12}}});
    Cancel(dialog);
  });
}

TEST(Templates, Dpi) {
  int dpi = 300;
  WorkDialog([&] { return __InputDpiDlg(&dpi, nullptr); }, [](HWND dialog) {
    ExpectTemplate(dialog, L"解像度入力", {99, 47}, L"ＭＳ Ｐゴシック",
                   {{4012, L"Static", L"画像解像度:", {7, 9, 37, 8}},
                    {1939, L"Edit", L"300", {48, 7, 22, 12}},
                    {kNoId, L"Static", L"DPI", {73, 9, 14, 8}},
                    {IDOK, L"Button", L"実行(&E)", {55, 26, 37, 14}}});
    const LONG_PTR style = ::GetWindowLongPtrW(dialog, GWL_STYLE);
    EXPECT_EQ(style & WS_SYSMENU, 0);
    EXPECT_EQ(style & WS_CAPTION, WS_CAPTION);
    EXPECT_EQ(style & DS_MODALFRAME, DS_MODALFRAME);
    Cancel(dialog);
  });
}

TEST(Templates, PointWithThreeCoordinates) {
  std::array point{1.0, 2.0, 3.0};
  WorkDialog([&] { return __InputPointXYZDlg(point.data(), TRUE, nullptr); }, [](HWND dialog) {
    ExpectTemplate(dialog, L"座標入力", {187, 89}, L"MS Shell Dlg",
                   {{IDOK, L"Button", L"OK", {74, 66, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {128, 66, 50, 14}},
                    {kNoId, L"Static", L"X座標(&X)", {20, 13, 30, 8}},
                    {4056, L"Edit", L"2.000", {60, 10, 60, 14}},
                    {kNoId, L"Static", L"Y座標(&Y)", {20, 31, 30, 8}},
                    {4057, L"Edit", L"1.000", {60, 28, 60, 14}},
                    {4058, L"Static", L"Z座標(&Z)", {20, 49, 30, 8}},
                    {4059, L"Edit", L"3.000", {60, 46, 60, 14}},
                    {4060, L"Button", L"ﾏｳｽ指定", {20, 66, 50, 14}}});
    Cancel(dialog);
  });
}

TEST(Templates, UserPaper) {
  CString name;
  int width = 420;
  int height = 297;
  int clearAll = 0;
  const auto call = [&] {
    return __UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr);
  };
  WorkDialog(call, [](HWND dialog) {
    ExpectTemplate(dialog, L"ﾕｰｻﾞｰ用紙設定", {194, 91}, L"ＭＳ Ｐゴシック",
                   {{kNoId, L"Static", L"用紙名:", {25, 9, 29, 8}},
                    {13367, L"Edit", L"", {58, 7, 60, 12}},
                    {13521, L"Static", L"(420x297)", {122, 10, 39, 8}},
                    {kNoId, L"Static", L"横:", {39, 25, 13, 8}},
                    {13368, L"Edit", L"420", {58, 23, 34, 12}},
                    {kNoId, L"Static", L"mm", {95, 26, 14, 9}},
                    {kNoId, L"Static", L"縦:", {39, 41, 13, 8}},
                    {13369, L"Edit", L"297", {58, 39, 34, 12}},
                    {kNoId, L"Static", L"mm", {95, 43, 14, 9}},
                    {IDOK, L"Button", L"OK", {8, 66, 43, 14}},
                    {IDCANCEL, L"Button", L"ｷｬﾝｾﾙ", {55, 66, 43, 14}},
                    {13322, L"Button", L"ﾕｰｻﾞｰ用紙の全消去", {105, 67, 77, 11}},
                    {kNoId, L"Button", L"", {102, 57, 84, 26}}});
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
