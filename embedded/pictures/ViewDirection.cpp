// The upward axis is the derivative of the backward one by the elevation, which has no pole.

#include "embedded/pictures/ViewDirection.h"

#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

namespace embedded {

ViewDirection defaultDirection() {
  return {glm::degrees(std::atan2(1.0, 2.0)), glm::degrees(std::atan2(1.0, std::sqrt(5.0)))};
}

std::span<const NamedDirection> namedDirections() {
  static constexpr double kIsometricElevation = 35.264389682754654;  // of the diagonal of a cube
  static constexpr std::array kDirections = {
      NamedDirection{"front", {0.0, 0.0}},
      NamedDirection{"back", {180.0, 0.0}},
      NamedDirection{"left", {-90.0, 0.0}},
      NamedDirection{"right", {90.0, 0.0}},
      NamedDirection{"top", {0.0, 90.0}},
      NamedDirection{"bottom", {0.0, -90.0}},
      NamedDirection{"iso", {45.0, kIsometricElevation}},
  };
  return kDirections;
}

EyeAxes axesOf(const ViewDirection& direction) {
  const double azimuth = glm::radians(direction.azimuthDegrees);
  const double elevation = glm::radians(direction.elevationDegrees);
  const glm::dvec3 outward(std::sin(azimuth), -std::cos(azimuth), 0.0);
  const glm::dvec3 upright(0.0, 0.0, 1.0);
  EyeAxes axes{};
  axes.back = outward * std::cos(elevation) + upright * std::sin(elevation);
  axes.up = upright * std::cos(elevation) - outward * std::sin(elevation);
  axes.right = glm::cross(axes.up, axes.back);
  return axes;
}

}  // namespace embedded
