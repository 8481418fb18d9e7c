#include "kivfcl/kiv_image_data.h"

#include "framework/device_context.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace quorvel::test {
namespace {

/// A canvas of 16 x 16 pixels in memory, at first green.
class Canvas {
public:
  static constexpr int kSide = 16;
  static constexpr COLORREF kGreen = RGB(0, 255, 0);

  Canvas()
      : m_memory(nullptr), m_bitmap(MakeBitmap()), m_selected(m_memory.Handle(), m_bitmap.get()) {
    FillSolid(Handle(), CRect(0, 0, kSide, kSide), kGreen);
  }

  HDC Handle() const { return m_memory.Handle(); }
  COLORREF At(int x, int y) const { return ::GetPixel(Handle(), x, y); }

private:
  static OwnedBitmap MakeBitmap() {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kSide;
    info.bmiHeader.biHeight = -kSide;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return OwnedBitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
  }

  MemoryDC m_memory;
  OwnedBitmap m_bitmap;
  SelectedObject m_selected;
};

void SetPixel(CKivImageData& picture, int bits, int x, int y, COLORREF color) {
  BYTE* pixel = picture.GetLineImage(y) + static_cast<std::ptrdiff_t>(x) * (bits / 8);
  pixel[0] = GetBValue(color);
  pixel[1] = GetGValue(color);
  pixel[2] = GetRValue(color);
}

/// The colour that a sample picture has at a pixel: different at each.
COLORREF SampleColor(int x, int y) {
  return RGB(static_cast<BYTE>(x * 20), static_cast<BYTE>(y * 30), static_cast<BYTE>(200 - x));
}

CKivImageData Sample(int width, int height, int bits) {
  CKivImageData picture;
  EXPECT_TRUE(picture.MakeImageData(width, height, bits, 0));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      SetPixel(picture, bits, x, y, SampleColor(x, y));
    }
  }
  return picture;
}

class ImageDataOfBits : public ::testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(ImageData, ImageDataOfBits, ::testing::Values(24, 32));

TEST_P(ImageDataOfBits, LinesAreFilledAndPaddedToFourBytes) {
  for (int width = 1; width <= 5; ++width) {
    CKivImageData picture;
    ASSERT_TRUE(picture.MakeImageData(width, 3, GetParam(), 171));
    EXPECT_EQ(picture.GetWidth(), width);
    EXPECT_EQ(picture.GetHeight(), 3);
    const auto bytes = static_cast<std::ptrdiff_t>(width) * (GetParam() / 8);
    const std::ptrdiff_t lineSize = (bytes + 3) / 4 * 4;
    EXPECT_EQ(picture.GetLineImage(1) - picture.GetLineImage(0), lineSize);
    EXPECT_EQ(picture.GetLineImage(2) - picture.GetLineImage(1), lineSize);
    for (std::ptrdiff_t i = 0; i < 3 * lineSize; ++i) {
      ASSERT_EQ(picture.GetLineImage(0)[i], 171);
    }
    EXPECT_EQ(picture.GetLineImage(-1), nullptr);
    EXPECT_EQ(picture.GetLineImage(3), nullptr);
  }
}

TEST_P(ImageDataOfBits, AFillThatIsNoByteIsNone) {
  CKivImageData picture;
  for (const int fill : {-1, 256, 100'000}) {
    ASSERT_TRUE(picture.MakeImageData(2, 2, GetParam(), fill));
    EXPECT_EQ(picture.GetLineImage(0)[0], 0);
  }
  ASSERT_TRUE(picture.MakeImageData(2, 2, GetParam(), 255));
  EXPECT_EQ(picture.GetLineImage(0)[0], 255);
}

TEST_P(ImageDataOfBits, IsDrawnUprightPixelByPixel) {
  const CKivImageData picture = Sample(5, 7, GetParam());
  const Canvas canvas;
  ASSERT_TRUE(picture.StretchDIBit(canvas.Handle(), 3, 2, 5, 7, 0, 0, 5, 7, SRCCOPY));
  for (int y = 0; y < Canvas::kSide; ++y) {
    for (int x = 0; x < Canvas::kSide; ++x) {
      const bool isInside = 3 <= x && x < 8 && 2 <= y && y < 9;
      ASSERT_EQ(canvas.At(x, y), isInside ? SampleColor(x - 3, y - 2) : Canvas::kGreen)
          << x << ", " << y;
    }
  }
}

TEST_P(ImageDataOfBits, APartIsCountedFromTheTop) {
  const CKivImageData picture = Sample(5, 7, GetParam());
  const Canvas canvas;
  ASSERT_TRUE(picture.StretchDIBit(canvas.Handle(), 0, 0, 2, 3, 1, 1, 2, 3, SRCCOPY));
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 2; ++x) {
      ASSERT_EQ(canvas.At(x, y), SampleColor(x + 1, y + 1)) << x << ", " << y;
    }
  }
  EXPECT_EQ(canvas.At(2, 0), Canvas::kGreen);
  EXPECT_EQ(canvas.At(0, 3), Canvas::kGreen);
}

TEST_P(ImageDataOfBits, StretchedEachPixelBecomesABlock) {
  const CKivImageData picture = Sample(4, 2, GetParam());
  const Canvas canvas;
  ASSERT_TRUE(picture.StretchDIBit(canvas.Handle(), 0, 0, 16, 16, 0, 0, 4, 2, SRCCOPY));
  for (int y = 0; y < Canvas::kSide; ++y) {
    for (int x = 0; x < Canvas::kSide; ++x) {
      ASSERT_EQ(canvas.At(x, y), SampleColor(x / 4, y / 8)) << x << ", " << y;
    }
  }
}

TEST_P(ImageDataOfBits, MadeSmallerItKeepsColoursThatItHas) {
  CKivImageData picture;
  ASSERT_TRUE(picture.MakeImageData(16, 16, GetParam(), 0));
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      SetPixel(picture, GetParam(), x, y, (x + y) % 2 == 0 ? RGB(255, 0, 0) : RGB(0, 0, 255));
    }
  }
  const Canvas canvas;
  ASSERT_TRUE(picture.StretchDIBit(canvas.Handle(), 0, 0, 4, 4, 0, 0, 16, 16, SRCCOPY));
  for (int i = 0; i < 16; ++i) {
    const COLORREF color = canvas.At(i % 4, i / 4);
    EXPECT_TRUE(color == RGB(255, 0, 0) || color == RGB(0, 0, 255)) << std::hex << color;
  }
  EXPECT_EQ(::GetStretchBltMode(canvas.Handle()), BLACKONWHITE) << "the device context's own";
}

TEST(ImageData, IsDrawnWithTheOperation) {
  CKivImageData picture;
  ASSERT_TRUE(picture.MakeImageData(2, 2, 24, 255));
  const Canvas canvas;
  ASSERT_TRUE(picture.StretchDIBit(canvas.Handle(), 0, 0, 2, 2, 0, 0, 2, 2, SRCINVERT));
  EXPECT_EQ(canvas.At(0, 0), RGB(255, 0, 255));
}

TEST(ImageData, RefusesWhatIsNoPicture) {
  struct Row {
    int width, height, bits;
  };
  for (const Row& row :
       {Row{0, 1, 24}, Row{1, 0, 24}, Row{-1, 5, 24}, Row{5, -1, 24}, Row{32'768, 1, 24},
        Row{1, 32'768, 24}, Row{2, 2, 0}, Row{2, 2, 8}, Row{2, 2, 16}, Row{2, 2, -24}}) {
    CKivImageData picture = Sample(2, 2, 24);
    EXPECT_FALSE(picture.MakeImageData(row.width, row.height, row.bits, 0));
    EXPECT_EQ(picture.GetWidth(), 0) << "the picture before is gone";
    EXPECT_EQ(picture.GetHeight(), 0);
    EXPECT_EQ(picture.GetLineImage(0), nullptr);
    const Canvas canvas;
    EXPECT_FALSE(picture.StretchDIBit(canvas.Handle(), 0, 0, 2, 2, 0, 0, 2, 2, SRCCOPY));
    EXPECT_EQ(canvas.At(0, 0), Canvas::kGreen);
  }
  CKivImageData longest;
  EXPECT_TRUE(longest.MakeImageData(32'767, 1, 24, 0));
  EXPECT_TRUE(longest.MakeImageData(1, 32'767, 32, 0));
}

TEST(ImageData, RefusesAPartThatIsNotInside) {
  const CKivImageData picture = Sample(4, 3, 24);
  const Canvas canvas;
  for (const CRect& part :
       {CRect(-1, 0, 2, 2), CRect(0, -1, 2, 2), CRect(0, 0, 5, 3), CRect(0, 0, 4, 4),
        CRect(4, 0, 5, 1), CRect(0, 3, 1, 4), CRect(1, 1, 1, 2), CRect(1, 2, 2, 1)}) {
    EXPECT_FALSE(picture.StretchDIBit(canvas.Handle(), 0, 0, 2, 2, part.left, part.top,
                                      part.Width(), part.Height(), SRCCOPY));
  }
  EXPECT_EQ(canvas.At(0, 0), Canvas::kGreen);
}

TEST(ImageData, RefusesAnInvalidDeviceContext) {
  const CKivImageData picture = Sample(2, 2, 24);
  EXPECT_FALSE(picture.StretchDIBit(nullptr, 0, 0, 2, 2, 0, 0, 2, 2, SRCCOPY));
}

}  // namespace
}  // namespace quorvel::test
