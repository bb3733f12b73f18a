// An integer holds its components from the high byte down, the last one in the low byte.

#include "import/PixelBytes.h"

#include <cassert>
#include <cstddef>

namespace importer {

std::optional<PixelImage> PixelImage::read(std::span<const std::int32_t> integers) {
  constexpr std::size_t kHeader = 3;
  if (integers.size() < kHeader || integers[0] < 1 || integers[1] < 1 || integers[2] < 1) return std::nullopt;
  const auto width = static_cast<std::uint32_t>(integers[0]);
  const auto height = static_cast<std::uint32_t>(integers[1]);
  const std::span<const std::int32_t> pixels = integers.subspan(kHeader);
  if (pixels.size() != std::uint64_t{width} * height) return std::nullopt;
  return PixelImage{width, height, static_cast<std::uint32_t>(integers[2]), pixels};
}

std::vector<std::uint8_t> packPixels(const PixelImage& image) {
  assert(image.components >= 1 && image.components <= 4);
  constexpr std::uint32_t kTransparency = 0xFF000000;
  const std::uint32_t inverted = image.components == 4 ? kTransparency : 0;
  std::vector<std::uint8_t> bytes;
  bytes.reserve(image.pixels.size() * image.components);
  for (auto pixel = image.pixels.rbegin(); pixel != image.pixels.rend(); ++pixel) {
    const std::uint32_t value = static_cast<std::uint32_t>(*pixel) ^ inverted;  // 255 - t turns every bit of t over
    for (std::uint32_t rest = image.components; rest-- > 0;)
      bytes.push_back(static_cast<std::uint8_t>(value >> (8 * rest)));
  }
  return bytes;
}

}  // namespace importer
