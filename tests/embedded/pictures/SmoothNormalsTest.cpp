#include "embedded/pictures/SmoothNormals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>
#include <glm/vec3.hpp>

namespace embedded {
namespace {

glm::dvec3 normalAt(const std::vector<float>& normals, std::size_t corner) {
  return {normals[corner * 3], normals[corner * 3 + 1], normals[corner * 3 + 2]};
}

void expectNear(const glm::dvec3& actual, const glm::dvec3& expected) {
  for (int axis = 0; axis < 3; ++axis) EXPECT_NEAR(actual[axis], expected[axis], 1e-6) << "axis " << axis;
}

// Two squares of two triangles each that meet along x = 0, the right one turned up by an angle. Corners 1 and 2 of the
// first square, and 0 and 3 of the second, lie on the edge. With a seam the second has points of its own there.
struct Fold {
  std::vector<float> points;
  std::vector<std::uint32_t> corners;
};

Fold foldOf(double degrees, bool hasSeam) {
  const auto x = static_cast<float>(std::cos(glm::radians(degrees)));
  const auto z = static_cast<float>(std::sin(glm::radians(degrees)));
  Fold fold{{-1, 0, 0, 0, 0, 0, 0, 1, 0, -1, 1, 0, x, 0, z, x, 1, z}, {0, 1, 2, 0, 2, 3, 1, 4, 5, 1, 5, 2}};
  if (hasSeam) {
    fold.points.insert(fold.points.end(), {-0.0F, 0, 0, 0, 1, -0.0F});
    fold.corners = {0, 1, 2, 0, 2, 3, 6, 4, 5, 6, 5, 7};
  }
  return fold;
}

TEST(SmoothNormals, bend_across_edges_under_30_degrees_and_not_across_sharper_ones) {
  const struct {
    double degrees;
    bool isSmooth;
  } kRows[] = {{0, true}, {20, true}, {29.9, true}, {30.1, false}, {60, false}, {90, false}, {-25, true}, {-40, false}};
  for (const auto& row : kRows) {
    for (const bool hasSeam : {false, true}) {
      SCOPED_TRACE(row.degrees);
      const Fold fold = foldOf(row.degrees, hasSeam);
      const std::vector<float> normals = smoothNormals(fold.points, fold.corners);
      ASSERT_EQ(normals.size(), fold.corners.size() * 3);
      const double angle = glm::radians(row.degrees);
      const glm::dvec3 left(0, 0, 1);
      const glm::dvec3 right(-std::sin(angle), 0, std::cos(angle));
      const glm::dvec3 middle = glm::normalize(left + right);
      expectNear(normalAt(normals, 0), left);  // far from the edge
      expectNear(normalAt(normals, 7), right);
      expectNear(normalAt(normals, 1), row.isSmooth ? middle : left);  // on the edge
      expectNear(normalAt(normals, 6), row.isSmooth ? middle : right);
    }
  }
}

TEST(SmoothNormals, stay_apart_where_a_vertex_is_shared_but_no_smooth_edge) {
  // A flat triangle, and one that touches it in a point only.
  const std::vector<float> points = {0, 0, 0, 1, 0, 0, 0, 1, 0, -1, 0, 0.1F, 0, -1, 0.1F};
  const std::vector<float> normals = smoothNormals(points, std::vector<std::uint32_t>{0, 1, 2, 0, 3, 4});
  expectNear(normalAt(normals, 0), {0, 0, 1});
  EXPECT_LT(normalAt(normals, 3).z, 0.9999);
}

TEST(SmoothNormals, keep_the_two_sides_of_a_sheet_apart) {
  const std::vector<float> points = {0, 0, 0, 1, 0, 0, 0, 1, 0};
  const std::vector<float> normals = smoothNormals(points, std::vector<std::uint32_t>{0, 1, 2, 0, 2, 1});
  for (std::size_t corner = 0; corner < 3; ++corner) {
    expectNear(normalAt(normals, corner), {0, 0, 1});
    expectNear(normalAt(normals, corner + 3), {0, 0, -1});
  }
}

TEST(SmoothNormals, weigh_triangles_by_their_angle_and_not_by_their_number) {
  // The left square of a fold as two triangles that both touch the corner, the right one as one.
  Fold fold = foldOf(20, false);
  fold.corners = {0, 1, 3, 1, 2, 3, 1, 4, 5, 1, 5, 2};
  const std::vector<float> normals = smoothNormals(fold.points, fold.corners);
  const double angle = glm::radians(20.0);
  expectNear(normalAt(normals, 1), glm::normalize(glm::dvec3(-std::sin(angle), 0, 1 + std::cos(angle))));
}

TEST(SmoothNormals, are_zero_for_what_has_no_area_or_is_not_finite) {
  const float infinity = std::numeric_limits<float>::infinity();
  const std::vector<float> points = {0, 0, 0, 1, 0, 0, 2, 0, 0, infinity, NAN, 0};
  const std::vector<float> normals = smoothNormals(points, std::vector<std::uint32_t>{0, 1, 2, 0, 0, 1, 0, 1, 3});
  for (const float number : normals) EXPECT_EQ(number, 0.0F);
  EXPECT_TRUE(smoothNormals({}, {}).empty());
}

TEST(SmoothNormals, take_a_fan_around_one_point_in_their_stride) {
  constexpr std::uint32_t kTriangles = 60'000;
  std::vector<float> points = {0, 0, 1};
  std::vector<std::uint32_t> corners;
  for (std::uint32_t i = 0; i < kTriangles; ++i) {
    const double angle = glm::radians(360.0 * i / kTriangles);
    points.insert(points.end(), {static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle)), 0.0F});
    corners.insert(corners.end(), {0, i + 1, (i + 1) % kTriangles + 1});
  }
  const auto start = std::chrono::steady_clock::now();
  const std::vector<float> normals = smoothNormals(points, corners);
  // Quadratic time would be minutes here.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_NEAR(normalAt(normals, 0).z, 1.0, 1e-3);
}

}  // namespace
}  // namespace embedded
