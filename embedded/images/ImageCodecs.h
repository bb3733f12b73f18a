#pragma once

// The image formats: each reads from, or writes to, bytes in memory. Readers take untrusted bytes and answer false, the
// raster then being unspecified, for anything that is no image of theirs or has more than kMaxPixels pixels.

#include <span>
#include <vector>

#include "embedded/images/Raster.h"

namespace embedded {

[[nodiscard]] bool readPng(std::span<const std::uint8_t> file, Raster& raster);
[[nodiscard]] bool readJpeg(std::span<const std::uint8_t> file, Raster& raster);

// The first image, on the whole screen that the file declares; what it leaves open is transparent.
[[nodiscard]] bool readGif(std::span<const std::uint8_t> file, Raster& raster);

// Targa and BMP.
[[nodiscard]] bool readPlainImage(std::span<const std::uint8_t> file, Raster& raster);

// Writers put the file's bytes into `file`; false when the image is empty or too large for the format. JPEG drops
// alpha.
[[nodiscard]] bool writePng(const Raster& raster, std::vector<std::uint8_t>& file);
[[nodiscard]] bool writeJpeg(const Raster& raster, std::vector<std::uint8_t>& file);

}  // namespace embedded
