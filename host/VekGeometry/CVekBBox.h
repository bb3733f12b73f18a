#pragma once

// The document model's axis-aligned box.

#include <VekFoundations/VekExport.h>
#include <VekSG/sglBoxBound.h>

class VEK_API CVekBBox : public sglBoxBound {
 public:
  // The distance between the two far corners; 0 for an empty box.
  [[nodiscard]] float GetDiagonal() const;
};
