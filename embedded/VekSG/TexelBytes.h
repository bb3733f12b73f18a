#pragma once

// How much of memory a texel takes.

#include <VekSG/sglTexture2D.h>

namespace embedded {

/// The bytes of one texel, 0 for a format that is not known.
[[nodiscard]] constexpr unsigned texelBytes(sglTexture::FormatEnum format) {
  switch (format) {
    case sglTexture::FORMAT_LUMINANCE:
      return 1;
    case sglTexture::FORMAT_LUMINANCE_ALPHA:
      return 2;
    case sglTexture::FORMAT_RGB:
      return 3;
    case sglTexture::FORMAT_RGBA:
      return 4;
    case sglTexture::FORMAT_UNKNOWN:
      return 0;
  }
  return 0;
}

}  // namespace embedded
