#pragma once

// One corner of a polygon, as four places in the lists of its shape.

#include <cstdint>

struct sglVertStructVNTC {
  std::uint32_t vertex;    // place in the coordinate list: the corner's identity
  std::uint32_t normal;    // place in the normal list, 0 without one
  std::uint32_t texCoord;  // place in the texture coordinate list, 0 without one
  std::uint32_t color;     // place in the colour list, 0 without one

  friend bool operator==(const sglVertStructVNTC&, const sglVertStructVNTC&) = default;
};
