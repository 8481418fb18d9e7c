#include "kivfcl/picture_scaling.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvel {

namespace {

constexpr int kAlphaShift = 24;
constexpr std::array kColorShifts{16, 8, 0};
constexpr std::uint32_t kByte = 0xFF;

double ByteOf(std::uint32_t pixel, int shift) { return (pixel >> shift) & kByte; }

std::uint32_t AsByte(double value, int shift) {
  return static_cast<std::uint32_t>(std::lround(value)) << shift;
}

/// A pixel of the old picture, and how much of the new pixel it covers.
struct Share {
  int place;
  double part;
};

/// What the new pixel at `place` covers, along one direction.
std::vector<Share> SharesOf(int place, int length, int newLength) {
  const double step = static_cast<double>(length) / newLength;
  const double first = place * step;
  const double last = std::min(first + step, static_cast<double>(length));
  std::vector<Share> shares;
  for (int i = static_cast<int>(first); i < length && i < last; ++i) {
    const double part = std::min(last, i + 1.0) - std::max(first, static_cast<double>(i));
    if (constexpr double kNothing = 1e-9; part > kNothing) {
      shares.push_back({i, part / step});
    }
  }
  return shares;
}

/// Of weights that are 1 together.
class Average {
public:
  void Add(std::uint32_t pixel, double part) {
    const double opacity = ByteOf(pixel, kAlphaShift) * part;
    m_opacity += opacity;
    for (std::size_t i = 0; i < kColorShifts.size(); ++i) {
      m_colors[i] += ByteOf(pixel, kColorShifts[i]) * opacity;
    }
  }
  std::uint32_t Pixel() const {
    std::uint32_t pixel = AsByte(m_opacity, kAlphaShift);
    for (std::size_t i = 0; m_opacity > 0 && i < kColorShifts.size(); ++i) {
      pixel |= AsByte(m_colors[i] / m_opacity, kColorShifts[i]);
    }
    return pixel;
  }

private:
  double m_opacity = 0;
  std::array<double, kColorShifts.size()> m_colors{};
};

}  // namespace

std::vector<std::uint32_t> ScalePicture(std::span<const std::uint32_t> pixels, const CSize& size,
                                        const CSize& newSize) {
  std::vector<std::uint32_t> result;
  result.reserve(static_cast<std::size_t>(newSize.cx) * static_cast<std::size_t>(newSize.cy));
  for (int y = 0; y < newSize.cy; ++y) {
    const std::vector<Share> lines = SharesOf(y, size.cy, newSize.cy);
    for (int x = 0; x < newSize.cx; ++x) {
      Average average;
      for (const Share& column : SharesOf(x, size.cx, newSize.cx)) {
        for (const Share& line : lines) {
          const auto at = static_cast<std::size_t>(line.place) * static_cast<std::size_t>(size.cx) +
                          static_cast<std::size_t>(column.place);
          average.Add(pixels[at], line.part * column.part);
        }
      }
      result.push_back(average.Pixel());
    }
  }
  return result;
}

}  // namespace quorvel
