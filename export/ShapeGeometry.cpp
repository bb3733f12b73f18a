// The four writers gather the same parts from their kind of geo-set, and one function turns the parts into text. The
// parts are the host's own lists; only the index list of a set without indices is made here, by welding.

#include "export/ShapeGeometry.h"

#include <VekGeometry/CVekBBox.h>
#include <VekGeometry/CVekFrame.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "export/FaceSetText.h"
#include "export/VertexWeld.h"

namespace exporter {
namespace {

using Floats = std::span<const float>;
using Indices = std::span<const std::uint32_t>;

Floats floatsOf(const sglDataPtr* list) {
  const float* data = list != nullptr ? list->getFloats() : nullptr;
  return data != nullptr ? Floats(data, list->getCount()) : Floats();
}

Indices indicesOf(const sglDataPtr* list) {
  const std::uint32_t* data = list != nullptr ? list->getUnsigneds() : nullptr;
  return data != nullptr ? Indices(data, list->getCount()) : Indices();
}

/// How many entries the indices ask for: one more than the largest, also when there are none.
std::size_t reachOf(Indices indices) {
  std::uint32_t largest = 0;
  for (const std::uint32_t index : indices) largest = std::max(largest, index);
  return std::size_t{largest} + 1;
}

/// A list of the host's and how many of its entries are to be written.
struct VectorList {
  Floats values;
  std::size_t count = 0;
};

/// What a face set is made of. Texture coordinates without values are left out whole; so are normals without
/// `hasNormals`, which asks whether the host has a list, not what it holds.
struct FaceSetParts {
  VectorList points;
  Indices coordIndices;
  VectorList texCoords;
  Indices texCoordIndices;
  VectorList normals;
  Indices normalIndices;
  bool hasNormals = false;
};

/// Writes the vectors that there are; an empty list writes nothing, like one that is missing.
void writeVectorList(TextWriter& out, const char* name, const VectorList& list) {
  const std::size_t available = list.values.size() / 3;
  if (available > 0) writeVectors(out, name, list.values.data(), std::min(list.count, available));
}

void writeTextureList(TextWriter& out, const CVekActor& actor, const char* name, const VectorList& list) {
  const std::size_t available = list.values.size() / 2;
  if (available > 0) writeTextureCoordinates(out, &actor, name, list.values.data(), std::min(list.count, available));
}

/// Writes the text that all face sets share; `writeIndices` turns an index list into triangles.
template <class WriteIndices>
void writeFaceSet(TextWriter& out, const CVekActor& actor, const FaceSetParts& parts, WriteIndices writeIndices) {
  const bool hasTexCoords = !parts.texCoords.values.empty();
  out.put("geometry IndexedFaceSet{\ncoord Coordinate{\n");
  writeVectorList(out, "point", parts.points);
  if (hasTexCoords) {
    out.put("}\ntexCoord TextureCoordinate{\n");
    writeTextureList(out, actor, "point", parts.texCoords);
  }
  out.put("}\ncoordIndex[\n");
  writeIndices(parts.coordIndices);
  if (hasTexCoords) {
    out.put("]\ntexCoordIndex [\n");
    writeIndices(parts.texCoordIndices);
  }
  if (parts.hasNormals) {
    out.put("]\nnormalPerVertex TRUE\nnormal Normal {\n");
    writeVectorList(out, "vector", parts.normals);
    out.put("}\nnormalIndex[\n");
    writeIndices(parts.normalIndices);
  }
  out.put("]}}\n");
}

/// Writes the whole triangles among the first `triangleCount` that the list holds.
auto triangleWriter(TextWriter& out, std::size_t triangleCount) {
  return [&out, triangleCount](Indices indices) {
    const std::size_t whole = std::min(triangleCount, indices.size() / 3);
    if (whole > 0) writeTriangles(out, indices.data(), whole);
  };
}

auto stripWriter(TextWriter& out, Indices lengths) {
  return [&out, lengths](Indices indices) { writeStrips(out, indices.data(), lengths, indices.size()); };
}

/// The lengths of the strips that the set says it has and that its list of lengths names.
Indices stripLengthsOf(const sglDataPtr* lengths, unsigned stripCount) {
  const Indices list = indicesOf(lengths);
  return list.first(std::min<std::size_t>(stripCount, list.size()));
}

std::size_t sumOf(Indices lengths) {
  std::size_t sum = 0;
  for (const std::uint32_t length : lengths) sum += length;
  return sum;
}

/// The parts of a set with an index list for each kind of value, of which the first `indexCount` indices count.
FaceSetParts partsOf(const CVekActor& actor, const sglIndexedGeoSet& set, std::size_t indexCount) {
  const auto used = [indexCount](Indices indices) { return indices.first(std::min(indexCount, indices.size())); };
  FaceSetParts parts;
  parts.coordIndices = used(indicesOf(set.getCoordIndexList()));
  parts.points = {floatsOf(set.getCoordList()), reachOf(parts.coordIndices)};
  parts.texCoordIndices = used(indicesOf(set.getTexCoordIndexList()));
  parts.texCoords = {textureCoordinates(actor, set), reachOf(parts.texCoordIndices)};
  parts.normalIndices = used(indicesOf(set.getNormalIndexList()));
  parts.normals = {floatsOf(set.getNormalList()), reachOf(parts.normalIndices)};
  parts.hasNormals = set.getNormalIndexList() != nullptr;
  return parts;
}

/// The parts of a set whose one index list serves every kind of value.
FaceSetParts partsOf(const CVekActor& actor, const sglGeoSet& set, Indices indices, std::size_t count) {
  FaceSetParts parts;
  parts.coordIndices = parts.texCoordIndices = parts.normalIndices = indices;
  parts.points = {floatsOf(set.getCoordList()), count};
  parts.texCoords = {textureCoordinates(actor, set), count};
  parts.normals = {floatsOf(set.getNormalList()), count};
  parts.hasNormals = set.getNormalList() != nullptr;
  return parts;
}

/// The positions closer than a ten-thousandth of the set's diagonal are one.
WeldTolerance weldToleranceOf(Floats coords) {
  CVekBBox box;
  box.makeEmpty();
  for (std::size_t i = 0; i + 2 < coords.size(); i += 3) box.expandToInclude({coords[i], coords[i + 1], coords[i + 2]});
  return {.position = static_cast<float>(0.0001 * double{box.GetDiagonal()})};
}

float inRange(float value) { return -1000000.0F < value && value < 1000000.0F ? value : 0.0F; }

sglMat4<float> textureMatrixOf(const CVekActor* actor) {
  const CVekTexture* texture = actor != nullptr && actor->HasTexture() ? actor->GetTexture(0) : nullptr;
  return texture != nullptr ? texture->GetTexMatrix() : sglMat4<float>();
}

}  // namespace

void writeGeometry(TextWriter& out, const CVekActor& actor, const sglTriangleSet& set) {
  if (set.getNumPrims() == 0) return;
  const Floats all = floatsOf(set.getCoordList());
  const std::size_t triangleCount = std::min<std::size_t>(set.getNumPrims(), all.size() / 9);
  const std::size_t vertexCount = 3 * triangleCount;
  const Floats coords = all.first(3 * vertexCount);
  const Floats normals = floatsOf(set.getNormalList());
  const std::vector<std::uint32_t> indices = WeldIdenticalVertices(coords, normals, weldToleranceOf(coords));
  writeFaceSet(out, actor, partsOf(actor, set, indices, vertexCount), triangleWriter(out, triangleCount));
}

void writeGeometry(TextWriter& out, const CVekActor& actor, const sglIndexedTriangleSet& set) {
  const std::size_t triangleCount = set.getNumPrims();
  if (triangleCount == 0) return;
  writeFaceSet(out, actor, partsOf(actor, set, 3 * triangleCount), triangleWriter(out, triangleCount));
}

void writeGeometry(TextWriter& out, const CVekActor& actor, const sglIndexedTriangleStripSet& set) {
  if (set.getNumPrims() == 0) return;
  const Indices lengths = stripLengthsOf(set.getPrimLengths(), set.getNumPrims());
  writeFaceSet(out, actor, partsOf(actor, set, sumOf(lengths)), stripWriter(out, lengths));
}

void writeGeometry(TextWriter& out, const CVekActor& actor, const sglMonoIndexedTriangleStripSet& set) {
  if (set.getNumPrims() == 0) return;
  const Indices lengths = stripLengthsOf(set.getPrimLengths(), set.getNumPrims());
  const Indices all = indicesOf(set.getCoordIndexList());
  const Indices indices = all.first(std::min(sumOf(lengths), all.size()));
  writeFaceSet(out, actor, partsOf(actor, set, indices, reachOf(indices)), stripWriter(out, lengths));
}

std::span<const float> textureCoordinates(const CVekActor& actor, const sglGeoSet& set) {
  const StateElement* state = actor.GetTexture(0) != nullptr ? set.getState(0) : nullptr;
  if (state == nullptr || state->getTexCoordList().empty()) return {};
  const sglTexCoords& texCoords = state->getTexCoordList().front();
  return texCoords.isValid() ? floatsOf(texCoords.getDataPtr()) : Floats();
}

void writeTextureCoordinates(TextWriter& out, const CVekActor* actor, const char* name, const float* data,
                             std::size_t count) {
  const sglMat4<float> matrix = textureMatrixOf(actor);
  std::vector<float> moved;
  moved.reserve(2 * std::max<std::size_t>(count, 1));
  for (std::size_t i = 0; i < std::max<std::size_t>(count, 1); ++i) {
    const sglVec3<float> point = CVekFrame::TransformPoint(matrix, {data[2 * i], data[2 * i + 1], 0.0F});
    moved.push_back(inRange(point.x));
    moved.push_back(inRange(point.y));
  }
  writePairs(out, name, moved.data(), count);
}

}  // namespace exporter
