#pragma once

// Which format an image file has, by its first bytes.

#include <string>

namespace image {

/// The formats by their codes.
enum ImageFileType : int {
  kUnknownFile = 0,  // none of the others, or no file
  kGIFFile = 1,      // read by FileGIF89a
  kJPEGFile = 2,     // told apart, not read
  kTargaFile = 3,    // read by FileTarga; its files begin with nothing of their own and are never recognised
  kPNGFile = 4,      // told apart, not read
};

/// The format that the first four bytes of a file speak for. kUnknownFile when it cannot be opened or is shorter.
[[nodiscard]] ImageFileType getImageFileType(const std::string& path) noexcept;

}  // namespace image
