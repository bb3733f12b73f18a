#pragma once

// Base of the drawables that are given by measures instead of points.

#include <VekSG/sglGeoSet.h>

// Has no lists of points and no count of triangles of its own; it may have an overall colour.
class VEK_API sglPrimitive : public sglGeoSet {
 public:
  ~sglPrimitive() override;

  [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_OTHER; }

 protected:
  sglPrimitive() = default;
};
