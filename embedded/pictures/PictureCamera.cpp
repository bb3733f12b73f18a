// The closest eye of a given direction: a point with the coordinates (x, y, z) along the eye's axes is seen when
// |x - ex| <= (ez - z) * tx, and likewise for y. Each side is one plane of a fixed slope, so that the planes that touch
// the box follow from the largest x + z * tx and the smallest x - z * tx of its corners, and where they cross is as
// near as the eye may come. The side that has room left is then centred.

#include "embedded/pictures/PictureCamera.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>

namespace embedded {
namespace {

constexpr double kFovRadians = 0.5235987755982988;  // 30 degrees
constexpr double kMargin = 1.06;                    // the whole picture by the part of it that the box may fill
constexpr double kNearest = 1e-3;                   // the near plane by the far one, at least: depth has few bits

// A range of numbers.
struct Range {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  void include(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  [[nodiscard]] double middle() const { return low * 0.5 + high * 0.5; }
  [[nodiscard]] double length() const { return high - low; }
};

// What a picture covers across and upwards for one unit across its smaller side.
glm::dvec2 sidesOf(double aspect) { return {std::max(aspect, 1.0), std::max(1.0 / aspect, 1.0)}; }

glm::dvec3 along(const EyeAxes& axes, const glm::dvec3& point) {
  return {glm::dot(axes.right, point), glm::dot(axes.up, point), glm::dot(axes.back, point)};
}

glm::dvec3 world(const EyeAxes& axes, const glm::dvec3& coordinates) {
  return axes.right * coordinates.x + axes.up * coordinates.y + axes.back * coordinates.z;
}

// How far in front of the eye the box begins and ends.
Range depthsOf(const PictureCamera& camera, const PictureBox& box) {
  Range depths;
  for (const glm::dvec3& corner : box.corners()) depths.include(glm::dot(camera.axes.back, camera.eye - corner));
  return depths;
}

// Where the eye has to be along one of its axes (0 right, 1 up) to see as much of a box on one side of its view as on
// the other, when its place along the backward axis is given. The slopes to the corners fall as the eye moves on.
double centreOf(int axis, const EyeAxes& axes, const PictureBox& box, double distance) {
  std::array<glm::dvec3, 8> points = box.corners();
  Range places;
  for (glm::dvec3& point : points) {
    point = along(axes, point);
    places.include(point[axis]);
  }
  constexpr int kSteps = 60;  // more than a double has bits
  for (int step = 0; step < kSteps; ++step) {
    const double place = places.middle();
    Range slopes;
    for (const glm::dvec3& point : points) slopes.include((point[axis] - place) / (distance - point.z));
    (slopes.low + slopes.high > 0.0 ? places.low : places.high) = place;
  }
  return places.middle();
}

}  // namespace

double PictureBox::radius() const {
  const double radius = isEmpty() ? 0.0 : glm::length(m_max * 0.5 - m_min * 0.5);
  return radius > 0.0 ? radius : 1.0;
}

std::array<glm::dvec3, 8> PictureBox::corners() const {
  std::array<glm::dvec3, 8> corners{};
  for (unsigned i = 0; i < corners.size() && !isEmpty(); ++i) {
    corners[i] = {(i & 1U) != 0 ? m_max.x : m_min.x, (i & 2U) != 0 ? m_max.y : m_min.y,
                  (i & 4U) != 0 ? m_max.z : m_min.z};
  }
  return corners;
}

PictureCamera fitCamera(const ViewDirection& direction, const PictureBox& box, double aspect) {
  PictureCamera camera;
  camera.axes = axesOf(direction);
  camera.fovRadians = kFovRadians;
  const glm::dvec2 slopes = sidesOf(aspect) * (std::tan(kFovRadians / 2.0) / kMargin);
  Range right;
  Range left;
  Range top;
  Range bottom;
  Range depth;
  for (const glm::dvec3& corner : box.corners()) {
    const glm::dvec3 point = along(camera.axes, corner);
    right.include(point.x + point.z * slopes.x);
    left.include(point.x - point.z * slopes.x);
    top.include(point.y + point.z * slopes.y);
    bottom.include(point.y - point.z * slopes.y);
    depth.include(point.z);
  }
  const double forWidth = (right.high - left.low) / (2.0 * slopes.x);
  const double forHeight = (top.high - bottom.low) / (2.0 * slopes.y);
  const double inFront = depth.high + box.radius() * 1e-2;  // a box may have no width and no height
  const double distance = std::max({forWidth, forHeight, inFront});
  camera.eye =
      world(camera.axes, {centreOf(0, camera.axes, box, distance), centreOf(1, camera.axes, box, distance), distance});
  return camera;
}

PictureCamera fitParallelCamera(const EyeAxes& axes, const PictureBox& box, double aspect) {
  PictureCamera camera;
  camera.axes = axes;
  camera.isPerspective = false;
  Range across;
  Range upwards;
  Range depth;
  for (const glm::dvec3& corner : box.corners()) {
    const glm::dvec3 point = along(axes, corner);
    across.include(point.x);
    upwards.include(point.y);
    depth.include(point.z);
  }
  const glm::dvec2 sides = sidesOf(aspect);
  const double span = std::max(across.length() / sides.x, upwards.length() / sides.y);
  camera.span = kMargin * (span > 0.0 ? span : box.radius());
  camera.eye = world(axes, {across.middle(), upwards.middle(), depth.high + box.radius()});
  return camera;
}

glm::dvec4 viewpointOf(const PictureCamera& camera) {
  return camera.isPerspective ? glm::dvec4(camera.eye, 1.0) : glm::dvec4(camera.axes.back, 0.0);
}

glm::dmat4 viewMatrix(const PictureCamera& camera) {
  const EyeAxes& axes = camera.axes;
  const glm::dmat4 placed(glm::dvec4(axes.right, 0.0), glm::dvec4(axes.up, 0.0), glm::dvec4(axes.back, 0.0),
                          glm::dvec4(camera.eye, 1.0));
  return glm::inverse(placed);
}

glm::dmat4 projectionMatrix(const PictureCamera& camera, const PictureBox& box, double aspect) {
  const Range depths = depthsOf(camera, box);
  const double slack = box.radius() * 1e-2;
  const double farPlane = depths.high + slack;
  const glm::dvec2 sides = sidesOf(aspect);
  if (!camera.isPerspective) {
    const glm::dvec2 half = sides * (camera.span / 2.0);
    return glm::ortho(-half.x, half.x, -half.y, half.y, depths.low - slack, farPlane);
  }
  // The eye may stand inside the box, or with its back to it.
  const double end = farPlane > 0.0 ? farPlane : 1.0;
  const double begin = std::max(depths.low - slack, end * kNearest);
  const glm::dvec2 half = sides * (std::tan(camera.fovRadians / 2.0) * begin);
  return glm::frustum(-half.x, half.x, -half.y, half.y, begin, end);
}

}  // namespace embedded
