// The composed matrix of a transform against a product of its factors, each written down as a matrix of its own.

#include "vrml/nodes/TransformNode.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>

#include "vrml/fields/Fields.h"

namespace vrml {
namespace {

using Matrix = std::array<double, 16>;

constexpr Matrix kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Matrix operator*(const Matrix& a, const Matrix& b) {
  Matrix result{};
  for (std::size_t row = 0; row < 4; ++row)
    for (std::size_t column = 0; column < 4; ++column)
      for (std::size_t k = 0; k < 4; ++k) result[row * 4 + column] += a[row * 4 + k] * b[k * 4 + column];
  return result;
}

Matrix translate(const SFVec3f& by, double sign) {
  Matrix result = kIdentity;
  for (std::size_t i = 0; i < 3; ++i) result[12 + i] = sign * static_cast<double>(by.getValue()[i]);
  return result;
}

Matrix scale(const SFVec3f& by) {
  Matrix result = kIdentity;
  for (std::size_t i = 0; i < 3; ++i) result[i * 5] = static_cast<double>(by.getValue()[i]);
  return result;
}

// Rows are the images of the unit axes: v' = v cos + (axis x v) sin + axis (axis . v)(1 - cos).
Matrix rotate(const SFRotation& by, double sign) {
  const std::array<double, 3> axis{static_cast<double>(by.x()), static_cast<double>(by.y()),
                                   static_cast<double>(by.z())};
  const double length = std::hypot(axis[0], axis[1], axis[2]);
  if (length == 0.0) return kIdentity;
  const double angle = sign * static_cast<double>(by.angle());
  Matrix result = kIdentity;
  for (std::size_t row = 0; row < 3; ++row) {
    std::array<double, 3> v{};
    v[row] = 1.0;
    const double dot = axis[row] / length;
    for (std::size_t i = 0; i < 3; ++i) {
      const double a1 = axis[(i + 1) % 3] / length;
      const double a2 = axis[(i + 2) % 3] / length;
      const double cross = a1 * v[(i + 2) % 3] - a2 * v[(i + 1) % 3];
      result[row * 4 + i] =
          v[i] * std::cos(angle) + cross * std::sin(angle) + axis[i] / length * dot * (1.0 - std::cos(angle));
    }
  }
  return result;
}

void expectMatrix(const TransformNode& node, const Matrix& expected) {
  double matrix[16];
  node.getMatrix(matrix);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(matrix[i], expected[i], 1e-9 * (1.0 + std::fabs(expected[i]))) << i;
}

Matrix composed(const TransformNode& node) {
  return translate(node.getCenter(), -1) * rotate(node.getScaleOrientation(), -1) * scale(node.getScale()) *
         rotate(node.getScaleOrientation(), 1) * rotate(node.getRotation(), 1) * translate(node.getCenter(), 1) *
         translate(node.getTranslation(), 1);
}

TEST(TransformNode, OfDefaultsIsTheIdentity) {
  double matrix[16];
  TransformNode().getMatrix(matrix);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(matrix[i], kIdentity[i]);
}

TEST(TransformNode, MovesAfterItTurns) {
  TransformNode node;
  node.setRotation(0, 0, 1, 1.57079632679f);
  node.setTranslation(10, 0, 0);
  node.setScale(2, 1, 1);
  // (1, 0, 0) is scaled to (2, 0, 0), turned to (0, 2, 0) and moved to (10, 2, 0).
  double m[16];
  node.getMatrix(m);
  EXPECT_NEAR(m[0] + m[12], 10.0, 1e-6);
  EXPECT_NEAR(m[1] + m[13], 2.0, 1e-6);
}

TEST(TransformNode, KeepsItsCentreInPlace) {
  TransformNode node;
  node.setCenter(1, 2, 3);
  node.setRotation(1, 1, 0, 2);
  node.setScale(3, 4, 5);
  double m[16];
  node.getMatrix(m);
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_NEAR(1 * m[i] + 2 * m[4 + i] + 3 * m[8 + i] + m[12 + i], static_cast<double>(i + 1), 1e-6);
}

TEST(TransformNode, AZeroAxisOrAngleTurnsNothing) {
  TransformNode node;
  node.setRotation(0, 0, 0, 2);
  node.setScaleOrientation(0, 0, 0, 1);
  expectMatrix(node, kIdentity);
  node.setRotation(0, 1, 0, 0);
  node.setScaleOrientation(1, 0, 0, 0);
  expectMatrix(node, kIdentity);
}

TEST(TransformNode, ScaleOrientationTurnsTheAxesOfTheScale) {
  TransformNode node;
  node.setScale(2, 1, 1);
  node.setScaleOrientation(0, 0, 1, 1.57079632679f);
  const Matrix stretchesY{1, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  double m[16];
  node.getMatrix(m);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(m[i], stretchesY[i], 1e-6);
}

TEST(TransformNode, EqualsTheProductOfItsFactors) {
  std::uint32_t state = 12345;
  const auto next = [&state] {
    state = state * 1664525u + 1013904223u;
    return static_cast<float>(state >> 8) / 8388608.0f * 10.0f - 10.0f;
  };
  for (int i = 0; i < 500; ++i) {
    TransformNode node;
    node.setTranslation(next(), next(), next());
    node.setScale(next(), next(), next());
    if (i % 2 == 0) node.setRotation(next(), next(), next(), next());
    if (i % 3 == 0) node.setCenter(next(), next(), next());
    if (i % 5 == 0) node.setScaleOrientation(next(), next(), next(), next());
    expectMatrix(node, composed(node));
  }
}

}  // namespace
}  // namespace vrml
