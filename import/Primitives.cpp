// The host lays a cube from the origin to its size, stands cones and cylinders on z = 0 with their axis along z, and
// has its own idea of a sphere's origin. VRML centres everything and stands it along y.

#include "import/Primitives.h"

#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglSphere.h>

#include <array>
#include <limits>
#include <numbers>

#include "vrml/nodes/BoxNode.h"
#include "vrml/nodes/ConeNode.h"
#include "vrml/nodes/CylinderNode.h"
#include "vrml/nodes/SphereNode.h"

namespace importer {

namespace {

Matrix turnAboutX(double radians) { return rotation(1, 0, 0, radians); }

/// A number of pieces, cut off at the point, and at the ends of what the host counts in.
unsigned pieces(float tessellation, float usual) {
  constexpr float kTooMany = 4294967296.0F;
  const float number = tessellation * usual;
  if (!(number >= 1.0F)) return 0;  // nor is not-a-number
  return number < kTooMany ? static_cast<unsigned>(number) : std::numeric_limits<unsigned>::max();
}

PlacedPrimitive makeBox(const vrml::Node& node, float /*tessellation*/) {
  const auto& [x, y, z] = static_cast<const vrml::BoxNode&>(node).getSize().getValue();
  return {std::make_unique<sglCube>(x, y, z), translation(-x / 2.0, -y / 2.0, -z / 2.0)};
}

PlacedPrimitive makeCone(const vrml::Node& node, float tessellation) {
  const auto& cone = static_cast<const vrml::ConeNode&>(node);
  const float height = cone.getHeight();
  return {std::make_unique<sglCone>(pieces(tessellation, 30), height, cone.getBottomRadius()),
          translation(0, 0, -height / 2.0) * turnAboutX(std::numbers::pi) * turnAboutX(std::numbers::pi / 2)};
}

PlacedPrimitive makeCylinder(const vrml::Node& node, float tessellation) {
  const auto& cylinder = static_cast<const vrml::CylinderNode&>(node);
  const float height = cylinder.getHeight();
  const float radius = cylinder.getRadius();
  return {
      std::make_unique<sglCylinder>(pieces(tessellation, 40), pieces(tessellation, 5), height, radius, radius, true),
      translation(0, 0, -height / 2.0) * turnAboutX(std::numbers::pi / 2)};
}

PlacedPrimitive makeSphere(const vrml::Node& node, float tessellation) {
  const float radius = static_cast<const vrml::SphereNode&>(node).getRadius();
  const double offset = -radius / 2.0;
  return {std::make_unique<sglSphere>(pieces(tessellation, 50), pieces(tessellation, 15), radius),
          translation(offset, offset, offset) * turnAboutX(std::numbers::pi / 2)};
}

struct PrimitiveKind {
  vrml::NodeType type;
  PlacedPrimitive (*make)(const vrml::Node& node, float tessellation);
};

constexpr std::array kPrimitiveKinds = {
    PrimitiveKind{vrml::nodeType("Box"), makeBox},
    PrimitiveKind{vrml::nodeType("Cone"), makeCone},
    PrimitiveKind{vrml::nodeType("Cylinder"), makeCylinder},
    PrimitiveKind{vrml::nodeType("Sphere"), makeSphere},
};

}  // namespace

PlacedPrimitive makePrimitive(const vrml::Node& geometry, float tessellation) {
  for (const PrimitiveKind& kind : kPrimitiveKinds)
    if (geometry.isType(kind.type)) return kind.make(geometry, tessellation);
  return {};
}

}  // namespace importer
