// The templates of the dialogs that the layout editors open, in tab order, and their pictures.
#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "driver/product_state.h"
#include "support/templates.h"

#include <array>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kTopLine = 4019;

bool HasStyle(HWND dialog, int id, LONG_PTR style) {
  return (::GetWindowLongPtrW(Control(dialog, id), GWL_STYLE) & style) == style;
}

TEST(Templates, RuledLines) {
  CLayoutExPageData page;
  CLayoutFrameEditDlg editor(nullptr, &page, CLayoutExPageData::LISTTYPE_LIST, nullptr);
  const auto run = [&] { return RunWithProductResources(editor); };
  WorkDialog(run, [](HWND dialog) {
    // The picture buttons' texts are what a screen reader gets.
    ExpectTemplate(dialog, L"罫線編集", {159, 182}, L"MS Shell Dlg",
                   {{kNoId, L"Static", L"ｽﾀｲﾙ(&S):", {0, 8, 8, 12}},
                    {4013, L"ListBox", L"", {0, 20, 8, 88}},
                    {1091, L"Static", L"色(&C):", {0, 114, 8, 8}},
                    {2003, L"Button", L"線の色 赤 0 緑 0 青 0", {0, 123, 6, 12}},
                    {kNoId, L"Static", L"ﾌﾟﾘｾｯﾄ:", {8, 8, 40, 12}},
                    {kNoId, L"Static", L"なし(&N)", {34, 48, 30, 12}},
                    {4015, L"Button", L"なし(&N)", {34, 22, 30, 24}},
                    {kNoId, L"Static", L"外枠(&O)", {72, 48, 30, 12}},
                    {4017, L"Button", L"外枠(&O)", {72, 22, 30, 24}},
                    {kNoId, L"Static", L"内側(&I)", {110, 48, 30, 12}},
                    {4018, L"Button", L"内側(&I)", {110, 22, 30, 24}},
                    {kNoId, L"Static", L"罫線", {8, 64, 40, 12}},
                    {kNoId, L"Button", L"", {30, 70, 100, 62}},
                    {2040, L"Static", L"罫線の見本", {36, 78, 88, 50}},
                    {4019, L"Button", L"上の罫線 オフ", {10, 76, 16, 14}},
                    {4020, L"Button", L"内側の横罫線 オフ", {10, 96, 16, 14}},
                    {4021, L"Button", L"下の罫線 オフ", {10, 116, 16, 14}},
                    {4025, L"Button", L"", {10, 136, 16, 14}},
                    {4022, L"Button", L"左の罫線 オフ", {32, 136, 16, 14}},
                    {4023, L"Button", L"内側の縦罫線 オフ", {72, 136, 16, 14}},
                    {4024, L"Button", L"右の罫線 オフ", {112, 136, 16, 14}},
                    {4026, L"Button", L"", {134, 136, 16, 14}},
                    {IDOK, L"Button", L"OK", {45, 160, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {102, 160, 50, 14}}});
    for (const int id : {4013, 1091, 2003, 4025, 4026}) {
      EXPECT_FALSE(IsShown(dialog, id)) << id;
    }
    for (const int id : {4015, 4017, 4018, 4019, 4020, 4021, 4022, 4023, 4024, 4025, 4026}) {
      EXPECT_TRUE(HasStyle(dialog, id, BS_BITMAP | BS_FLAT)) << id;
      EXPECT_FALSE(HasStyle(dialog, id, BS_OWNERDRAW)) << id;
    }
    EXPECT_TRUE(HasStyle(dialog, 2003, BS_OWNERDRAW | BS_FLAT));
    EXPECT_TRUE(HasStyle(dialog, 2040, SS_WHITERECT));
    EXPECT_TRUE(HasStyle(dialog, 4013, LBS_NOTIFY));
    Cancel(dialog);
  });
}

TEST(Templates, Field) {
  CStringArray names;
  names.Add("数量");
  CLayoutFieldEditDlg editor(&names, "", nullptr);
  const auto run = [&] { return RunWithProductResources(editor); };
  WorkDialog(run, [](HWND dialog) {
    ExpectTemplate(dialog, L"ﾌｨｰﾙﾄﾞ設定", {169, 135}, L"MS Shell Dlg",
                   {{kNoId, L"Static", L"ﾀｲﾌﾟ:", {8, 8, 30, 12}},
                    {4045, L"ComboBox", L"値", {40, 8, 80, 124}},
                    {kNoId, L"Static", L"ﾌｨｰﾙﾄﾞ:", {8, 24, 30, 12}},
                    {4046, L"ComboBox", L"数量", {40, 24, 120, 260}},
                    {4050, L"ComboBox", L"＝", {10, 40, 26, 177}},
                    {4047, L"Edit", L"", {40, 40, 120, 12}},
                    {kNoId, L"Static", L"：", {8, 56, 30, 12}},
                    {4049, L"ComboBox", L"数量", {40, 56, 120, 260}},
                    {4029, L"Button", L"桁指定", {10, 80, 50, 12}},
                    {4054, L"ComboBox", L"0", {60, 80, 60, 175}},
                    {4030, L"Button", L"3桁区切り", {10, 94, 50, 12}},
                    {IDOK, L"Button", L"OK", {54, 112, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {110, 112, 50, 14}}});
    for (const int id : {4045, 4046, 4049, 4050, 4054}) {
      EXPECT_TRUE(HasStyle(dialog, id, CBS_DROPDOWNLIST)) << id;
      EXPECT_FALSE(HasStyle(dialog, id, CBS_SORT)) << id;
    }
    EXPECT_TRUE(HasStyle(dialog, 4047, ES_AUTOHSCROLL));
    EXPECT_TRUE(HasStyle(dialog, 4029, BS_AUTOCHECKBOX));
    EXPECT_TRUE(HasStyle(dialog, 4030, BS_AUTOCHECKBOX));
    Cancel(dialog);
  });
}

TEST(Templates, CelSize) {
  float first = 10.0F;
  float second = 5.0F;
  CLayoutCelSizeEditDlg editor(&first, &second);
  const auto run = [&] { return RunWithProductResources(editor); };
  WorkDialog(run, [](HWND dialog) {
    ExpectTemplate(dialog, L"ｾﾙｻｲｽﾞ編集", {169, 68}, L"MS Shell Dlg",
                   {{kNoId, L"Button", L"長さ(&L)", {8, 6, 152, 34}},
                    {4055, L"Edit", L"10.0", {16, 20, 48, 12}},
                    {kNoId, L"Static", L"mm ：", {66, 20, 22, 12}},
                    {4056, L"Edit", L"5.0", {90, 20, 48, 12}},
                    {kNoId, L"Static", L"mm", {141, 20, 14, 12}},
                    {IDOK, L"Button", L"OK", {54, 47, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {110, 47, 50, 14}}});
    Cancel(dialog);
  });
}

/// A 4-bit picture of the library's resources.
class ResourcePicture {
public:
  explicit ResourcePicture(int id) {
    const HMODULE module = ::GetModuleHandleW(L"Quorvel.dll");
    const HRSRC resource =
        ::FindResourceW(module, MAKEINTRESOURCEW(id), reinterpret_cast<LPCWSTR>(RT_BITMAP));
    if (resource == nullptr) {
      throw std::runtime_error("no such picture");
    }
    m_info = static_cast<const BITMAPINFO*>(::LockResource(::LoadResource(module, resource)));
  }

  CSize Size() const { return {m_info->bmiHeader.biWidth, m_info->bmiHeader.biHeight}; }
  int Bits() const { return m_info->bmiHeader.biBitCount; }
  std::uint32_t Color(int entry) const {
    const RGBQUAD& quad = m_info->bmiColors[entry];
    return static_cast<std::uint32_t>(quad.rgbRed << 16 | quad.rgbGreen << 8 | quad.rgbBlue);
  }
  /// The palette's entry of a pixel; rows from the top.
  int At(int x, int y) const {
    const int stride = (Size().cx * 4 + 31) / 32 * 4;
    const auto* pixels = reinterpret_cast<const BYTE*>(m_info->bmiColors + 16);
    const BYTE pair = pixels[(Size().cy - 1 - y) * stride + x / 2];
    return x % 2 == 0 ? pair >> 4 : pair & 0xF;
  }
  int Count(int entry) const {
    int count = 0;
    for (int y = 0; y < Size().cy; ++y) {
      for (int x = 0; x < Size().cx; ++x) {
        count += At(x, y) == entry ? 1 : 0;
      }
    }
    return count;
  }

private:
  const BITMAPINFO* m_info = nullptr;
};

constexpr int kBlack = 0;
constexpr int kGrey = 8;
constexpr int kWhite = 15;

TEST(RuledLinePictures, HaveTheirSizesAndColours) {
  for (int id = 30010; id <= 30020; ++id) {
    const ResourcePicture picture(id);
    EXPECT_EQ(picture.Size(), id < 30018 ? CSize(16, 14) : CSize(30, 24)) << id;
    ASSERT_EQ(picture.Bits(), 4);
    EXPECT_EQ(picture.Color(kBlack), 0x000000U);
    EXPECT_EQ(picture.Color(kGrey), 0x808080U);
    EXPECT_EQ(picture.Color(kWhite), 0xFFFFFFU);
    EXPECT_EQ(picture.Count(kBlack) + picture.Count(kGrey) + picture.Count(kWhite),
              picture.Size().cx * picture.Size().cy) << id;
    EXPECT_GT(picture.Count(kGrey), 0) << id;
    EXPECT_EQ(picture.Count(kBlack) > 0, id != 30018) << id;
  }
}

TEST(RuledLinePictures, ShowTheirLineInBlack) {
  const std::array lines{std::array{0, 0, 1, 0}, std::array{0, 6, 1, 0}, std::array{0, 12, 1, 0},
                         std::array{0, 0, 0, 1}, std::array{6, 0, 0, 1}, std::array{12, 0, 0, 1},
                         std::array{0, 12, 1, -1}, std::array{0, 0, 1, 1}};
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const ResourcePicture picture(30010 + static_cast<int>(line));
    const auto& [x, y, dx, dy] = lines[line];
    constexpr int kLeft = 1;
    constexpr int kLength = 13;
    for (int i = 0; i < kLength; ++i) {
      EXPECT_EQ(picture.At(kLeft + x + i * dx, y + i * dy), kBlack) << line << ", " << i;
    }
    EXPECT_EQ(picture.Count(kBlack), kLength) << line;
  }
}

TEST(RuledLinePictures, AreOnTheirButtons) {
  CLayoutExPageData page;
  CLayoutFrameEditDlg editor(nullptr, &page, CLayoutExPageData::LISTTYPE_LIST, nullptr);
  const auto run = [&] { return RunWithProductResources(editor); };
  WorkDialog(run, [](HWND dialog) {
    const auto picture = [dialog](int id) {
      return reinterpret_cast<HBITMAP>(
          ::SendMessageW(Control(dialog, id), BM_GETIMAGE, IMAGE_BITMAP, 0));
    };
    const auto size = [](HBITMAP bitmap) {
      BITMAP description{};
      ::GetObjectW(bitmap, sizeof description, &description);
      return CSize(description.bmWidth, description.bmHeight);
    };
    for (const int id : {4015, 4017, 4018}) {
      EXPECT_EQ(size(picture(id)), CSize(30, 24)) << id;
    }
    for (int id = kTopLine; id <= 4024; ++id) {
      EXPECT_EQ(size(picture(id)), CSize(16, 14)) << id;
    }
    for (const int id : {4025, 4026}) {
      EXPECT_EQ(picture(id), nullptr) << id;
    }
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
