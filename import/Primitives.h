#pragma once

// The host's primitives in place of VRML's.

#include <VekSG/sglPrimitive.h>

#include <memory>

#include "import/Matrix.h"
#include "vrml/nodes/Node.h"

namespace importer {

/// A host primitive, and where it has to stand to be where VRML means it.
struct PlacedPrimitive {
  std::unique_ptr<sglPrimitive> primitive;  // null: the geometry is none of the four
  Matrix placement;
};

/// The primitive for a Box, Cone, Cylinder or Sphere node. `tessellation` is the factor on the usual numbers of flat
/// pieces; any value is allowed, and any measure.
[[nodiscard]] PlacedPrimitive makePrimitive(const vrml::Node& geometry, float tessellation);

}  // namespace importer
