// PNG through libpng's simplified interface, which brings every kind of file to 8 bits a channel.

#include <png.h>

#include "embedded/images/ImageCodecs.h"

namespace embedded {
namespace {

constexpr png_uint_32 kFormats[] = {0, PNG_FORMAT_GRAY, PNG_FORMAT_GA, PNG_FORMAT_RGB, PNG_FORMAT_RGBA};

unsigned channelsOf(png_uint_32 format) {
  const unsigned colors = (format & PNG_FORMAT_FLAG_COLOR) != 0 ? 3 : 1;
  return colors + ((format & PNG_FORMAT_FLAG_ALPHA) != 0 ? 1 : 0);
}

// Releases what libpng holds for an image, however reading ends.
struct Image : png_image {
  Image() : png_image{} { version = PNG_IMAGE_VERSION; }
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;
  ~Image() { png_image_free(this); }
};

}  // namespace

bool readPng(std::span<const std::uint8_t> file, Raster& raster) {
  Image image;
  if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) return false;
  const unsigned channels = channelsOf(image.format);
  if (!makeRaster(image.width, image.height, channels, raster)) return false;
  image.format = kFormats[channels];
  return png_image_finish_read(&image, nullptr, raster.bytes.data(), 0, nullptr) != 0;
}

bool writePng(const Raster& raster, std::vector<std::uint8_t>& file) {
  if (!isAllowedSize(raster.width, raster.height) || raster.channels < 1 || raster.channels > 4) return false;
  Image image;
  image.width = raster.width;
  image.height = raster.height;
  image.format = kFormats[raster.channels];
  png_alloc_size_t bytes = PNG_IMAGE_PNG_SIZE_MAX(image);
  file.resize(bytes);
  if (png_image_write_to_memory(&image, file.data(), &bytes, 0, raster.bytes.data(), 0, nullptr) == 0) return false;
  file.resize(bytes);
  return true;
}

}  // namespace embedded
