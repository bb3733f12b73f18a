#pragma once

// Writing of image files.

#include <VekFoundations/VekExport.h>
#include <VekSGdb/sglImageEnums.h>

#include <cstdint>
#include <string>

class VEK_API sglImageLoader {
 public:
  sglImageLoader() = delete;

  // Writes an image file of the kind that the path's extension names; ".jpg" is JPEG. `data` holds width * height
  // pixels, tightly packed, rows from the top, as format and type say; it may be null when a size is 0. `flags` is 0.
  // Either slash separates in `path`. False when nothing could be written: an empty image, an unknown kind, or a
  // failing disk.
  static bool writeImage(const std::string& path, const std::uint8_t* data, unsigned width, unsigned height,
                         sglImageFormatEnum format, sglImageTypeEnum type, unsigned flags);
};
