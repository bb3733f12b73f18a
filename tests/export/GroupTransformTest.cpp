// Placement matrices taken apart, with the digits that are written.

#include "export/GroupTransform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <string>

namespace {

using Matrix = sglMat4<float>;

std::string partsOf(const Matrix& matrix) {
  const auto& [rotation, scale, translation] = exporter::decompose(matrix);
  std::array<char, 400> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "%f %f %f %f | %f %f %f | %f %f %f", rotation.axis[0], rotation.axis[1],
                    rotation.axis[2], rotation.angleRadians, double{scale[0]}, double{scale[1]}, double{scale[2]},
                    double{translation[0]}, double{translation[1]}, double{translation[2]});
  return {text.data(), static_cast<std::size_t>(length)};
}

TEST(GroupTransform, PartsOfPlacements) {
  struct Row {
    const char* name;
    Matrix matrix;
    const char* expected;
  };
  const Row rows[] = {
      {"identity", {}, "1.000000 0.000000 0.000000 0.000000 | 1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"translation and scale",
       {{2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 0.5F, 0, 5, -6, 7.25F, 1}},
       "1.000000 0.000000 0.000000 0.000000 | 2.000000 3.000000 0.500000 | 5.000000 -6.000000 7.250000"},
      {"a quarter turn about z",
       {{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
       "0.000000 0.000000 1.000000 1.570796 | 1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"a half turn about x, where the trace is not positive",
       {{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1}},
       "1.000000 0.000000 0.000000 3.141593 | 1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"a half turn about y",
       {{-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1}},
       "0.000000 1.000000 0.000000 3.141593 | 1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"a half turn about z",
       {{-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
       "0.000000 0.000000 1.000000 3.141593 | 1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"a mirror along x",
       {{-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
       "1.000000 0.000000 0.000000 0.000000 | -1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"a mirror along y: z keeps its direction, then y turns x round",
       {{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
       "0.000000 0.000000 1.000000 3.141593 | -1.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"the fourth column counts for the lengths",
       {{3, 0, 0, 4, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
       "1.000000 0.000000 0.000000 0.000000 | 5.000000 1.000000 1.000000 | 0.000000 0.000000 0.000000"},
      {"a shear: the lengths are those of the given rows",
       {{1, 0, 0, 0, 3, 4, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1}},
       "-0.000000 0.000000 -1.000000 0.643501 | 1.000000 5.000000 2.000000 | 0.000000 0.000000 0.000000"},
  };
  for (const Row& row : rows) EXPECT_EQ(partsOf(row.matrix), row.expected) << row.name;
}

TEST(GroupTransform, LengthsAreFiniteAndExactWhateverTheSize) {
  const auto scaleOf = [](float factor) {
    Matrix matrix;
    for (unsigned row = 0; row < 3; ++row) matrix(row, row) = -factor;
    return exporter::decompose(matrix).scale;
  };
  for (const float factor : {1e-40F, 1e-30F, 1e-20F, 3.0F, 1e20F, 1e30F, 3e38F}) {
    EXPECT_EQ(scaleOf(factor), (std::array{-factor, factor, factor})) << factor;
  }
  // The nearest float of a length whose squares are no floats.
  const Matrix turned = {{4.1F, 5.3F, 3.7F, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
  EXPECT_EQ(exporter::decompose(turned).scale[0], 7.654410362F);
}

TEST(GroupTransform, AMatrixWithoutARotationHasNoAxis) {
  EXPECT_EQ(partsOf({{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 1}}),
            "0.000000 0.000000 0.000000 0.000000 | 0.000000 0.000000 0.000000 | 1.000000 2.000000 3.000000");
  Matrix notNumbers;
  for (unsigned i = 0; i < 12; ++i) notNumbers[i] = std::numeric_limits<float>::quiet_NaN();
  const exporter::GroupTransform parts = exporter::decompose(notNumbers);
  EXPECT_EQ(parts.rotation.axis, (std::array{0.0, 0.0, 0.0}));
  EXPECT_EQ(parts.rotation.angleRadians, 0.0);
}

TEST(GroupTransform, QuaternionsThatAreNotOfUnitLengthGiveNoRotation) {
  EXPECT_EQ(exporter::axisAngleOf({0, 0, 0, 1.0002}).axis, (std::array{0.0, 0.0, 0.0}));
  EXPECT_EQ(exporter::axisAngleOf({0, 0, 0, 1.00005}).axis, (std::array{1.0, 0.0, 0.0}));
  EXPECT_EQ(exporter::axisAngleOf({0.000009, 0, 0, 1}).axis, (std::array{1.0, 0.0, 0.0}));
  EXPECT_EQ(exporter::axisAngleOf({0, 0.00002, 0, 1}).axis, (std::array{0.0, 1.0, 0.0}));
}

TEST(GroupTransform, AnglesAboveHalfATurnAreNotFoldedBack) {
  // w is negative: the dominant component stays positive.
  const exporter::AxisAngle rotation = exporter::axisAngleOf({0, std::sqrt(0.75), 0, -0.5});
  EXPECT_NEAR(rotation.axis[1], 1.0, 1e-12);
  EXPECT_NEAR(rotation.angleRadians, 4 * std::numbers::pi / 3, 1e-12);
}

/// The matrix of a rotation in the row-vector convention.
Matrix rotationMatrix(double x, double y, double z, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double t = 1 - c;
  const double m[3][3] = {{c + x * x * t, x * y * t + z * s, x * z * t - y * s},
                          {x * y * t - z * s, c + y * y * t, y * z * t + x * s},
                          {x * z * t + y * s, y * z * t - x * s, c + z * z * t}};
  Matrix matrix;
  for (unsigned row = 0; row < 3; ++row) {
    for (unsigned column = 0; column < 3; ++column) matrix(row, column) = static_cast<float>(m[row][column]);
  }
  return matrix;
}

TEST(GroupTransform, RotationsComeBackWhateverTheScale) {
  for (int i = 0; i < 200; ++i) {
    const double z = -0.99 + i * 0.0099;
    const double r = std::sqrt(1 - z * z);
    const double x = r * std::cos(i * 2.4);
    const double y = r * std::sin(i * 2.4);
    Matrix matrix = rotationMatrix(x, y, z, 0.05 + i * 0.0154);
    const std::array<float, 3> factors = {0.5F, 2.0F, 3.0F};
    for (unsigned row = 0; row < 3; ++row) {
      for (unsigned column = 0; column < 3; ++column) matrix(row, column) *= factors[row];
    }
    const exporter::GroupTransform parts = exporter::decompose(matrix);
    const auto& [axis, angle] = parts.rotation;
    // The same rotation, whichever way round its axis is given.
    const Matrix back = rotationMatrix(axis[0], axis[1], axis[2], angle);
    for (unsigned row = 0; row < 3; ++row) {
      EXPECT_NEAR(parts.scale[row], factors[row], 1e-5) << i;
      for (unsigned column = 0; column < 3; ++column) {
        EXPECT_NEAR(back(row, column) * factors[row], matrix(row, column), 1e-5) << i;
      }
    }
  }
}

}  // namespace
