// Each corner is made into one record of all its values, and equal records are one vertex. A placement that mirrors
// turns triangles inside out, so that their corners are taken the other way round.

#include "embedded/meshes/WeldedMesh.h"

#include <VekGeometry/CVekFrame.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/mat3x3.hpp>

#include "embedded/Matrix.h"
#include "embedded/TriangleReader.h"
#include "embedded/meshes/VertexWelder.h"

namespace embedded {
namespace {

// Position, then what the set has of normal, colour and texture coordinate.
constexpr std::size_t kMaxFloats = 3 + 3 + 4 + 2;

// What takes normals along with a placement: the cofactors, which are the inverse transpose without its division, so
// that a placement that flattens is no trouble.
glm::dmat3 normalMatrixOf(const glm::dmat3& placement) {
  const glm::dmat3 cofactors(glm::cross(placement[1], placement[2]), glm::cross(placement[2], placement[0]),
                             glm::cross(placement[0], placement[1]));
  return glm::dot(cofactors[0], placement[0]) < 0.0 ? -cofactors : cofactors;
}

bool isUsable(const glm::dvec3& normal) {
  const double length = glm::length(normal);
  return std::isfinite(length) && length > 0.0;
}

class Welding {
 public:
  Welding(const sglIndexedTriangleSet& set, const WeldOptions& options)
      : m_set(set),
        m_options(options),
        m_isPlaced(options.placement != glm::dmat4(1.0)),
        m_hasTextureMatrix(options.textureMatrix != sglMat4<float>()),
        m_normalMatrix(normalMatrixOf(glm::dmat3(options.placement))),
        m_normals(floatsOf(set.getNormalBinding() == sglGeoSet::BIND_OFF ? nullptr : set.getNormalList())),
        m_colors(floatsOf(set.getColorBinding() < sglGeoSet::BIND_PER_PRIM ? nullptr : set.getColorList())),
        m_texCoords(floatsOf(texCoordList(set))),
        m_hasNormals(m_normals != nullptr || options.wantsNormals),
        m_floatsPerVertex(3U + (m_hasNormals ? 3U : 0U) + (m_colors != nullptr ? 4U : 0U) +
                          (m_texCoords != nullptr ? 2U : 0U)),
        m_welder(m_floatsPerVertex) {
    const glm::dmat3 axes(options.placement);
    const bool isMirrored = glm::dot(glm::cross(axes[0], axes[1]), axes[2]) < 0.0;
    m_isReversed = options.isClockwise != isMirrored;
  }

  WeldedMesh run() {
    TriangleReader reader(m_set);
    Triangle triangle;
    while (reader.next(triangle)) addTriangle(triangle);
    split();
    return std::move(m_mesh);
  }

 private:
  static const float* floatsOf(const sglDataPtr* list) { return list == nullptr ? nullptr : list->getFloats(); }

  static glm::dvec3 vectorAt(const float* list, std::uint32_t number) {
    const float* vector = list + std::size_t{number} * 3;
    return {vector[0], vector[1], vector[2]};
  }

  void addTriangle(Triangle triangle) {
    if (m_isReversed) std::swap(triangle[1], triangle[2]);
    std::array<glm::vec3, 3> points;
    for (std::size_t i = 0; i < 3; ++i) {
      const glm::dvec3 point = vectorAt(m_set.getCoordList()->getFloats(), triangle[i].coord);
      points[i] = glm::vec3(m_isPlaced ? imageOf(m_options.placement, point) : point);
      for (int axis = 0; axis < 3; ++axis) {
        if (std::isfinite(points[i][axis])) continue;
        ++m_mesh.endlessCount;
        return;
      }
    }
    const glm::dvec3 origin(points[0]);
    const glm::dvec3 facing = glm::cross(glm::dvec3(points[1]) - origin, glm::dvec3(points[2]) - origin);
    for (std::size_t i = 0; i < 3; ++i) m_mesh.indices.push_back(vertexOf(triangle[i], points[i], facing));
  }

  std::uint32_t vertexOf(const Corner& corner, const glm::vec3& point, const glm::dvec3& facing) {
    std::array<float, kMaxFloats> record;
    float* end = record.data();
    for (int axis = 0; axis < 3; ++axis) *end++ = point[axis];
    if (m_hasNormals) end = putNormal(corner, facing, end);
    if (m_colors != nullptr) end = putColor(corner, end);
    if (m_texCoords != nullptr) end = putTexCoord(corner, end);
    return m_welder.add({record.data(), m_floatsPerVertex});
  }

  float* putNormal(const Corner& corner, const glm::dvec3& facing, float* end) const {
    glm::dvec3 normal(0.0);
    if (m_normals != nullptr && corner.normal != kNoIndex) {
      normal = vectorAt(m_normals, corner.normal);
      if (m_isPlaced) normal = m_normalMatrix * normal;
    }
    if (!isUsable(normal)) normal = facing;
    if (!isUsable(normal)) normal = {0.0, 0.0, 1.0};
    normal = glm::normalize(normal);
    for (int axis = 0; axis < 3; ++axis) *end++ = static_cast<float>(normal[axis]);
    return end;
  }

  float* putColor(const Corner& corner, float* end) const {
    for (std::size_t channel = 0; channel < 4; ++channel) {
      const float value = corner.color == kNoIndex ? 1.0F : m_colors[std::size_t{corner.color} * 4 + channel];
      *end++ = value > 0.0F ? std::min(value, 1.0F) : 0.0F;
    }
    return end;
  }

  float* putTexCoord(const Corner& corner, float* end) const {
    sglVec3<float> place;
    if (corner.texCoord != kNoIndex) {
      place = {m_texCoords[std::size_t{corner.texCoord} * 2], m_texCoords[std::size_t{corner.texCoord} * 2 + 1], 0.0F};
    }
    if (m_hasTextureMatrix) place = CVekFrame::TransformPoint(m_options.textureMatrix, place);
    *end++ = std::isfinite(place.x) ? place.x : 0.0F;
    *end++ = std::isfinite(place.y) ? place.y : 0.0F;
    return end;
  }

  // Takes the records apart into the mesh's lists.
  void split() {
    const std::size_t count = m_welder.count();
    const std::vector<float> records = m_welder.takeFloats();
    std::size_t first = 0;
    const auto takeOut = [&](std::vector<float>& list, std::size_t floats) {
      list.reserve(count * floats);
      for (std::size_t i = 0; i < count; ++i) {
        const float* from = records.data() + i * m_floatsPerVertex + first;
        list.insert(list.end(), from, from + floats);
      }
      first += floats;
    };
    takeOut(m_mesh.positions, 3);
    if (m_hasNormals) takeOut(m_mesh.normals, 3);
    if (m_colors != nullptr) takeOut(m_mesh.colors, 4);
    if (m_texCoords != nullptr) takeOut(m_mesh.texCoords, 2);
  }

  const sglIndexedTriangleSet& m_set;
  const WeldOptions& m_options;
  bool m_isPlaced;
  bool m_hasTextureMatrix;
  bool m_isReversed = false;
  glm::dmat3 m_normalMatrix;
  const float* m_normals;  // null without any, like the next two
  const float* m_colors;
  const float* m_texCoords;
  bool m_hasNormals;
  std::size_t m_floatsPerVertex;
  VertexWelder m_welder;
  WeldedMesh m_mesh;
};

}  // namespace

WeldedMesh weldedMesh(const sglIndexedTriangleSet& set, const WeldOptions& options) {
  return Welding(set, options).run();
}

}  // namespace embedded
