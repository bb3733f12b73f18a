// Columns at right angles are a rotation times a scale. Columns that are not are first turned until they are, two at a
// time (one-sided Jacobi): matrix * turns = rotation * scale, so that matrix = rotation * scale * inverse of the turns.

#include "embedded/meshes/NodePlacement.h"

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat3x3.hpp>

namespace embedded {
namespace {

// The cosine up to which columns count as perpendicular: what rounding to floats leaves of right angles.
constexpr double kRightAngle = 1e-6;
constexpr int kMaxSweeps = 32;

double rounded(double value) { return double{static_cast<float>(value)} + 0.0; }

bool isFinite(const glm::dmat4& matrix) {
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 3; ++row) {
      if (!std::isfinite(static_cast<float>(matrix[column][row]))) return false;
    }
  }
  return true;
}

bool arePerpendicular(const glm::dvec3& a, const glm::dvec3& b) {
  return std::abs(glm::dot(a, b)) <= kRightAngle * glm::length(a) * glm::length(b);
}

bool isPerpendicular(const glm::dmat3& matrix) {
  return arePerpendicular(matrix[0], matrix[1]) && arePerpendicular(matrix[1], matrix[2]) &&
         arePerpendicular(matrix[2], matrix[0]);
}

// Turns columns p and q of both matrices by the angle that makes those of `columns` perpendicular.
void turnPair(glm::dmat3& columns, glm::dmat3& turns, int p, int q) {
  const double product = glm::dot(columns[p], columns[q]);
  if (product == 0.0) return;
  const double zeta = (glm::dot(columns[q], columns[q]) - glm::dot(columns[p], columns[p])) / (2.0 * product);
  const double tangent = std::copysign(1.0, zeta) / (std::abs(zeta) + std::sqrt(1.0 + zeta * zeta));
  const double cosine = 1.0 / std::sqrt(1.0 + tangent * tangent);
  const double sine = cosine * tangent;
  for (glm::dmat3* matrix : {&columns, &turns}) {
    const glm::dvec3 old = (*matrix)[p];
    (*matrix)[p] = cosine * old - sine * (*matrix)[q];
    (*matrix)[q] = sine * old + cosine * (*matrix)[q];
  }
}

// Any unit vector at right angles to a unit vector.
glm::dvec3 perpendicularTo(const glm::dvec3& unit) {
  const glm::dvec3 axis = std::abs(unit.x) < 0.5 ? glm::dvec3(1.0, 0.0, 0.0) : glm::dvec3(0.0, 1.0, 0.0);
  return glm::normalize(glm::cross(unit, axis));
}

// Unit columns at right angles in the directions of those that have a length; the others are made to fit.
glm::dmat3 completed(const glm::dmat3& columns, const glm::dvec3& lengths) {
  glm::dmat3 unit(1.0);
  int longest = 0;
  for (int i = 1; i < 3; ++i) longest = lengths[i] > lengths[longest] ? i : longest;
  if (lengths[longest] == 0.0) return unit;
  const int next = (longest + 1) % 3;
  const int last = (longest + 2) % 3;
  unit[longest] = columns[longest] / lengths[longest];
  const bool hasNext = lengths[next] > 0.0;
  const bool hasLast = lengths[last] > 0.0;
  if (hasNext) unit[next] = columns[next] / lengths[next];
  if (hasLast) unit[last] = columns[last] / lengths[last];
  if (!hasNext) unit[next] = hasLast ? glm::cross(unit[last], unit[longest]) : perpendicularTo(unit[longest]);
  if (!hasLast) unit[last] = glm::cross(unit[longest], unit[next]);
  return unit;
}

NodePlacement placementOf(const glm::dmat3& perpendicular, const glm::dvec3& translation) {
  glm::dvec3 scale(glm::length(perpendicular[0]), glm::length(perpendicular[1]), glm::length(perpendicular[2]));
  glm::dmat3 rotation = completed(perpendicular, scale);
  if (glm::dot(glm::cross(rotation[0], rotation[1]), rotation[2]) < 0.0) {
    rotation[0] = -rotation[0];
    scale.x = -scale.x;
  }
  const glm::dquat turn = glm::normalize(glm::quat_cast(rotation));
  NodePlacement placement;
  for (int axis = 0; axis < 3; ++axis) {
    placement.translation[static_cast<std::size_t>(axis)] = rounded(translation[axis]);
    placement.scale[static_cast<std::size_t>(axis)] = rounded(scale[axis]);
  }
  placement.rotation = {rounded(turn.x), rounded(turn.y), rounded(turn.z), rounded(turn.w)};
  return placement;
}

}  // namespace

std::optional<NodePlacements> placementsOf(const glm::dmat4& matrix) {
  if (!isFinite(matrix)) return std::nullopt;
  glm::dmat3 columns(matrix);
  glm::dmat3 turns(1.0);
  const bool hasShear = !isPerpendicular(columns);
  for (int sweep = 0; sweep < kMaxSweeps && !isPerpendicular(columns); ++sweep) {
    turnPair(columns, turns, 0, 1);
    turnPair(columns, turns, 1, 2);
    turnPair(columns, turns, 2, 0);
  }
  NodePlacements placements{placementOf(columns, glm::dvec3(matrix[3])), std::nullopt};
  if (hasShear) placements.inner = placementOf(glm::transpose(turns), glm::dvec3(0.0));
  return placements;
}

}  // namespace embedded
