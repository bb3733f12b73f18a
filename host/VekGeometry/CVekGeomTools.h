#pragma once

// Helpers of computational geometry.

#include <VekFoundations/VekExport.h>

#include <cstdint>

class VEK_API CVekGeomTools {
 public:
  // A vertex on its way through welding: 24 bytes.
  struct WeldRecord {
    float x;
    float y;
    float z;
    std::uint32_t index;  // the vertex's number
    double distance;      // to the reference point
  };

  CVekGeomTools() = delete;

  // Compares two WeldRecords for `qsort`, ascending by distance: negative, 0 or positive. Equal distances go by number.
  [[nodiscard]] static int compare(const void* first, const void* second);
};
