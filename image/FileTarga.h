#pragma once

// Targa files of 24 bits a pixel, uncompressed. Nothing in their header but the size and the depth is acted upon: the
// pixels keep the file's order of bytes (blue, green, red) and of rows.

#include <cstdint>
#include <span>
#include <string>

#include "image/FileImage.h"

namespace image {

/// The header of a Targa file, in the file's order and with its little-endian numbers, 18 bytes in all.
struct TargaHeader {
  std::uint8_t idLength = 0;  // bytes between the header and the pixels
  std::uint8_t colorMapType = 0;
  std::uint8_t imageType = 2;
  std::uint16_t colorMapOrigin = 0;
  std::uint16_t colorMapLength = 0;
  std::uint8_t colorMapDepth = 0;
  std::uint16_t xOrigin = 0;
  std::uint16_t yOrigin = 0;
  std::uint16_t width = 0;
  std::uint16_t height = 0;
  std::uint8_t pixelDepth = 0;  // bits
  std::uint8_t imageDescriptor = 0;
};

class FileTarga final : public FileImage {
 public:
  /// Reads a file. The reader is empty, its header reset, when that is not there or too short for the pixels that it
  /// claims, has another depth than 24, no pixels, or more than kMaxPixels.
  explicit FileTarga(const std::string& path) noexcept;

  /// Reads the bytes of a file, which may be anything. They are not needed any more afterwards.
  explicit FileTarga(std::span<const std::uint8_t> bytes) noexcept;

  /// An image to be saved. `pixels` has room for width x height pixels of 3 bytes, blue, green and red each, and goes
  /// over to this object.
  FileTarga(std::uint16_t width, std::uint16_t height, PixelArray pixels) noexcept;

  /// Writes the header and the pixels, as they are, to a file; the ID field that stood between them is not kept.
  /// False when there is no image or the file could not be written whole.
  [[nodiscard]] bool save(const std::string& path) const noexcept;

  [[nodiscard]] const TargaHeader& getHeader() const noexcept { return m_header; }

  [[nodiscard]] ImageFileType getFileType() const noexcept override { return kTargaFile; }
  [[nodiscard]] int getWidth() const noexcept override { return m_header.width; }
  [[nodiscard]] int getHeight() const noexcept override { return m_header.height; }
  using FileImage::getImage;
  [[nodiscard]] const std::uint8_t* getImage() const noexcept override { return m_pixels.get(); }

 private:
  void read(std::span<const std::uint8_t> bytes) noexcept;

  TargaHeader m_header;
  PixelArray m_pixels;
};

}  // namespace image
