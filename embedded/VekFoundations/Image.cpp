// An image of the document model: whatever the file holds becomes three channels, blue first; alpha is dropped.

#include <VekFoundations/CVekImage.h>

#include "embedded/FileErrors.h"
#include "embedded/Paths.h"
#include "embedded/images/ImageFile.h"

bool CVekImage::LoadImageA(const CString& path, bool flip) {
  m_width = 0;
  m_height = 0;
  m_pixels.clear();
  embedded::Raster raster;
  if (!embedded::readImageFile(path, raster)) {
    embedded::reportFileError(embedded::nativePath(path), false, "holds no image that can be read");
    return false;
  }
  m_width = raster.width;
  m_height = raster.height;
  m_pixels.resize(std::size_t{m_width} * m_height * 3);
  const bool isGrey = raster.channels < 3;
  std::uint8_t* to = m_pixels.data();
  for (std::size_t y = 0; y < m_height; ++y) {
    const std::size_t row = flip ? m_height - 1 - y : y;
    const std::uint8_t* from = raster.bytes.data() + row * m_width * raster.channels;
    for (unsigned x = 0; x < m_width; ++x, from += raster.channels, to += 3) {
      to[0] = from[isGrey ? 0 : 2];
      to[1] = from[isGrey ? 0 : 1];
      to[2] = from[0];
    }
  }
  return true;
}
