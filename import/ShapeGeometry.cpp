// One Shape: its geometry becomes drawables in a geode, which the shapes of one group share. A primitive takes the
// geode under a transform of its own, which puts it where VRML means it.

#include <VekSG/sglCullMode.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglTransform.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "import/Counters.h"
#include "import/GeoSets.h"
#include "import/Matrix.h"
#include "import/Messages.h"
#include "import/Primitives.h"
#include "import/ShapeParts.h"
#include "import/sglLoadFile_wrl.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"

namespace {

using importer::count;
using importer::ShapeParts;
using importer::warn;

struct UnsupportedGeometry {
  vrml::NodeType type;
  const char* message;
};

constexpr std::array kUnsupportedGeometry = {
    UnsupportedGeometry{vrml::nodeType("ElevationGrid"), "ElevationGridNodes not yet supported.\n"},
    UnsupportedGeometry{vrml::nodeType("Extrusion"), "ExtrusionNodes not yet supported.\n"},
    UnsupportedGeometry{vrml::nodeType("IndexedLineSet"), "IndexedLineSetNodes not yet supported.\n"},
    UnsupportedGeometry{vrml::nodeType("PointSet"), "PointSetNodes not yet supported.\n"},
};

void addPrimitive(sglGeode& geode, std::unique_ptr<sglPrimitive> primitive, const ShapeParts& parts) {
  if (parts.material != nullptr) {
    const auto& [red, green, blue] = parts.material->getDiffuseColor().getValue();
    primitive->setColorList(new sglDataPtr(std::vector{red, green, blue, 1.0F}), sglGeoSet::BIND_OVERALL);
  }
  primitive->setState(0, parts.states);
  geode.addGeometry(primitive.get());
  static_cast<void>(primitive.release());
}

}  // namespace

void sglLoadFile_wrl::travShapeNode(sglGroup* parent, vrml::Node* shape) {
  const vrml::Node* const geometry = shape->getGeometryNode();
  if (geometry == nullptr) return;

  ShapeParts parts;
  parts.states.reserve(8);  // no shape has more
  parts.states.push_back(new sglLighting(true));
  if (const vrml::Node* appearance = shape->getFirstChild(vrml::nodeType("Appearance")))
    convertAppearance(*appearance, parts);

  auto* const shared = parent->getNumChildren() == 0 ? nullptr : dynamic_cast<sglGeode*>(parent->getChild(0));
  std::unique_ptr<sglGeode> fresh = shared == nullptr ? std::make_unique<sglGeode>() : nullptr;
  sglGeode* const geode = shared == nullptr ? fresh.get() : shared;
  if (!convertGeometry(*geometry, *geode, parts)) return;

  if (!doCallback(geode, shape, "onCreate:", "sglGeode")) {
    // A shared geode goes with the shapes that are in it already, once its group does not name it any more.
    if (shared != nullptr && parent->removeChild(shared)) delete shared;
    return;
  }
  if (parts.placement) {
    parts.placement->addChild(geode, true);
    static_cast<void>(fresh.release());
    parent->addChild(parts.placement.get(), true);
    static_cast<void>(parts.placement.release());
    if (shared != nullptr) parent->removeChild(shared);
  } else if (fresh) {
    parent->addChild(fresh.get(), true);
    static_cast<void>(fresh.release());
  }
}

bool sglLoadFile_wrl::convertGeometry(const vrml::Node& geometry, sglGeode& geode, ShapeParts& parts) {
  if (geometry.isType(vrml::nodeType("IndexedFaceSet"))) return convertFaceSet(geometry, geode, parts);

  const auto unsupported = std::ranges::find(kUnsupportedGeometry, geometry.getType(), &UnsupportedGeometry::type);
  if (unsupported != kUnsupportedGeometry.end()) warn(unsupported->message);

  if (auto [primitive, placement] = importer::makePrimitive(geometry, m_tessellation); primitive) {
    addPrimitive(geode, std::move(primitive), parts);
    parts.placement = std::make_unique<sglTransform<float>>();
    parts.placement->setMatrix(importer::narrow(placement));
  }
  return true;
}

bool sglLoadFile_wrl::convertFaceSet(const vrml::Node& node, sglGeode& geode, ShapeParts& parts) {
  const auto faceSet = importer::readFaceSet(node, parts.hasTexture);
  if (!faceSet) {
    warn("No Coordinate Nodes in IndexedFaceSet\n");
    return false;
  }
  const auto& flags = static_cast<const vrml::IndexedFaceSetNode&>(node);
  if (!flags.getSolid()) parts.states.push_back(new sglCullMode(sglCullMode::CULL_OFF));
  if (!flags.getCcw()) parts.states.push_back(new sglFrontFace(sglFrontFace::CLOCKWISE));

  const auto [faces, primitives] = m_hostLists.facesOf(*faceSet);
  countFaces(faces, primitives);
  if (primitives.numTriangles != 0 || primitives.stripLengths)
    importer::addGeoSets(geode, primitives, m_hostLists.valuesOf(*faceSet), parts.states);
  if (faces.outOfRange != 0) {
    warn("IndexedFaceSet: ", std::to_string(faces.outOfRange),
         " faces with coordinate indices out of range ignored.\n");
  }
  return true;
}

void sglLoadFile_wrl::countFaces(const importer::FaceCounts& faces, const importer::Primitives& primitives) {
  count(m_numSTris, faces.tris);
  count(m_numSQuads, faces.quads);
  count(m_numSPolygons, faces.polygons);
  count(m_numIndepTris, primitives.numTriangles);
  if (!primitives.stripLengths) return;
  for (const std::uint32_t length :
       std::span(primitives.stripLengths->getUnsigneds(), primitives.stripLengths->getCount())) {
    std::int32_t counted = 0;
    count(counted, length);
    count(m_numStrips);
    m_minStripLength = std::min(m_minStripLength, counted);
    m_maxStripLength = std::max(m_maxStripLength, counted);
    count(m_sumStripLength, length);
  }
}
