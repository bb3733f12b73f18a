#pragma once

// The bytes of a PixelTexture.

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace importer {

/// An image as the file gives it. No number is zero, and there is exactly one integer a pixel.
struct PixelImage {
  std::uint32_t width;
  std::uint32_t height;
  std::uint32_t components;              // bytes a pixel, any number
  std::span<const std::int32_t> pixels;  // point into the parsed node

  /// Reads the integers of a field: width, height, components, then the pixels. Nothing when they are not as above.
  [[nodiscard]] static std::optional<PixelImage> read(std::span<const std::int32_t> integers);
};

/// The bytes of an image of 1 to 4 components, from the last pixel back to the first. A fourth component arrives as
/// transparency and leaves as opacity.
[[nodiscard]] std::vector<std::uint8_t> packPixels(const PixelImage& image);

}  // namespace importer
