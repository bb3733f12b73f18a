#pragma once

// Pictures of scenes, drawn off screen: no display is needed, and no graphics card.

#include <array>
#include <cstdint>
#include <string>

#include "embedded/images/Raster.h"
#include "embedded/pictures/DrawList.h"
#include "embedded/pictures/PictureCamera.h"

namespace embedded {

// The largest picture.
inline constexpr unsigned kMaxPictureSide = 8192;
inline constexpr std::uint64_t kMaxPicturePixels = 16'777'216;

struct PictureFormat {
  unsigned width = 1024;
  unsigned height = 768;
  unsigned sampleCount = 4;                            // a pixel; a renderer that has fewer takes what it has
  std::array<std::uint8_t, 3> background{70, 80, 96};  // red, green, blue

  [[nodiscard]] double aspect() const { return static_cast<double>(width) / height; }
};

// Draws a list from a camera into `raster`, which gets three channels: opaque drawables first, then those that are
// blended, the farthest first. A light stands above the eye at its left, a weaker one at its right. `bounds` is the
// list's box. Returns "" when all is well, otherwise why there is no picture. One call at a time.
[[nodiscard]] std::string drawPicture(const DrawList& list, const PictureBox& bounds, const PictureCamera& camera,
                                      const PictureFormat& format, Raster& raster);

}  // namespace embedded
