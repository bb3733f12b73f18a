// The directions of the eye in the host's world: upright along z, front to -y.

#include "embedded/pictures/ViewDirection.h"

#include <gtest/gtest.h>

#include <glm/geometric.hpp>
#include <string>

namespace embedded {
namespace {

void expectNear(const glm::dvec3& actual, const glm::dvec3& expected) {
  for (int axis = 0; axis < 3; ++axis) EXPECT_NEAR(actual[axis], expected[axis], 1e-9) << "axis " << axis;
}

TEST(ViewDirection, looks_upright_from_where_the_name_says) {
  const struct {
    const char* name;
    glm::dvec3 eye;
    glm::dvec3 up;
    glm::dvec3 right;
  } kRows[] = {
      {"front", {0, -1, 0}, {0, 0, 1}, {1, 0, 0}}, {"back", {0, 1, 0}, {0, 0, 1}, {-1, 0, 0}},
      {"right", {1, 0, 0}, {0, 0, 1}, {0, 1, 0}},  {"left", {-1, 0, 0}, {0, 0, 1}, {0, -1, 0}},
      {"top", {0, 0, 1}, {0, 1, 0}, {1, 0, 0}},    {"bottom", {0, 0, -1}, {0, -1, 0}, {1, 0, 0}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    bool isThere = false;
    for (const NamedDirection& named : namedDirections()) {
      if (named.name != row.name) continue;
      isThere = true;
      const EyeAxes axes = axesOf(named.direction);
      expectNear(axes.back, row.eye);
      expectNear(axes.up, row.up);
      expectNear(axes.right, row.right);
    }
    EXPECT_TRUE(isThere);
  }
}

TEST(ViewDirection, isometric_looks_along_the_diagonal_of_a_cube) {
  for (const NamedDirection& named : namedDirections()) {
    if (named.name == "iso") expectNear(axesOf(named.direction).back, glm::normalize(glm::dvec3(1, -1, 1)));
  }
  expectNear(axesOf(defaultDirection()).back, glm::normalize(glm::dvec3(1, -2, 1)));
}

TEST(ViewDirection, has_axes_at_right_angles_at_any_angles) {
  for (double azimuth = -400; azimuth < 400; azimuth += 37) {
    for (double elevation = -200; elevation < 200; elevation += 25) {
      const EyeAxes axes = axesOf({azimuth, elevation});
      EXPECT_NEAR(glm::length(axes.up), 1.0, 1e-9);
      EXPECT_NEAR(glm::length(axes.back), 1.0, 1e-9);
      expectNear(glm::cross(axes.right, axes.up), axes.back);
    }
  }
}

}  // namespace
}  // namespace embedded
