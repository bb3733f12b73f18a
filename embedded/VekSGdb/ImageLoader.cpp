// Writing of image files.

#include <VekSGdb/sglImageLoader.h>

#include "embedded/images/ImageFile.h"

namespace {

// The bytes of one pixel, 0 for a format that is not known.
unsigned channelsOf(sglImageFormatEnum format) {
  switch (format) {
    case SGL_IMAGE_LUMINANCE:
      return 1;
    case SGL_IMAGE_LUMINANCE_ALPHA:
      return 2;
    case SGL_IMAGE_RGB:
      return 3;
    case SGL_IMAGE_RGBA:
      return 4;
  }
  return 0;
}

}  // namespace

bool sglImageLoader::writeImage(const std::string& path, const std::uint8_t* data, unsigned width, unsigned height,
                                sglImageFormatEnum format, sglImageTypeEnum type, unsigned) {
  const unsigned channels = channelsOf(format);
  if (data == nullptr || channels == 0 || type != SGL_IMAGE_UNSIGNED_BYTE) return false;
  if (!embedded::isAllowedSize(width, height)) return false;
  embedded::Raster raster;
  raster.width = width;
  raster.height = height;
  raster.channels = channels;
  raster.bytes.assign(data, data + std::size_t{width} * height * channels);
  return embedded::writeImageFile(path, raster);
}
