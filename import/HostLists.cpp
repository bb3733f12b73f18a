// Lists are filled in one pass and handed over by move.

#include "import/HostLists.h"

#include <cstddef>
#include <cstring>
#include <tuple>
#include <utility>
#include <vector>

namespace importer {

namespace {

/// The index lists of one drawable while they grow.
class IndexLists {
 public:
  IndexLists(const FaceSet& faceSet, std::size_t cornerCount)
      : m_hasNormals(!faceSet.normals.list.values.empty()),
        m_hasTexCoords(!faceSet.texCoords.list.values.empty()),
        m_hasColors(!faceSet.colors.list.values.empty()) {
    m_coords.reserve(cornerCount);
    if (m_hasNormals) m_normals.reserve(cornerCount);
    if (m_hasTexCoords) m_texCoords.reserve(cornerCount);
    if (m_hasColors) m_colors.reserve(cornerCount);
  }

  void add(const sglVertStructVNTC& corner) {
    m_coords.push_back(corner.vertex);
    if (m_hasNormals) m_normals.push_back(corner.normal);
    if (m_hasTexCoords) m_texCoords.push_back(corner.texCoord);
    if (m_hasColors) m_colors.push_back(corner.color);
  }

  [[nodiscard]] CornerLists finish() && {
    CornerLists lists;
    lists.coords = new sglDataPtr(std::move(m_coords));
    if (m_hasNormals) lists.normals = new sglDataPtr(std::move(m_normals));
    if (m_hasTexCoords) lists.texCoords = new sglDataPtr(std::move(m_texCoords));
    if (m_hasColors) lists.colors = new sglDataPtr(std::move(m_colors));
    return lists;
  }

 private:
  bool m_hasNormals;
  bool m_hasTexCoords;
  bool m_hasColors;
  std::vector<std::uint32_t> m_coords;
  std::vector<std::uint32_t> m_normals;
  std::vector<std::uint32_t> m_texCoords;
  std::vector<std::uint32_t> m_colors;
};

CornerLists triangleIndices(const Stripper& stripper, const FaceSet& faceSet) {
  IndexLists indices(faceSet, std::size_t{stripper.getNumTriangles()} * 3);
  for (const auto& triangle : stripper.getTriangles())
    for (const sglVertStructVNTC& corner : triangle.corners) indices.add(corner);
  return std::move(indices).finish();
}

CornerLists stripIndices(const std::vector<Stripper::Strip>& strips, const FaceSet& faceSet) {
  std::size_t cornerCount = 0;
  for (const Stripper::Strip& strip : strips) cornerCount += strip.size();
  IndexLists indices(faceSet, cornerCount);
  for (const Stripper::Strip& strip : strips)
    for (const sglVertStructVNTC& corner : strip) indices.add(corner);
  return std::move(indices).finish();
}

template <class Value>
std::vector<float> flattened(std::span<const Value> values) {
  std::vector<float> floats(values.size() * std::tuple_size_v<Value>);
  std::memcpy(floats.data(), values.data(), values.size_bytes());
  return floats;
}

std::vector<float> flattenedWithAlpha(std::span<const Vec3> colors) {
  std::vector<float> floats;
  floats.reserve(colors.size() * 4);
  for (const auto& [red, green, blue] : colors) floats.insert(floats.end(), {red, green, blue, 1.0F});
  return floats;
}

}  // namespace

Primitives primitivesOf(const Stripper& stripper, const FaceSet& faceSet) {
  Primitives primitives;
  primitives.numTriangles = stripper.getNumTriangles();
  if (primitives.numTriangles != 0) primitives.triangleIndices = triangleIndices(stripper, faceSet);

  const std::vector<Stripper::Strip>& strips = stripper.getStrips();
  if (strips.empty()) return primitives;
  std::vector<std::uint32_t> lengths;
  lengths.reserve(strips.size());
  for (const Stripper::Strip& strip : strips) lengths.push_back(static_cast<std::uint32_t>(strip.size()));
  primitives.stripLengths = new sglDataPtr(std::move(lengths));
  primitives.stripIndices = stripIndices(strips, faceSet);
  return primitives;
}

HostLists::Faces HostLists::facesOf(const FaceSet& faceSet) {
  const void* const key = faceSet.coordIndex.values.data();
  if (faceSet.coordIndex.isShared) {
    const auto known = m_faces.find(key);
    if (known != m_faces.end() && known->second.faceSet == faceSet) return known->second.faces;
  }
  Faces faces;
  Stripper stripper;
  faces.counts = collectFaces(faceSet, stripper);
  faces.primitives = primitivesOf(stripper, faceSet);
  // Every use of a face set that is reported is reported again.
  if (faceSet.coordIndex.isShared && faces.counts.degenerate == 0)
    m_faces.insert_or_assign(key, SharedFaces{faceSet, faces});
  return faces;
}

CornerLists HostLists::valuesOf(const FaceSet& faceSet) {
  CornerLists lists;
  lists.coords = valueList(faceSet.points, flattened<Vec3>);
  lists.normals = valueList(faceSet.normals.list, flattened<Vec3>);
  lists.texCoords = valueList(faceSet.texCoords.list, flattened<Vec2>);
  lists.colors = valueList(faceSet.colors.list, flattenedWithAlpha);
  return lists;
}

template <class Value, class Flatten>
sglRef<sglDataPtr> HostLists::valueList(const FileList<Value>& list, Flatten flatten) {
  if (list.values.empty()) return nullptr;
  if (!list.isShared) return new sglDataPtr(flatten(list.values));
  sglRef<sglDataPtr>& known = m_values[list.values.data()];
  if (!known) known = new sglDataPtr(flatten(list.values));
  return known;
}

}  // namespace importer
