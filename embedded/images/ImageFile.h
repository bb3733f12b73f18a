#pragma once

// Image files on disk, and as textures.

#include <string>

#include "embedded/images/Raster.h"

class sglTexture2D;

namespace embedded {

// Reads a PNG, JPEG, GIF, Targa or BMP file; what it is, its bytes say, not its name. False, and an empty raster, when
// it cannot be read, is none of these, or has more than kMaxPixels pixels. Either slash separates. Untrusted files are
// allowed.
[[nodiscard]] bool readImageFile(const std::string& path, Raster& raster);

// Writes a file of the kind that the extension names, in any case: png, jpg, jpeg. False when the image is empty, the
// kind is unknown, or the file could not be written whole.
[[nodiscard]] bool writeImageFile(const std::string& path, const Raster& raster);

// Reads an image file into a texture: what sglModelLoader::getImageReader() hands out when textures are wanted.
// `texture` may be null; then nothing is read.
[[nodiscard]] bool readTextureImage(const std::string& path, sglTexture2D* texture);

// Whether this process has read that file into a texture, under whatever name: for whoever is about to write there.
[[nodiscard]] bool wasReadAsTexture(const std::string& path);

}  // namespace embedded
