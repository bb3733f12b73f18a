#pragma once

// The base of the image file readers: what an image file holds, and copies of it in other sizes and with an alpha
// channel. A reader reads its file when it is made, and says nothing of what went wrong: it is then empty.

#include <cstdint>
#include <span>

#include "image/ImageFileType.h"
#include "image/PixelArray.h"

namespace image {

/// An image of 8-bit RGB pixels. Not copied: hand a reference on, or make another reader.
class FileImage {
 public:
  // The order of these operations stays.

  virtual ~FileImage() = default;
  FileImage(const FileImage&) = delete;
  FileImage& operator=(const FileImage&) = delete;

  /// The code of the format that this reader reads.
  [[nodiscard]] virtual ImageFileType getFileType() const noexcept = 0;
  /// Pixels in a row, and rows; 0 in an empty reader.
  [[nodiscard]] virtual int getWidth() const noexcept = 0;
  [[nodiscard]] virtual int getHeight() const noexcept = 0;
  /// The pixels, 3 bytes each, row by row; null when nothing was read. The reader owns them.
  [[nodiscard]] virtual const std::uint8_t* getImage() const noexcept = 0;
  /// Whether one colour of the image stands for transparency.
  [[nodiscard]] virtual bool hasTransparencyColor() const noexcept { return false; }
  /// Writes that colour; leaves `rgb` as it is when there is none.
  virtual void getTransparencyColor(std::span<std::uint8_t, 3> rgb) const noexcept;

  /// Whether there is an image: at least one pixel wide and high.
  [[nodiscard]] bool isOk() const noexcept { return getWidth() >= 1 && getHeight() >= 1 && getImage() != nullptr; }

  /// A new copy in another size, 3 bytes a pixel; each pixel is that of the image which lies above or left of its
  /// place. Null in an empty reader, for a size below 1, for more than kMaxPixels pixels, and without memory.
  [[nodiscard]] PixelArray getImage(int width, int height) const noexcept;

  /// The same with 4 bytes a pixel, the last of them 0 for pixels of the transparent colour and 255 for all others. The
  /// colour decides, not where it came from: an opaque pixel of the same colour is transparent too.
  [[nodiscard]] PixelArray getRGBAImage(int width, int height) const noexcept;
  /// In the size of the image itself.
  [[nodiscard]] PixelArray getRGBAImage() const noexcept { return getRGBAImage(getWidth(), getHeight()); }

 protected:
  FileImage() = default;
};

}  // namespace image
