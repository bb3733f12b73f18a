#pragma once

// The eye of a picture: where it stands, what it sees, and the two matrices that come of it.

#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>

#include "embedded/pictures/PictureBox.h"
#include "embedded/pictures/ViewDirection.h"

namespace embedded {

// Looks against `axes.back`, with `axes.up` to the top of the picture.
struct PictureCamera {
  EyeAxes axes{};
  glm::dvec3 eye{};
  bool isPerspective = true;
  double fovRadians = 0.0;  // perspective: across the smaller side of the picture, above 0 and below pi
  double span = 0.0;        // parallel: what the smaller side of the picture covers, in the world's units
};

// A perspective camera that sees all of a box from a direction, as large as it fits with a small margin. `aspect` is
// the picture's width by its height.
[[nodiscard]] PictureCamera fitCamera(const ViewDirection& direction, const PictureBox& box, double aspect);

// A parallel camera with these axes that sees all of a box in the same way.
[[nodiscard]] PictureCamera fitParallelCamera(const EyeAxes& axes, const PictureBox& box, double aspect);

// A place that the eye sees things from: homogeneous, a direction (fourth number 0) for a parallel camera.
[[nodiscard]] glm::dvec4 viewpointOf(const PictureCamera& camera);

// From the world to the eye's coordinates: x to the right, y up, the eye looks along -z.
[[nodiscard]] glm::dmat4 viewMatrix(const PictureCamera& camera);

// From the eye's coordinates to OpenGL's cube, its depth spread over what the eye sees of the box.
[[nodiscard]] glm::dmat4 projectionMatrix(const PictureCamera& camera, const PictureBox& box, double aspect);

}  // namespace embedded
