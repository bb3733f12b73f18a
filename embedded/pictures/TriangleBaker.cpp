// Normals go by the matrix of cofactors, which exists for flat placements too and, for all others, is the transposed
// inverse but for a factor.

#include "embedded/pictures/TriangleBaker.h"

#include <VekSG/sglIndexedGeoStripSet.h>
#include <VekSG/sglMonoIndexedGeoStripSet.h>

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>

#include "embedded/Matrix.h"
#include "embedded/pictures/SmoothNormals.h"

namespace embedded {
namespace {

// The images of normals under a placement; they may have any length.
glm::dmat3 normalMatrix(const glm::dmat3& m) {
  const double side = glm::determinant(m) < 0.0 ? -1.0 : 1.0;
  // Scaled first: products of large numbers overflow.
  double largest = 0.0;
  for (int column = 0; column < 3; ++column) {
    for (int row = 0; row < 3; ++row) largest = std::max(largest, std::abs(m[column][row]));
  }
  const glm::dmat3 n = largest > 0.0 ? m / largest : m;
  return glm::dmat3(glm::cross(n[1], n[2]), glm::cross(n[2], n[0]), glm::cross(n[0], n[1])) * side;
}

glm::dvec3 unit(const glm::dvec3& vector) {
  const double length = glm::length(vector);
  return length > 0.0 && std::isfinite(length) ? vector / length : glm::dvec3(0.0);
}

std::array<float, 3> narrow(const glm::dvec3& vector) {
  return {static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z)};
}

std::uint8_t byteOf(float value) {
  return static_cast<std::uint8_t>(std::isnan(value) ? 0.0F : std::clamp(value, 0.0F, 1.0F) * 255.0F + 0.5F);
}

bool isFinite(const glm::dvec3& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool hasNormals(const sglGeoSet& geoSet) {
  const sglDataPtr* normals = geoSet.getNormalList();
  return normals != nullptr && normals->getFloats() != nullptr && normals->getCount() >= 3 &&
         geoSet.getNormalBinding() != sglGeoSet::BIND_OFF;
}

}  // namespace

PictureSpace spaceOf(const PictureBox& bounds) { return {bounds.centre(), 1.0 / bounds.radius()}; }

std::span<const float> NormalCache::normalsOf(const sglGeoSet& geoSet) {
  const sglDataPtr* indices = nullptr;
  const sglDataPtr* lengths = nullptr;
  if (const auto* indexed = dynamic_cast<const sglIndexedGeoSet*>(&geoSet)) indices = indexed->getCoordIndexList();
  if (const auto* strips = dynamic_cast<const sglIndexedGeoStripSet*>(&geoSet)) lengths = strips->getPrimLengths();
  if (const auto* mono = dynamic_cast<const sglMonoIndexedGeoStripSet*>(&geoSet)) {
    indices = mono->getCoordIndexList();
    lengths = mono->getPrimLengths();
  }
  const sglDataPtr* coords = geoSet.getCoordList();
  const auto [entry, isNew] = m_normals.try_emplace({coords, indices, lengths, geoSet.getNumPrims()});
  if (!isNew || coords == nullptr || coords->getFloats() == nullptr) return entry->second;
  std::vector<std::uint32_t> corners;
  TriangleReader reader(geoSet);
  Triangle triangle;
  while (reader.next(triangle)) {
    for (const Corner& corner : triangle) corners.push_back(corner.coord);
  }
  entry->second = smoothNormals({coords->getFloats(), coords->getCount() / 3 * 3}, corners);
  return entry->second;
}

TriangleBaker::TriangleBaker(const DrawList& list, const DrawItem& item, const PictureSpace& space, NormalCache& cache)
    : m_reader(*item.geoSet),
      m_geoSet(*item.geoSet),
      m_look(list.looks()[item.look]),
      m_placement(list.placements()[item.placement]),
      m_space(space),
      m_normalMatrix(normalMatrix(glm::dmat3(m_placement.world))),
      m_isMirrored(glm::determinant(glm::dmat3(m_placement.world)) < 0.0),
      m_hasNormals(hasNormals(m_geoSet)) {
  if (m_look.isLit && !m_hasNormals) m_smoothNormals = cache.normalsOf(m_geoSet);
  if (m_look.texture != nullptr) m_texCoords = texCoordList(m_geoSet)->getFloats();
}

glm::dvec3 TriangleBaker::positionOf(const Corner& corner) const {
  const float* const at = m_geoSet.getCoordList()->getFloats() + std::size_t{corner.coord} * 3;
  return m_space.from(imageOf(m_placement.world, {at[0], at[1], at[2]}));
}

// Zero where there is none.
glm::dvec3 TriangleBaker::givenNormal(const Corner& corner, std::size_t cornerNumber) const {
  const float* at = nullptr;
  double side = 1.0;
  if (m_hasNormals && corner.normal != kNoIndex) {
    at = m_geoSet.getNormalList()->getFloats() + std::size_t{corner.normal} * 3;
  } else if (!m_smoothNormals.empty()) {
    at = m_smoothNormals.data() + cornerNumber * 3;
    if (m_look.isClockwise) side = -1.0;
  }
  if (at == nullptr) return glm::dvec3(0.0);
  return unit(m_normalMatrix * unit(glm::dvec3(at[0], at[1], at[2]) * side));
}

std::array<std::uint8_t, 4> TriangleBaker::colorOf(const Corner& corner) const {
  const SurfaceLook& surface = m_look.front;
  if (!m_look.hasColors || corner.color == kNoIndex) {
    return {byteOf(surface.diffuse[0]), byteOf(surface.diffuse[1]), byteOf(surface.diffuse[2]), byteOf(surface.alpha)};
  }
  const float* const at = m_geoSet.getColorList()->getFloats() + std::size_t{corner.color} * 4;
  // A material is transparent whatever the colours on it.
  return {byteOf(at[0]), byteOf(at[1]), byteOf(at[2]), byteOf(at[3] * surface.alpha)};
}

std::array<float, 2> TriangleBaker::texCoordOf(const Corner& corner) const {
  if (m_texCoords == nullptr || corner.texCoord == kNoIndex) return {0.0F, 0.0F};
  const float* const at = m_texCoords + std::size_t{corner.texCoord} * 2;
  const glm::dvec3 image = imageOf(m_placement.texture, {at[0], at[1], 0.0});
  return {static_cast<float>(image.x), static_cast<float>(image.y)};
}

bool TriangleBaker::next(PictureTriangle& triangle) {
  Triangle corners;
  while (m_reader.next(corners)) {
    const std::size_t firstCorner = m_cornerNumber;
    m_cornerNumber += corners.size();
    std::array<glm::dvec3, 3> positions{};
    for (std::size_t i = 0; i < positions.size(); ++i) positions[i] = positionOf(corners[i]);
    if (!std::ranges::all_of(positions, isFinite)) continue;
    const bool isTurned = m_isMirrored != m_look.isClockwise;
    const glm::dvec3 across = glm::cross(positions[1] - positions[0], positions[2] - positions[0]);
    const glm::dvec3 faceNormal = unit(isTurned ? -across : across);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const glm::dvec3 normal = givenNormal(corners[i], firstCorner + i);
      PictureVertex& vertex = triangle[m_isMirrored && i > 0 ? 3 - i : i];
      vertex.position = narrow(positions[i]);
      vertex.normal = narrow(normal == glm::dvec3(0.0) ? faceNormal : normal);
      vertex.texCoord = texCoordOf(corners[i]);
      vertex.color = colorOf(corners[i]);
    }
    return true;
  }
  return false;
}

}  // namespace embedded
