#pragma once

// Triangle strips with one index list for all lists of values.

#include <VekSG/sglMonoIndexedGeoStripSet.h>

class VEK_API sglMonoIndexedTriangleStripSet : public sglMonoIndexedGeoStripSet {
 public:
  sglMonoIndexedTriangleStripSet();
  ~sglMonoIndexedTriangleStripSet() override;

  [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_MONO_INDEXED_TRIANGLE_STRIP_SET; }
};
