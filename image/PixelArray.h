#pragma once

// Arrays of pixels, and how large an image may be. They come from the plain memory allocator: large arrays of zeros
// cost nothing there until they are written, so a small file that claims a large image takes no memory for it.

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace image {

/// The most pixels that an image may have, read or resampled.
inline constexpr std::uint64_t kMaxPixels = 64'000'000;

/// How an array of pixels is given back.
struct FreePixels {
  void operator()(std::uint8_t* pixels) const noexcept { std::free(pixels); }
};

/// A row-by-row array of pixels with its owner. Whoever takes it out with release() gives it back with std::free.
using PixelArray = std::unique_ptr<std::uint8_t[], FreePixels>;

/// A new array of width x height pixels, all bytes zero. `bytesPerPixel` is 3 or 4.
/// Null when a size is 0, when there would be more than kMaxPixels pixels, and without memory.
[[nodiscard]] PixelArray makePixels(std::uint32_t width, std::uint32_t height, unsigned bytesPerPixel) noexcept;

}  // namespace image
