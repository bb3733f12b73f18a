#pragma once

// An image read from a file, with access to its pixels.

#include <VekFoundations/CString.h>
#include <VekFoundations/VekExport.h>
#include <VekSGdb/sglImageEnums.h>

#include <cstddef>
#include <cstdint>
#include <vector>

// Holds 8-bit pixels of three channels, whatever the file held. An image that was not read is empty: 0 by 0.
class VEK_API CVekImage {
 public:
  CVekImage() = default;

  // Reads the image file at `path` (either slash separates). False when it cannot be read, is of no known kind, or has
  // more than 64 million pixels; the image is empty then. `flip` turns the rows upside down. Untrusted files are
  // allowed.
  bool LoadImageA(const CString& path, bool flip);

  [[nodiscard]] unsigned GetWidth() const { return m_width; }
  [[nodiscard]] unsigned GetHeight() const { return m_height; }

  // The three bytes of a pixel, blue first; x from the left, y from the top. Null outside the image. The pointer holds
  // until the next LoadImageA.
  [[nodiscard]] const std::uint8_t* GetPixel(unsigned x, unsigned y) const {
    if (x >= m_width || y >= m_height) return nullptr;
    return m_pixels.data() + (std::size_t{y} * m_width + x) * 3;
  }

  // The image's format and type, always RGB in unsigned bytes.
  [[nodiscard]] sglImageFormatEnum GetFormat() const { return SGL_IMAGE_RGB; }
  [[nodiscard]] sglImageTypeEnum GetType() const { return SGL_IMAGE_UNSIGNED_BYTE; }

 private:
  unsigned m_width = 0;
  unsigned m_height = 0;
  std::vector<std::uint8_t> m_pixels;  // rows from the top, 3 bytes a pixel, blue first
};
