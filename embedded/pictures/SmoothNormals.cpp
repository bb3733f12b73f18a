// Corners that shade alike are found as the connected parts of a graph: its nodes are the corners, and an edge between
// two triangles that turns little joins the corners at either of its ends. Each part then has one normal. The edges
// are found by sorting all half-edges by the two places that they connect.

#include "embedded/pictures/SmoothNormals.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>
#include <numeric>

namespace embedded {
namespace {

constexpr double kSmoothCosine = 0.86602540378443865;  // of 30 degrees

glm::dvec3 pointAt(std::span<const float> points, std::uint32_t index) {
  const float* const point = points.data() + std::size_t{index} * 3;
  return {point[0], point[1], point[2]};
}

// For each point the first one at the same place.
std::vector<std::uint32_t> firstAtSamePlace(std::span<const float> points) {
  const std::size_t count = points.size() / 3;
  const auto bitsOf = [&points](std::size_t at) {
    return std::bit_cast<std::uint32_t>(points[at] + 0.0F);  // negative zero is zero
  };
  const auto hashOf = [&](std::size_t point) {
    std::uint64_t hash = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      hash = (hash ^ bitsOf(point * 3 + axis)) * 0x9E3779B97F4A7C15U;
      hash ^= hash >> 29U;
    }
    return static_cast<std::size_t>(hash);
  };
  const auto isSame = [&](std::size_t a, std::size_t b) {
    return bitsOf(a * 3) == bitsOf(b * 3) && bitsOf(a * 3 + 1) == bitsOf(b * 3 + 1) &&
           bitsOf(a * 3 + 2) == bitsOf(b * 3 + 2);
  };
  constexpr std::uint32_t kFree = 0xFFFFFFFFU;
  const std::size_t mask = std::bit_ceil(count * 2 + 1) - 1;
  std::vector<std::uint32_t> table(mask + 1, kFree);
  std::vector<std::uint32_t> first(count);
  for (std::size_t point = 0; point < count; ++point) {
    std::size_t slot = hashOf(point) & mask;
    while (table[slot] != kFree && !isSame(table[slot], point)) slot = (slot + 1) & mask;
    if (table[slot] == kFree) table[slot] = static_cast<std::uint32_t>(point);
    first[point] = table[slot];
  }
  return first;
}

// Corners that belong together, as a forest.
class CornerParts {
 public:
  explicit CornerParts(std::size_t count) : m_parents(count) { std::iota(m_parents.begin(), m_parents.end(), 0U); }

  std::uint32_t find(std::uint32_t corner) {
    while (m_parents[corner] != corner) {
      m_parents[corner] = m_parents[m_parents[corner]];
      corner = m_parents[corner];
    }
    return corner;
  }

  void join(std::uint32_t a, std::uint32_t b) {
    a = find(a);
    b = find(b);
    // The smaller number stays, which needs no ranks and keeps the result the same from run to run.
    m_parents[std::max(a, b)] = std::min(a, b);
  }

 private:
  std::vector<std::uint32_t> m_parents;
};

// One side of a triangle, from a corner to the next one of its triangle.
struct HalfEdge {
  std::uint64_t key;     // the places of its ends, the smaller one first
  std::uint32_t corner;  // where it begins in its triangle
};

std::uint32_t nextCorner(std::uint32_t corner) { return corner % 3 == 2 ? corner - 2 : corner + 1; }

class Surface {
 public:
  Surface(std::span<const float> points, std::span<const std::uint32_t> corners)
      : m_points(points), m_corners(corners) {
    m_faceNormals.reserve(corners.size() / 3);
    for (std::size_t i = 0; i + 2 < corners.size(); i += 3) {
      const glm::dvec3 a = pointAt(points, corners[i]);
      m_faceNormals.push_back(
          unit(glm::cross(pointAt(points, corners[i + 1]) - a, pointAt(points, corners[i + 2]) - a)));
    }
  }

  std::vector<float> cornerNormals() {
    CornerParts parts(m_corners.size());
    joinAcrossEdges(parts);
    std::vector<glm::vec3> sums(m_corners.size(), glm::vec3(0.0F));
    for (std::uint32_t corner = 0; corner < m_corners.size(); ++corner) {
      sums[parts.find(corner)] += glm::vec3(m_faceNormals[corner / 3] * angleAt(corner));
    }
    std::vector<float> normals(m_corners.size() * 3);
    for (std::uint32_t corner = 0; corner < m_corners.size(); ++corner) {
      const glm::dvec3 normal = unit(sums[parts.find(corner)]);
      for (int axis = 0; axis < 3; ++axis) {
        normals[std::size_t{corner} * 3 + static_cast<std::size_t>(axis)] = static_cast<float>(normal[axis]);
      }
    }
    return normals;
  }

 private:
  static glm::dvec3 unit(const glm::dvec3& vector) {
    const double length = glm::length(vector);
    return length > 0.0 && std::isfinite(length) ? vector / length : glm::dvec3(0.0);
  }

  double angleAt(std::uint32_t corner) const {
    const std::uint32_t next = nextCorner(corner);
    const glm::dvec3 here = pointAt(m_points, m_corners[corner]);
    const glm::dvec3 a = unit(pointAt(m_points, m_corners[next]) - here);
    const glm::dvec3 b = unit(pointAt(m_points, m_corners[nextCorner(next)]) - here);
    return std::acos(std::clamp(glm::dot(a, b), -1.0, 1.0));
  }

  void joinAcrossEdges(CornerParts& parts) const {
    const std::vector<std::uint32_t> first = firstAtSamePlace(m_points);
    const auto placeOf = [&](std::uint32_t corner) { return first[m_corners[corner]]; };
    std::vector<HalfEdge> edges(m_corners.size());
    for (std::uint32_t corner = 0; corner < edges.size(); ++corner) {
      const auto [low, high] = std::minmax({placeOf(corner), placeOf(nextCorner(corner))});
      edges[corner] = {std::uint64_t{low} << 32U | high, corner};
    }
    std::ranges::sort(edges, [](const HalfEdge& a, const HalfEdge& b) {
      return a.key != b.key ? a.key < b.key : a.corner < b.corner;
    });
    for (std::size_t i = 1; i < edges.size(); ++i) {
      if (edges[i].key != edges[i - 1].key) continue;
      joinAcross(edges[i - 1].corner, edges[i].corner, placeOf, parts);
    }
  }

  // Joins the corners of two triangles at the ends of the edge that they share, when the surface turns little there.
  template <class PlaceOf>
  void joinAcross(std::uint32_t a, std::uint32_t b, PlaceOf placeOf, CornerParts& parts) const {
    if (glm::dot(m_faceNormals[a / 3], m_faceNormals[b / 3]) <= kSmoothCosine) return;
    const std::uint32_t aEnd = nextCorner(a);
    const std::uint32_t bEnd = nextCorner(b);
    const bool isOpposed = placeOf(a) == placeOf(bEnd);
    parts.join(a, isOpposed ? bEnd : b);
    parts.join(aEnd, isOpposed ? b : bEnd);
  }

  std::span<const float> m_points;
  std::span<const std::uint32_t> m_corners;
  std::vector<glm::dvec3> m_faceNormals;  // one a triangle, zero for one without an area
};

}  // namespace

std::vector<float> smoothNormals(std::span<const float> points, std::span<const std::uint32_t> corners) {
  return Surface(points, corners.first(corners.size() / 3 * 3)).cornerNormals();
}

}  // namespace embedded
