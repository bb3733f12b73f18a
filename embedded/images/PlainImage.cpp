// Targa and BMP through the one-file reader stb_image, of which only these two kinds are compiled.

#include <algorithm>
#include <climits>
#include <memory>

#include "embedded/images/ImageCodecs.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_TGA
#define STBI_ONLY_BMP
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_THREAD_LOCALS
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace embedded {
namespace {

struct Freer {
  void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

}  // namespace

bool readPlainImage(std::span<const std::uint8_t> file, Raster& raster) {
  if (file.size() > INT_MAX) return false;
  const int byteCount = static_cast<int>(file.size());
  int width = 0;
  int height = 0;
  int channels = 0;
  if (stbi_info_from_memory(file.data(), byteCount, &width, &height, &channels) == 0) return false;
  if (width < 1 || height < 1) return false;
  if (!isAllowedSize(static_cast<unsigned>(width), static_cast<unsigned>(height))) return false;
  const std::unique_ptr<stbi_uc, Freer> pixels(
      stbi_load_from_memory(file.data(), byteCount, &width, &height, &channels, 0));
  if (pixels == nullptr || channels < 1 || channels > 4) return false;
  if (!makeRaster(static_cast<unsigned>(width), static_cast<unsigned>(height), static_cast<unsigned>(channels),
                  raster)) {
    return false;
  }
  std::copy(pixels.get(), pixels.get() + raster.bytes.size(), raster.bytes.begin());
  return true;
}

}  // namespace embedded
