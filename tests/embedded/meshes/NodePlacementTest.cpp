// Every matrix comes back from its placements.

#include "embedded/meshes/NodePlacement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>

namespace {

using embedded::NodePlacement;
using embedded::placementsOf;

glm::dmat4 matrixOf(const NodePlacement& placement) {
  const auto& [x, y, z, w] = placement.rotation;
  EXPECT_NEAR(x * x + y * y + z * z + w * w, 1.0, 1e-6);
  const glm::dmat4 moved =
      glm::translate(glm::dmat4(1.0), {placement.translation[0], placement.translation[1], placement.translation[2]});
  return glm::scale(moved * glm::mat4_cast(glm::dquat(w, x, y, z)),
                    {placement.scale[0], placement.scale[1], placement.scale[2]});
}

glm::dmat4 turn(double radians, double x, double y, double z) {
  return glm::rotate(glm::dmat4(1.0), radians, glm::dvec3(x, y, z));
}

glm::dmat4 size(double x, double y, double z) { return glm::scale(glm::dmat4(1.0), glm::dvec3(x, y, z)); }

TEST(NodePlacement, MatricesComeBack) {
  const glm::dmat4 moved = glm::translate(glm::dmat4(1.0), glm::dvec3(3, -4, 5));
  const struct {
    const char* name;
    glm::dmat4 matrix;
    bool hasInner;
  } kRows[] = {
      {"identity", glm::dmat4(1.0), false},
      {"translation", moved, false},
      {"half turn", turn(3.14159265358979, 0, 1, 0), false},
      {"everything", moved * turn(1, 1, 2, 3) * size(2, 3, 0.001), false},
      {"mirrored", turn(2, 0, 1, 1) * size(1, -2, 1), false},
      {"all mirrored", size(-1, -1, -1), false},
      {"flat", turn(1, 1, 0, 0) * size(2, 0, 3), false},
      {"a line", turn(1, 1, 0, 1) * size(0, 2, 0), false},
      {"a point", size(0, 0, 0), false},
      {"shear", moved * size(1, 3, 1) * turn(0.7, 1, 1, 0), true},
      {"mirrored shear", size(1, -3, 2) * turn(0.7, 1, 1, 0), true},
      {"flat shear", size(1, 0, 2) * turn(0.7, 1, 1, 0), true},
  };
  for (const auto& row : kRows) {
    const auto placements = placementsOf(row.matrix);
    ASSERT_TRUE(placements) << row.name;
    EXPECT_EQ(placements->inner.has_value(), row.hasInner) << row.name;
    glm::dmat4 matrix = matrixOf(placements->outer);
    if (placements->inner) {
      EXPECT_EQ(placements->inner->scale, (std::array<double, 3>{1, 1, 1})) << row.name;
      matrix = matrix * matrixOf(*placements->inner);
    }
    for (int column = 0; column < 4; ++column) {
      for (int line = 0; line < 4; ++line) {
        EXPECT_NEAR(matrix[column][line], row.matrix[column][line], 1e-6) << row.name << ' ' << column << ' ' << line;
      }
    }
  }
}

TEST(NodePlacement, WhatIsNoNumberHasNone) {
  for (const double value : {std::nan(""), double{INFINITY}, 1e300}) {
    glm::dmat4 matrix(1.0);
    matrix[1][2] = value;
    EXPECT_FALSE(placementsOf(matrix));
  }
}

}  // namespace
