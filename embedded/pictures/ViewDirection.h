#pragma once

// Where the eye stands around a model, in a world that is upright along z and shows its front to -y.

#include <glm/vec3.hpp>
#include <span>
#include <string_view>

namespace embedded {

// From the model to the eye, in degrees. Azimuth 0 is in front, 90 at the right; elevation 90 is above.
struct ViewDirection {
  double azimuthDegrees = 0.0;
  double elevationDegrees = 0.0;
};

// From the front, the right and above: the direction of the host's own first camera.
[[nodiscard]] ViewDirection defaultDirection();

struct NamedDirection {
  std::string_view name;
  ViewDirection direction;
};

// The directions that have a name: front, back, left, right, top, bottom, iso.
[[nodiscard]] std::span<const NamedDirection> namedDirections();

// The axes of an eye, unit vectors at right angles, right-handed.
struct EyeAxes {
  glm::dvec3 right;
  glm::dvec3 up;
  glm::dvec3 back;  // against the direction that the eye looks in
};

// The axes of an eye that looks at the model from a direction. Upright at any elevation: straight from above the top of
// the picture is the model's back.
[[nodiscard]] EyeAxes axesOf(const ViewDirection& direction);

}  // namespace embedded
