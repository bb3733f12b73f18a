// Resampling takes the nearest pixel towards the first row and column. A row that comes from the same row of the image
// as the one before it is copied whole.

#include "image/FileImage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace image {

namespace {

constexpr std::size_t kRGBBytes = 3;
constexpr std::size_t kRGBABytes = 4;

// Where a row or column of the copy lies in the image. In copies of many millions of rows or columns the product rounds
// up to the row or column that is one too far.
std::size_t sourceIndex(int index, float scale, int sourceCount) noexcept {
  const int source = static_cast<int>(static_cast<float>(index) * scale);
  return static_cast<std::size_t>(std::min(source, sourceCount - 1));
}

// A copy of the image of pixelBytes a pixel; putPixel makes each of them from three bytes.
template <typename PutPixel>
PixelArray sample(const FileImage& image, int width, int height, std::size_t pixelBytes, PutPixel putPixel) noexcept {
  if (!image.isOk() || width < 1 || height < 1) return nullptr;
  PixelArray pixels = makePixels(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                                 static_cast<unsigned>(pixelBytes));
  if (!pixels) return nullptr;

  const std::uint8_t* const source = image.getImage();
  const int sourceWidth = image.getWidth();
  const int sourceHeight = image.getHeight();
  const float xScale = static_cast<float>(sourceWidth) / static_cast<float>(width);
  const float yScale = static_cast<float>(sourceHeight) / static_cast<float>(height);
  const std::size_t rowBytes = static_cast<std::size_t>(width) * pixelBytes;
  const std::uint8_t* before = nullptr;  // the row of the image that the last row of the copy came from
  std::uint8_t* out = pixels.get();
  for (int y = 0; y < height; ++y) {
    const std::uint8_t* const row =
        source + sourceIndex(y, yScale, sourceHeight) * static_cast<std::size_t>(sourceWidth) * kRGBBytes;
    if (row == before) {
      std::memcpy(out, out - rowBytes, rowBytes);
      out += rowBytes;
      continue;
    }
    before = row;
    for (int x = 0; x < width; ++x, out += pixelBytes)
      putPixel(row + sourceIndex(x, xScale, sourceWidth) * kRGBBytes, out);
  }
  return pixels;
}

}  // namespace

void FileImage::getTransparencyColor(std::span<std::uint8_t, 3> /*rgb*/) const noexcept {}

PixelArray FileImage::getImage(int width, int height) const noexcept {
  return sample(*this, width, height, kRGBBytes,
                [](const std::uint8_t* rgb, std::uint8_t* out) { std::memcpy(out, rgb, kRGBBytes); });
}

PixelArray FileImage::getRGBAImage(int width, int height) const noexcept {
  std::array<std::uint8_t, kRGBBytes> color{};
  const bool hasColor = hasTransparencyColor();
  if (hasColor) getTransparencyColor(color);
  return sample(*this, width, height, kRGBABytes, [&](const std::uint8_t* rgb, std::uint8_t* out) {
    std::memcpy(out, rgb, kRGBBytes);
    out[kRGBBytes] = hasColor && std::memcmp(rgb, color.data(), kRGBBytes) == 0 ? 0 : 255;
  });
}

}  // namespace image
