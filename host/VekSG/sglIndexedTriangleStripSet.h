#pragma once

// Triangle strips with an index list for each list of values. Every other triangle of a strip has its last two corners
// swapped.

#include <VekSG/sglIndexedGeoStripSet.h>

class VEK_API sglIndexedTriangleStripSet : public sglIndexedGeoStripSet {
 public:
  sglIndexedTriangleStripSet();
  ~sglIndexedTriangleStripSet() override;

  [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_INDEXED_TRIANGLE_STRIP_SET; }
};
