#pragma once

// Normals for triangles that have none.

#include <cstdint>
#include <span>
#include <vector>

namespace embedded {

// A normal of unit length for each corner of each triangle: the mean of the triangles around it that one gets to
// across edges at which the surface turns by less than 30 degrees, each weighted by its angle there. Counterclockwise
// is outward. Points at the same place are one point, so that a seam in the indices shows no edge. Zero for triangles
// without an area.
//
// `points` holds 3 floats a point, `corners` 3 places in it a triangle, all inside it. The result holds 3 floats a
// corner. Takes time and memory in proportion to the corners, but for sorting them.
[[nodiscard]] std::vector<float> smoothNormals(std::span<const float> points, std::span<const std::uint32_t> corners);

}  // namespace embedded
