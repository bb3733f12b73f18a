#pragma once

// What a scene measures.

#include <VekGeometry/CVekBBox.h>

#include <cstdint>

#include "embedded/SceneWalk.h"

namespace embedded {

// The box around all corners of all triangles, in the coordinates above the root. Empty when there are none. `scene`
// may be null.
[[nodiscard]] CVekBBox sceneBounds(const sglNode* scene, SceneChoice choice);

// Grows a box by the corners of a scene whose coordinates `outer` leads to the box's.
void includeScene(const sglNode* scene, SceneChoice choice, const glm::dmat4& outer, CVekBBox& box);

// The number of triangles, primitives as they are tessellated. `scene` may be null.
[[nodiscard]] std::uint64_t sceneTriangleCount(const sglNode* scene, SceneChoice choice);

}  // namespace embedded
