// Cameras are tried on the corners of boxes: where each comes to lie in OpenGL's cube, -1 to 1 on every axis.

#include "embedded/pictures/PictureCamera.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <numbers>
#include <vector>

namespace embedded {
namespace {

PictureBox boxOf(const glm::dvec3& low, const glm::dvec3& high) {
  PictureBox box;
  box.include(low);
  box.include(high);
  return box;
}

struct Extent {
  glm::dvec3 low{2.0};
  glm::dvec3 high{-2.0};
};

Extent extentIn(const PictureCamera& camera, const PictureBox& box, double aspect) {
  Extent extent;
  for (const glm::dvec3& corner : box.corners()) {
    const glm::dvec4 image = projectionMatrix(camera, box, aspect) * viewMatrix(camera) * glm::dvec4(corner, 1.0);
    extent.low = glm::min(extent.low, glm::dvec3(image) / image.w);
    extent.high = glm::max(extent.high, glm::dvec3(image) / image.w);
  }
  return extent;
}

const std::vector<PictureBox>& boxes() {
  static const std::vector<PictureBox> kBoxes = {
      boxOf({0, 0, 0}, {1, 1, 1}),
      boxOf({-5, 2, 3}, {5, 2.5, 4}),
      boxOf({0, 0, 0}, {0, 0, 9}),
      boxOf({-1, -1, 0}, {1, 1, 0}),
      boxOf({1e6, 1e6, 0}, {1e6 + 1, 1e6 + 2, 3}),
      boxOf({0, 0, 0}, {1e-9, 1e-9, 1e-9}),
      boxOf({-3e38, -3e38, -3e38}, {3e38, 3e38, 3e38}),
  };
  return kBoxes;
}

TEST(PictureCamera, sees_the_whole_box_as_large_as_it_fits) {
  for (const PictureBox& box : boxes()) {
    for (const NamedDirection& named : namedDirections()) {
      for (const double aspect : {0.4, 1.0, 4.0 / 3.0}) {
        for (const bool isPerspective : {true, false}) {
          SCOPED_TRACE(std::string(named.name) + ' ' + std::to_string(aspect) + ' ' + std::to_string(box.radius()));
          const PictureCamera camera = isPerspective ? fitCamera(named.direction, box, aspect)
                                                     : fitParallelCamera(axesOf(named.direction), box, aspect);
          const Extent extent = extentIn(camera, box, aspect);
          for (int axis = 0; axis < 3; ++axis) {
            EXPECT_GT(extent.low[axis], -1.0);
            EXPECT_LT(extent.high[axis], 1.0);
          }
          for (int axis = 0; axis < 2; ++axis) EXPECT_NEAR(extent.low[axis], -extent.high[axis], 1e-5);
          // One side fills the picture but for the margin, unless the box has no extent across the view.
          const double filled = std::max(extent.high.x, extent.high.y);
          const bool isSeenFromItsEnd = filled < 0.01;
          if (!isSeenFromItsEnd) {
            EXPECT_NEAR(filled, 1.0 / 1.06, 2e-3);
          }
        }
      }
    }
  }
}

TEST(PictureCamera, has_something_to_look_at_in_an_empty_box_and_in_a_point) {
  for (const PictureBox& box : {PictureBox(), boxOf({3, 4, 5}, {3, 4, 5})}) {
    const PictureCamera camera = fitCamera(defaultDirection(), box, 1.5);
    const glm::dvec4 image = projectionMatrix(camera, box, 1.5) * viewMatrix(camera) * glm::dvec4(box.centre(), 1.0);
    EXPECT_NEAR(image.x / image.w, 0.0, 1e-9);
    EXPECT_NEAR(image.y / image.w, 0.0, 1e-9);
    EXPECT_LT(std::abs(image.z / image.w), 1.0);
  }
}

TEST(PictureCamera, shows_what_lies_to_the_right_at_the_right_and_what_is_up_above) {
  const PictureBox box = boxOf({-1, -1, -1}, {1, 1, 1});
  const PictureCamera camera = fitCamera({0.0, 0.0}, box, 1.0);
  const auto imageOf = [&](const glm::dvec3& point) {
    const glm::dvec4 image = projectionMatrix(camera, box, 1.0) * viewMatrix(camera) * glm::dvec4(point, 1.0);
    return glm::dvec3(image) / image.w;
  };
  EXPECT_GT(imageOf({1, 0, 0}).x, 0.1);
  EXPECT_GT(imageOf({0, 0, 1}).y, 0.1);
  EXPECT_LT(imageOf({0, -1, 0}).z, imageOf({0, 1, 0}).z);  // nearer
}

TEST(PictureCamera, keeps_a_usable_depth_for_an_eye_inside_or_beyond_the_box) {
  const PictureBox box = boxOf({-1, -1, -1}, {1, 1, 1});
  PictureCamera camera;
  camera.axes = axesOf({0.0, 0.0});
  camera.fovRadians = std::numbers::pi / 4;
  for (const double y : {0.0, 50.0}) {
    camera.eye = {0.0, y, 0.0};
    const glm::dmat4 projection = projectionMatrix(camera, box, 1.0);
    for (int column = 0; column < 4; ++column) {
      for (int row = 0; row < 4; ++row) EXPECT_TRUE(std::isfinite(projection[column][row]));
    }
    EXPECT_LT(projection[2][3], 0.0);
  }
}

}  // namespace
}  // namespace embedded
