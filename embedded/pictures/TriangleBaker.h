#pragma once

// The triangles of a draw list as the renderer takes them: placed, scaled, with a normal and a colour at every corner.

#include <array>
#include <cstdint>
#include <glm/mat3x3.hpp>
#include <map>
#include <span>
#include <tuple>
#include <vector>

#include "embedded/TriangleReader.h"
#include "embedded/pictures/DrawList.h"

namespace embedded {

// One corner, laid out for OpenGL's arrays.
struct PictureVertex {
  std::array<float, 3> position;
  std::array<float, 3> normal;
  std::array<float, 2> texCoord;
  std::array<std::uint8_t, 4> color;
};

// Counterclockwise is the front, or clockwise where the look says so.
using PictureTriangle = std::array<PictureVertex, 3>;

// From the world to a space of the renderer's, in which the model has its centre at the origin and a radius of 1:
// single precision is enough there for models of any size at any distance from the world's origin.
struct PictureSpace {
  glm::dvec3 centre{0.0};
  double scale = 1.0;

  [[nodiscard]] glm::dvec3 from(const glm::dvec3& world) const { return (world - centre) * scale; }
};

[[nodiscard]] PictureSpace spaceOf(const PictureBox& bounds);

// Keeps the normals that were computed for drawables which have none, since placed copies share their lists.
class NormalCache {
 public:
  // 3 floats a corner, in the order in which TriangleReader gives the triangles of the geo-set. They hold as long as
  // the cache.
  std::span<const float> normalsOf(const sglGeoSet& geoSet);

 private:
  using Key = std::tuple<const void*, const void*, const void*, unsigned>;  // the lists, and the number of primitives

  std::map<Key, std::vector<float>> m_normals;
};

// Reads one item of a list. Mirrored placements keep their fronts. Triangles with a corner that is not finite are
// passed over. The list and the cache must outlive the baker.
class TriangleBaker {
 public:
  TriangleBaker(const DrawList& list, const DrawItem& item, const PictureSpace& space, NormalCache& cache);

  // Puts the next triangle into `triangle`; false when there is none left.
  bool next(PictureTriangle& triangle);

 private:
  [[nodiscard]] glm::dvec3 positionOf(const Corner& corner) const;
  [[nodiscard]] glm::dvec3 givenNormal(const Corner& corner, std::size_t cornerNumber) const;
  [[nodiscard]] std::array<std::uint8_t, 4> colorOf(const Corner& corner) const;
  [[nodiscard]] std::array<float, 2> texCoordOf(const Corner& corner) const;

  TriangleReader m_reader;
  const sglGeoSet& m_geoSet;
  const Look& m_look;
  const Placement& m_placement;
  const PictureSpace& m_space;
  glm::dmat3 m_normalMatrix;
  bool m_isMirrored;
  bool m_hasNormals;
  const float* m_texCoords = nullptr;
  std::span<const float> m_smoothNormals;  // empty when the drawable has its own
  std::size_t m_cornerNumber = 0;          // of the triangle to be read next
};

}  // namespace embedded
