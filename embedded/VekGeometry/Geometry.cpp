// Frames and boxes. Lengths and products are computed in double and narrowed once, so that the rounding does not grow
// with the number of steps.

#include <VekGeometry/CVekBBox.h>
#include <VekGeometry/CVekFrame.h>
#include <VekGeometry/CVekGeomTools.h>
#include <VekGeometry/CVekPropLocation.h>

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>

namespace {

glm::dvec3 wide(const sglVec3<float>& vector) { return {vector.x, vector.y, vector.z}; }

// The unit vector, or the zero vector of a zero vector.
glm::dvec3 normalised(const glm::dvec3& vector) {
  const double length = glm::length(vector);
  return length == 0.0 ? vector : vector / length;
}

void setRow(sglMat4<float>& matrix, unsigned row, const glm::dvec3& vector) {
  matrix(row, 0) = static_cast<float>(vector.x);
  matrix(row, 1) = static_cast<float>(vector.y);
  matrix(row, 2) = static_cast<float>(vector.z);
}

}  // namespace

void CVekFrame::NormalizeOrthoAlongZ() {
  const glm::dvec3 z = normalised(wide(GetVz()));
  const glm::dvec3 x = normalised(glm::cross(wide(GetVy()), z));
  const glm::dvec3 y = glm::cross(z, x);
  setRow(m_matrix, 0, x);
  setRow(m_matrix, 1, y);
  setRow(m_matrix, 2, z);
}

sglVec3<float> CVekFrame::TransformPoint(const sglMat4<float>& matrix, const sglVec3<float>& point) {
  sglVec3<float> image;
  for (unsigned column = 0; column < 3; ++column) {
    double sum = double{matrix(3, column)};
    for (unsigned row = 0; row < 3; ++row) sum += double{point[row]} * double{matrix(row, column)};
    image[column] = static_cast<float>(sum);
  }
  return image;
}

CVekPropLocation::~CVekPropLocation() = default;

float CVekBBox::GetDiagonal() const {
  if (isEmpty()) return 0.0F;
  return static_cast<float>(glm::length(wide(getMax()) - wide(getMin())));
}

int CVekGeomTools::compare(const void* first, const void* second) {
  const auto& a = *static_cast<const WeldRecord*>(first);
  const auto& b = *static_cast<const WeldRecord*>(second);
  // What is not a number comes last, so that the order stays one.
  const bool aIsNumber = !std::isnan(a.distance);
  const bool bIsNumber = !std::isnan(b.distance);
  if (aIsNumber != bIsNumber) return aIsNumber ? -1 : 1;
  if (aIsNumber && a.distance != b.distance) return a.distance < b.distance ? -1 : 1;
  return a.index == b.index ? 0 : a.index < b.index ? -1 : 1;
}
