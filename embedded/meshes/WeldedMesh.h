#pragma once

// A geo-set as other formats hold meshes: one vertex with all its values for each index.

#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglMat4.h>

#include <cstddef>
#include <cstdint>
#include <glm/mat4x4.hpp>
#include <vector>

namespace embedded {

// Every vertex differs from every other one in some value. The lists of values are as long as `positions` has vertices,
// or empty when the geo-set has no such values.
struct WeldedMesh {
  std::vector<float> positions;        // 3 a vertex, finite
  std::vector<float> normals;          // 3 a vertex, unit length
  std::vector<float> colors;           // 4 a vertex, 0 to 1
  std::vector<float> texCoords;        // 2 a vertex, finite, the origin at the image's lower left
  std::vector<std::uint32_t> indices;  // 3 a triangle, counterclockwise seen from its front
  std::size_t endlessCount = 0;        // triangles left out for a position that is infinite or not a number
};

// What is done to a geo-set on the way.
struct WeldOptions {
  glm::dmat4 placement{1.0};     // applied to positions and normals; read as glm does, in columns
  sglMat4<float> textureMatrix;  // applied to texture coordinates (u, v, 0)
  bool isClockwise = false;      // the geo-set's triangles go clockwise
  bool wantsNormals = false;     // a set without normals gets those of its triangles
};

// The triangles of a geo-set, in their order. A corner whose normal is missing, zero or no number gets the triangle's.
[[nodiscard]] WeldedMesh weldedMesh(const sglIndexedTriangleSet& set, const WeldOptions& options);

}  // namespace embedded
