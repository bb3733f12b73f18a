#pragma once

// Triangles without indices: three positions, and three of every other list, for each.

#include <VekSG/sglGeoSet.h>

class VEK_API sglTriangleSet : public sglGeoSet {
 public:
  sglTriangleSet();
  ~sglTriangleSet() override;

  [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_TRIANGLE_SET; }
};
