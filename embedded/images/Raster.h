#pragma once

// An image in memory.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace embedded {

// Images of more pixels are refused before anything is allocated for them.
inline constexpr std::uint64_t kMaxPixels = 64'000'000;

// 8-bit pixels, rows from the top, tightly packed. An empty image is 0 by 0.
struct Raster {
  unsigned width = 0;
  unsigned height = 0;
  unsigned channels = 0;  // 1 grey, 2 grey and alpha, 3 RGB, 4 RGBA
  std::vector<std::uint8_t> bytes;

  [[nodiscard]] bool hasAlpha() const { return channels == 2 || channels == 4; }
};

// Whether an image of that size may be made: neither empty nor of more than kMaxPixels.
[[nodiscard]] inline bool isAllowedSize(std::uint64_t width, std::uint64_t height) {
  return width > 0 && height > 0 && width <= kMaxPixels && height <= kMaxPixels / width;
}

// Makes room for an image, all bytes 0; false, and nothing changed, when the size is not allowed.
[[nodiscard]] inline bool makeRaster(std::uint64_t width, std::uint64_t height, unsigned channels, Raster& raster) {
  if (!isAllowedSize(width, height)) return false;
  raster.width = static_cast<unsigned>(width);
  raster.height = static_cast<unsigned>(height);
  raster.channels = channels;
  raster.bytes.assign(static_cast<std::size_t>(width * height * channels), 0);
  return true;
}

}  // namespace embedded
