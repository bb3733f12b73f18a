#pragma once

// Vertices of a triangle soup that may share an index.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace exporter {

/// How far apart two vertices may be that become one.
struct WeldTolerance {
  float position;        // each coordinate differs by less than this; 0 asks for equal coordinates
  float normal = 0.01F;  // the length of the two normals' cross product is below this
};

/// Finds for each vertex the vertex that stands for it, which may be itself.
///
/// The vertices are taken in the order of their distance to a reference point far outside, equal distances in the order
/// of their numbers. Each one that nobody stands for yet stands for all later ones that are near it: in distance, in
/// each coordinate and, when there are normals, in the direction of the normal, whose sign does not matter. A vertex
/// that was taken in stands for nobody, so that nearness does not run on from vertex to vertex.
///
/// `coords` holds 3 floats a vertex; `normals` 3 floats a vertex as well, or nothing; a vertex that it does not reach
/// has the normal 0 0 0, which is near every other. Any floats are allowed; a vertex with a coordinate that is not
/// finite stands for itself. Returns one number a vertex. Takes about V log V steps, however many vertices coincide.
[[nodiscard]] std::vector<std::uint32_t> WeldIdenticalVertices(std::span<const float> coords,
                                                               std::span<const float> normals,
                                                               const WeldTolerance& tolerance);

}  // namespace exporter
