#pragma once

// Triangles of three indices each.

#include <VekSG/sglIndexedGeoSet.h>

class VEK_API sglIndexedTriangleSet : public sglIndexedGeoSet {
 public:
  sglIndexedTriangleSet();
  ~sglIndexedTriangleSet() override;

  [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_INDEXED_TRIANGLE_SET; }
};
