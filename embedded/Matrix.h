#pragma once

// The host's matrices as glm's. A host matrix holds the images of the axes in its rows and acts on row vectors; a glm
// matrix holds them in its columns and acts on column vectors. Element by element the two lie alike in memory, so that
// the host's p * A * B is glm's B * A * p.

#include <VekSG/sglMat4.h>
#include <VekSG/sglVec3.h>

#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

namespace embedded {

// The host's matrix in double precision.
template <class T>
[[nodiscard]] glm::dmat4 wideMatrix(const sglMat4<T>& matrix) {
  glm::dmat4 wide;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      wide[row][column] = static_cast<double>(matrix(static_cast<unsigned>(row), static_cast<unsigned>(column)));
    }
  }
  return wide;
}

// A matrix for the host, each element rounded once.
[[nodiscard]] inline sglMat4<float> hostMatrix(const glm::dmat4& wide) {
  sglMat4<float> matrix;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      matrix(static_cast<unsigned>(row), static_cast<unsigned>(column)) = static_cast<float>(wide[row][column]);
    }
  }
  return matrix;
}

// What acts first `inner`, then `outer`.
[[nodiscard]] inline glm::dmat4 innerThenOuter(const glm::dmat4& inner, const glm::dmat4& outer) {
  return outer * inner;
}

// The image of a point.
[[nodiscard]] inline glm::dvec3 imageOf(const glm::dmat4& matrix, const glm::dvec3& point) {
  return glm::dvec3(matrix * glm::dvec4(point, 1.0));
}

}  // namespace embedded
