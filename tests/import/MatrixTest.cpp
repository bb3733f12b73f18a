#include "import/Matrix.h"

#include <gtest/gtest.h>

#include <array>
#include <numbers>

namespace {

using importer::Matrix;

std::array<double, 3> moved(const std::array<double, 3>& point, const Matrix& matrix) {
  std::array<double, 3> image{};
  for (unsigned column = 0; column < 3; ++column) {
    image[column] = matrix(3, column);
    for (unsigned row = 0; row < 3; ++row) image[column] += point[row] * matrix(row, column);
  }
  return image;
}

void expectNear(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  for (unsigned i = 0; i < 3; ++i) EXPECT_NEAR(a[i], b[i], 1e-12) << i;
}

TEST(Matrix, a_quarter_turn_about_x_lays_y_up_worlds_z_up) {
  expectNear(moved({2, 3, 5}, importer::rotation(1, 0, 0, std::numbers::pi / 2)), {2, -5, 3});
}

TEST(Matrix, rotates_about_every_axis_counterclockwise) {
  expectNear(moved({1, 0, 0}, importer::rotation(0, 0, 1, std::numbers::pi / 2)), {0, 1, 0});
  expectNear(moved({0, 0, 1}, importer::rotation(0, 1, 0, std::numbers::pi / 2)), {1, 0, 0});
  expectNear(moved({1, 2, 3}, importer::rotation(1, 1, 1, 2 * std::numbers::pi / 3)), {3, 1, 2});
}

TEST(Matrix, normalises_the_axis) {
  expectNear(moved({1, 0, 0}, importer::rotation(0, 0, 1e-30, std::numbers::pi / 2)), {0, 1, 0});
  expectNear(moved({1, 0, 0}, importer::rotation(0, 0, 1e30, std::numbers::pi / 2)), {0, 1, 0});
}

TEST(Matrix, a_zero_axis_or_a_zero_angle_is_the_identity) {
  EXPECT_EQ(importer::rotation(0, 0, 0, 1), Matrix());
  EXPECT_EQ(importer::rotation(1, 2, 3, 0), Matrix());
}

TEST(Matrix, the_leftmost_factor_acts_first) {
  using importer::operator*;
  const Matrix turnThenMove = importer::rotation(0, 0, 1, std::numbers::pi / 2) * importer::translation(10, 0, 0);
  const Matrix moveThenTurn = importer::translation(10, 0, 0) * importer::rotation(0, 0, 1, std::numbers::pi / 2);
  expectNear(moved({1, 0, 0}, turnThenMove), {10, 1, 0});
  expectNear(moved({1, 0, 0}, moveThenTurn), {0, 11, 0});
}

TEST(Matrix, narrows_each_element_once) {
  const sglMat4<float> narrow = importer::narrow(importer::translation(0.1, 1e300, -3));
  EXPECT_EQ(narrow(3, 0), 0.1F);
  EXPECT_EQ(narrow(3, 2), -3.0F);
  EXPECT_EQ(narrow(0, 0), 1.0F);
}

}  // namespace
