#pragma once

// Matrices as translation, rotation and scale, the only placements that a glTF node may have.

#include <array>
#include <glm/mat4x4.hpp>
#include <optional>

namespace embedded {

struct NodePlacement {
  std::array<double, 3> translation{0.0, 0.0, 0.0};
  std::array<double, 4> rotation{0.0, 0.0, 0.0, 1.0};  // unit quaternion x, y, z, w
  std::array<double, 3> scale{1.0, 1.0, 1.0};
};

// The scale acts first, then the rotation, then the translation; `inner`, a rotation, acts before all of them. It is
// there for matrices that shear, which no placement alone can say.
struct NodePlacements {
  NodePlacement outer;
  std::optional<NodePlacement> inner;
};

// The placements of a matrix, read as glm does, in columns; its last row does not count. What is mirrored has one
// negative scale, what is flattened a scale of 0. Nothing when an element is infinite or not a number. Numbers are
// rounded to floats.
[[nodiscard]] std::optional<NodePlacements> placementsOf(const glm::dmat4& matrix);

}  // namespace embedded
