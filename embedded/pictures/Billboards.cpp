// Everything is brought into the billboard's own coordinates, where the rotation is a matter of two directions.

#include "embedded/pictures/Billboards.h"

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>

namespace embedded {
namespace {

constexpr double kSmallest = 1e-12;

const glm::dmat4 kIdentity(1.0);

bool isDirection(const glm::dvec3& vector) { return glm::dot(vector, vector) > kSmallest; }

// Turns z to the eye about a unit axis.
glm::dmat4 turnAbout(const glm::dvec3& axis, const glm::dvec3& eye) {
  const auto across = [&axis](const glm::dvec3& vector) { return vector - axis * glm::dot(axis, vector); };
  const glm::dvec3 from = across({0.0, 0.0, 1.0});
  const glm::dvec3 to = across(eye);
  if (!isDirection(from) || !isDirection(to)) return kIdentity;
  const double angle = std::atan2(glm::dot(axis, glm::cross(from, to)), glm::dot(from, to));
  return glm::rotate(kIdentity, angle, axis);
}

// Turns z to the eye and y as close to `up` as it gets.
glm::dmat4 turnUpright(const glm::dvec3& up, const glm::dvec3& eye) {
  const glm::dvec3 x = glm::cross(up, eye);
  if (!isDirection(x)) return kIdentity;
  const glm::dvec3 right = glm::normalize(x);
  return {glm::dvec4(right, 0.0), glm::dvec4(glm::cross(eye, right), 0.0), glm::dvec4(eye, 0.0),
          glm::dvec4(0.0, 0.0, 0.0, 1.0)};
}

glm::dvec3 unit(const glm::dvec3& vector) {
  const double length = glm::length(vector);
  return length > 0.0 && std::isfinite(length) ? vector / length : glm::dvec3(0.0);
}

}  // namespace

glm::dmat4 billboardTurn(const sglBillboard& billboard, const glm::dmat4& world, const Onlooker& onlooker) {
  const double determinant = glm::determinant(world);
  if (!std::isfinite(determinant) || determinant == 0.0) return kIdentity;
  const glm::dmat4 local = glm::inverse(world);
  const auto direction = [&local](const glm::dvec3& vector) { return unit(glm::dvec3(local * glm::dvec4(vector, 0))); };
  const glm::dvec3 eye = unit(glm::dvec3(local * onlooker.viewpoint));
  const sglVec3<double>& given = billboard.getAxis();
  const glm::dvec3 axis = unit({given.x, given.y, given.z});
  if (!isDirection(eye)) return kIdentity;
  if (!isDirection(axis)) return turnUpright(direction(onlooker.up), eye);
  switch (billboard.getMode()) {
    case sglBillboard::POINT_EYE:
      return turnUpright(axis, eye);
    case sglBillboard::POINT_WORLD:
      return turnUpright(direction({0.0, 0.0, 1.0}), eye);
    case sglBillboard::AXIAL:
      break;
  }
  return turnAbout(axis, eye);
}

}  // namespace embedded
