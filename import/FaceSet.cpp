// One walk over the coordinate index. The corners of the open face stand in one vector that is used again and again.

#include "import/FaceSet.h"

#include <vector>

#include "vrml/nodes/ColorNode.h"
#include "vrml/nodes/CoordinateNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"
#include "vrml/nodes/NormalNode.h"
#include "vrml/nodes/TextureCoordinateNode.h"

namespace importer {

namespace {

/// The first child of a class; null without one.
template <class NodeClass>
const NodeClass* childOf(const vrml::Node& parent) {
  return static_cast<const NodeClass*>(parent.getFirstChild(NodeClass::kClass.type));
}

bool isPlaceIn(std::int64_t index, std::size_t count) {
  return index >= 0 && static_cast<std::uint64_t>(index) < count;
}

/// Where a walk over the coordinate index stands.
struct Corner {
  std::size_t position;     // in the coordinate index
  std::int32_t coordIndex;  // what stands there
  std::size_t face;         // number of the open face
};

template <class Value>
std::uint32_t placeOf(const Corner& corner, const CornerValues<Value>& of) {
  const std::size_t count = of.list.values.size();
  if (count == 0) return 0;
  const std::span<const std::int32_t> indices = of.indices.values;
  std::int64_t index = 0;
  if (indices.empty()) {
    index = of.perVertex ? corner.coordIndex : static_cast<std::int64_t>(corner.face);
  } else {
    const std::size_t entry = of.perVertex ? corner.position : corner.face;
    if (entry < indices.size()) index = indices[entry];
  }
  return isPlaceIn(index, count) ? static_cast<std::uint32_t>(index) : 0;
}

void countFace(FaceCounts& counts, std::size_t cornerCount) {
  if (cornerCount == 3)
    ++counts.tris;
  else if (cornerCount == 4)
    ++counts.quads;
  else
    ++counts.polygons;
}

/// Hands a face to the collector. False when that has reported the face or a part of it.
bool addFace(std::span<const sglVertStructVNTC> corners, Stripper& stripper) {
  const std::size_t before = stripper.getNumTriangles();
  stripper.addPolyFace(corners);
  return corners.size() >= 3 && stripper.getNumTriangles() - before == corners.size() - 2;
}

template <class Field>
auto listOf(const vrml::Node& owner, const Field& field) {
  return FileList<typename Field::Value>{field.values(), owner.sharesValues()};
}

}  // namespace

std::optional<FaceSet> readFaceSet(const vrml::Node& node, bool withTexCoords) {
  const auto& faces = static_cast<const vrml::IndexedFaceSetNode&>(node);
  const auto* const coordinate = childOf<vrml::CoordinateNode>(node);
  if (coordinate == nullptr) return std::nullopt;

  FaceSet faceSet;
  faceSet.coordIndex = listOf(node, faces.getCoordIndex());
  faceSet.points = listOf(*coordinate, coordinate->getPoint());
  if (const auto* normal = childOf<vrml::NormalNode>(node))
    faceSet.normals = {listOf(*normal, normal->getVector()), listOf(node, faces.getNormalIndex()),
                       faces.getNormalPerVertex()};
  if (const auto* color = childOf<vrml::ColorNode>(node))
    faceSet.colors = {listOf(*color, color->getColor()), listOf(node, faces.getColorIndex()),
                      faces.getColorPerVertex()};
  const auto* const texCoord = withTexCoords ? childOf<vrml::TextureCoordinateNode>(node) : nullptr;
  if (texCoord != nullptr)
    faceSet.texCoords = {listOf(*texCoord, texCoord->getPoint()), listOf(node, faces.getTexCoordIndex()), true};
  return faceSet;
}

FaceCounts collectFaces(const FaceSet& faceSet, Stripper& stripper) {
  constexpr std::int32_t kEndOfFace = -1;
  const std::span<const std::int32_t> coordIndex = faceSet.coordIndex.values;
  const std::size_t pointCount = faceSet.points.values.size();
  FaceCounts counts;
  std::vector<sglVertStructVNTC> corners;
  corners.reserve(16);
  bool inRange = true;
  std::size_t face = 0;
  for (std::size_t position = 0; position < coordIndex.size(); ++position) {
    const Corner corner{position, coordIndex[position], face};
    if (corner.coordIndex != kEndOfFace) {
      inRange = inRange && isPlaceIn(corner.coordIndex, pointCount);
      corners.push_back({.vertex = static_cast<std::uint32_t>(corner.coordIndex),
                         .normal = placeOf(corner, faceSet.normals),
                         .texCoord = placeOf(corner, faceSet.texCoords),
                         .color = placeOf(corner, faceSet.colors)});
      continue;
    }
    countFace(counts, corners.size());
    if (!inRange)
      ++counts.outOfRange;
    else if (!addFace(corners, stripper))
      ++counts.degenerate;
    corners.clear();
    inRange = true;
    ++face;
  }
  return counts;
}

}  // namespace importer
