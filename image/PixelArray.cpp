// The size is computed in 64 bits and checked before anything is allocated.

#include "image/PixelArray.h"

namespace image {

PixelArray makePixels(std::uint32_t width, std::uint32_t height, unsigned bytesPerPixel) noexcept {
  const std::uint64_t pixelCount = std::uint64_t{width} * height;
  if (pixelCount == 0 || pixelCount > kMaxPixels) return nullptr;
  return PixelArray(static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(pixelCount), bytesPerPixel)));
}

}  // namespace image
