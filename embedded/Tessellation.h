#pragma once

// Primitives as triangles, any drawable as one indexed triangle set, and copies of drawables.

#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglPrimitive.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>

namespace embedded {

// The triangles of a primitive: outward faces counterclockwise, one normal and one texture coordinate a position. All
// four lists are always there.
struct PrimitiveMesh {
  sglRef<sglDataPtr> coords;     // 3 floats a vertex
  sglRef<sglDataPtr> normals;    // 3 floats a vertex, unit length
  sglRef<sglDataPtr> texCoords;  // 2 floats a vertex; an image is upright on what an import has placed
  sglRef<sglDataPtr> indices;    // 3 a triangle, for all of these alike
};

// Makes the triangles of primitives and keeps them: primitives of equal measures share their lists. A cube spans 0 to
// its size on each axis; a cone and a cylinder run from 0 to their height along z, a cone's tip at the far end; a
// sphere's centre is at half its radius on each axis. Numbers of pieces outside 3 to 1024 around, 1 to 1024 along and 2
// to 1024 from pole to pole count as the nearest that is inside.
class Tessellator {
 public:
  // The triangles of a primitive; they hold as long as somebody has a reference on the lists.
  const PrimitiveMesh& meshOf(const sglPrimitive& primitive);

  // A new indexed triangle set that looks like the drawable: the same triangles, normals, colours and texture
  // coordinates, the same states, display list flag and name. Lists of values are shared with the source, index lists
  // too where it has them in that form. Null for null and for a drawable that is no geo-set.
  [[nodiscard]] std::unique_ptr<sglIndexedTriangleSet> triangleSetOf(const sglDrawable* drawable);

  // A new drawable of the same kind that shares every list and state; a primitive becomes an indexed triangle set. Null
  // for null and for a drawable that is no geo-set.
  [[nodiscard]] std::unique_ptr<sglDrawable> copyOf(const sglDrawable* drawable);

 private:
  using Measures = std::array<std::uint32_t, 7>;  // kind, then the measures' bits

  std::map<Measures, PrimitiveMesh> m_meshes;
};

// The number of triangles that a primitive is made into.
[[nodiscard]] std::uint64_t countTriangles(const sglPrimitive& primitive);

}  // namespace embedded
