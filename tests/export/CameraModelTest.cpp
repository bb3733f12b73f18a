// Cameras as axis and angle, with the digits that are written.

#include "export/CameraModel.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "export/CVekVRMLLoader.h"

namespace {

using Vec3 = sglVec3<double>;

/// The orientation of a camera by its position, its z axis and its y axis, as it is printed.
std::string orientation(const Vec3& position, const Vec3& z, const Vec3& y) {
  sglVec3<float> axis;
  float angle = 0.0F;
  CVekVRMLLoader::ConvertCameraModel(position, {position.x - z.x, position.y - z.y, position.z - z.z}, y, axis, angle);
  std::array<char, 200> text{};
  const int length = std::snprintf(text.data(), text.size(), "%f %f %f %f", double{axis.x}, double{axis.y},
                                   double{axis.z}, double{angle});
  return {text.data(), static_cast<std::size_t>(length)};
}

TEST(CameraModel, OrientationsOfCameras) {
  struct Row {
    const char* name;
    Vec3 position;
    Vec3 z;
    Vec3 y;
    const char* expected;
  };
  const Row rows[] = {
      {"along -z, upright", {0, 0, 10}, {0, 0, 1}, {0, 1, 0}, "1.000000 0.000000 0.000000 0.000000"},
      {"back along z: a half turn about y", {0, 0, 0}, {0, 0, -1}, {0, 1, 0}, "0.000000 1.000000 0.000000 3.141593"},
      {"along +x: a quarter turn about -y", {0, 0, 0}, {-1, 0, 0}, {0, 1, 0}, "0.000000 -1.000000 0.000000 1.570796"},
      {"level, looking up", {0, 0, 0}, {0, -1, 0}, {0, 0, 1}, "1.000000 0.000000 0.000000 1.570796"},
      {"level, looking down", {0, 0, 0}, {0, 1, 0}, {0, 0, -1}, "-1.000000 0.000000 0.000000 1.570796"},
      {"slightly to the right", {0, 0, 0}, {-0.6F, 0, 0.8F}, {0, 1, 0}, "0.000000 -1.000000 0.000000 0.643501"},
      {"oblique",
       {0.5, -0.25, 1},
       {-0.352F, 0.864F, 0.36F},
       {-0.864F, -0.152F, -0.48F},
       "-0.688247 0.229416 0.688247 1.788512"},
      {"oblique, up along -x",
       {0.5, -0.25, 1},
       {0, 0.352F, 0.936F},
       {-1, 0, 0},
       "-0.176090 0.176090 0.968496 1.602802"},
      {"lengths do not matter", {0, 0, 0}, {-5, 0, 0}, {0, 0.01, 0}, "0.000000 -1.000000 0.000000 1.570796"},
      {"up need not be at a right angle", {0, 0, 0}, {-1, 0, 0}, {0.5, 1, 0}, "0.000000 -1.000000 0.000000 1.570796"},
  };
  for (const Row& row : rows) EXPECT_EQ(orientation(row.position, row.z, row.y), row.expected) << row.name;
}

TEST(CameraModel, FarAwayCamerasKeepTheirDirection) {
  EXPECT_EQ(orientation({1e6, -2e6, 3e6}, {-0.6F, 0, 0.8F}, {0, 1, 0}), "0.000000 -1.000000 0.000000 0.643501");
}

TEST(CameraModel, DirectionsAndUpVectorsOfNoLengthEnd) {
  const exporter::Orientation none = exporter::orientationOf({0, 0, 0}, {0, 0, 0}, {0, 0, 0});
  EXPECT_FALSE(none.angleRadians != none.angleRadians);
  const exporter::Orientation noUp = exporter::orientationOf({0, 0, 0}, {1, 0, 0}, {0, 0, 0});
  EXPECT_FALSE(noUp.angleRadians != noUp.angleRadians);
}

/// Turns a vector by an orientation (Rodrigues' formula).
Vec3 turned(const Vec3& v, const exporter::Orientation& o) {
  const double c = std::cos(o.angleRadians);
  const double s = std::sin(o.angleRadians);
  const Vec3& k = o.axis;
  const double along = (k.x * v.x + k.y * v.y + k.z * v.z) * (1 - c);
  return {v.x * c + (k.y * v.z - k.z * v.y) * s + k.x * along, v.y * c + (k.z * v.x - k.x * v.z) * s + k.y * along,
          v.z * c + (k.x * v.y - k.y * v.x) * s + k.z * along};
}

TEST(CameraModel, TheRotationCarriesTheDefaultCameraToTheGivenOne) {
  // Directions all over the sphere, each with several rolls.
  for (int i = 1; i < 40; ++i) {
    for (int j = 0; j < 12; ++j) {
      const double height = -1.0 + i / 20.0;
      const double radius = std::sqrt(1.0 - height * height);
      const Vec3 direction = {radius * std::cos(i * 2.4), radius * std::sin(i * 2.4), height};
      const double roll = j * 0.5236 + 0.1;
      // Two vectors at right angles to the direction.
      const Vec3 side = {-std::sin(i * 2.4), std::cos(i * 2.4), 0.0};
      const Vec3 over = {direction.y * side.z - direction.z * side.y, direction.z * side.x - direction.x * side.z,
                         direction.x * side.y - direction.y * side.x};
      const Vec3 up = {side.x * std::cos(roll) + over.x * std::sin(roll),
                       side.y * std::cos(roll) + over.y * std::sin(roll),
                       side.z * std::cos(roll) + over.z * std::sin(roll)};
      const exporter::Orientation o = exporter::orientationOf({0, 0, 0}, direction, up);
      const Vec3 ahead = turned({0, 0, -1}, o);
      const Vec3 above = turned({0, 1, 0}, o);
      for (unsigned axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(ahead[axis], direction[axis], 1e-6) << i << " " << j;
        EXPECT_NEAR(above[axis], up[axis], 1e-6) << i << " " << j;
      }
    }
  }
}

}  // namespace
