// The pictures, cursors and texts of the layout editors as the product holds them.
#include "driver/platform.h"
#include "framework/device_context.h"
#include "framework/geometry.h"
#include "res/ids.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

HINSTANCE Product() { return ::GetModuleHandleW(L"Quorvel.dll"); }

struct IconParts {
  explicit IconParts(HCURSOR cursor) {
    EXPECT_TRUE(::GetIconInfo(cursor, &info));
    mask.reset(info.hbmMask);
    color.reset(info.hbmColor);
  }
  ICONINFO info{};
  OwnedBitmap mask;
  OwnedBitmap color;
};

CSize SizeOf(HBITMAP bitmap) {
  BITMAP description{};
  EXPECT_NE(::GetObjectW(bitmap, sizeof description, &description), 0);
  return {description.bmWidth, description.bmHeight};
}

OwnedBitmap Load(UINT id) {
  return OwnedBitmap(static_cast<HBITMAP>(
      ::LoadImageW(Product(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
}

/// The pixels of a bitmap, rows from the top.
std::vector<std::vector<COLORREF>> PixelsOf(HBITMAP bitmap) {
  const MemoryDC memory(nullptr);
  const SelectedObject selected(memory.Handle(), bitmap);
  const CSize size = SizeOf(bitmap);
  std::vector<std::vector<COLORREF>> rows;
  for (int y = 0; y < size.cy; ++y) {
    rows.emplace_back();
    for (int x = 0; x < size.cx; ++x) {
      rows.back().push_back(::GetPixel(memory.Handle(), x, y));
    }
  }
  return rows;
}

struct Strip {
  UINT id;
  CSize picture;
  int count;
};

TEST(EditorResources, ToolPicturesAreDistinctAndOnLightGrey) {
  constexpr COLORREF kClear = RGB(0xC0, 0xC0, 0xC0);
  for (const auto& [id, picture, count] : {Strip{IDB_CELL_TOOLS, {16, 15}, 11},
                                           Strip{IDB_FILE_TOOLS, {16, 16}, 2},
                                           Strip{IDB_DROP_ARROW, {7, 14}, 1}}) {
    const OwnedBitmap bitmap = Load(id);
    ASSERT_EQ(SizeOf(bitmap.get()), CSize(picture.cx * count, picture.cy)) << id;
    const auto rows = PixelsOf(bitmap.get());
    std::set<std::vector<COLORREF>> pictures;
    for (int i = 0; i < count; ++i) {
      std::vector<COLORREF> pixels;
      int drawn = 0;
      for (const auto& row : rows) {
        for (int x = i * picture.cx; x < (i + 1) * picture.cx; ++x) {
          pixels.push_back(row.at(static_cast<std::size_t>(x)));
          drawn += pixels.back() != kClear ? 1 : 0;
        }
      }
      EXPECT_GE(drawn, 16) << id << ", picture " << i;
      EXPECT_LT(drawn, static_cast<int>(pixels.size())) << id << ", picture " << i;
      pictures.insert(pixels);
    }
    EXPECT_EQ(pictures.size(), static_cast<std::size_t>(count)) << id;
  }
}

TEST(EditorResources, CursorsAreMonochromeWithTheirHotSpotInTheMiddle) {
  std::set<std::vector<std::vector<COLORREF>>> shapes;
  for (const UINT id :
       {IDC_CURSOR_SELECT_CELLS, IDC_CURSOR_DRAG_COLUMN, IDC_CURSOR_DRAG_ROW}) {
    const HCURSOR cursor = ::LoadCursorW(Product(), MAKEINTRESOURCEW(id));
    ASSERT_NE(cursor, nullptr) << id;
    const IconParts parts(cursor);
    EXPECT_EQ(parts.color, nullptr) << "monochrome";
    EXPECT_EQ(SizeOf(parts.mask.get()), CSize(32, 64)) << "the mask above the picture";
    EXPECT_FALSE(parts.info.fIcon);
    EXPECT_EQ(parts.info.xHotspot, 15U);
    EXPECT_EQ(parts.info.yHotspot, 15U);

    // On any background something of it stands out: it has black and white pixels, and clear ones.
    const auto rows = PixelsOf(parts.mask.get());
    int black = 0;
    int white = 0;
    int clear = 0;
    int inverting = 0;
    for (std::size_t y = 0; y < 32; ++y) {
      for (std::size_t x = 0; x < 32; ++x) {
        const bool masked = rows[y][x] != 0;
        const bool lit = rows[y + 32][x] != 0;
        ++(masked ? lit ? inverting : clear : lit ? white : black);
      }
    }
    EXPECT_GT(black, 30) << id;
    EXPECT_GT(white, 30) << id;
    EXPECT_GT(clear, 500) << id;
    EXPECT_EQ(inverting, 0) << id;
    shapes.insert(rows);
  }
  EXPECT_EQ(shapes.size(), 3U);
}

TEST(EditorResources, CommandsHaveTheirTexts) {
  constexpr std::array kTexts{L"ﾃｷｽﾄ編集",     L"ﾌｫﾝﾄ編集",     L"上寄せ",     L"縦中央",   L"下寄せ",
                              L"左寄せ",       L"横中央",       L"右寄せ",     L"罫線編集", L"ｾﾙを合成",
                              L"ｾﾙ合成を解除", L"ﾚｲｱｳﾄを開く", L"ﾚｲｱｳﾄを保存", L"列挿入",   L"列削除",
                              L"選択列均等",   L"行挿入",       L"行削除",     L"選択行均等"};
  UINT id = 31'000;
  for (const wchar_t* expected : kTexts) {
    std::array<wchar_t, 64> text{};
    ::LoadStringW(Product(), id, text.data(), static_cast<int>(text.size()));
    EXPECT_STREQ(text.data(), expected) << id;
    ++id;
  }
}

}  // namespace
}  // namespace quorvel::test
