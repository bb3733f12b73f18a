// The rotation is that of the frame made orthonormal along its z axis; an axis that turned round meanwhile was
// mirrored. The rotation's square roots are taken in single precision and everything else in double, so that the digits
// written are the same wherever the export runs, and no length of a finite row is infinite before it has to be.

#include "export/GroupTransform.h"

#include <VekGeometry/CVekFrame.h>

#include <cmath>

namespace exporter {
namespace {

float rowLength(const sglMat4<float>& matrix, unsigned row) {
  double sum = 0.0;
  for (unsigned column = 0; column < 4; ++column) sum += double{matrix(row, column)} * double{matrix(row, column)};
  return static_cast<float>(std::sqrt(sum));
}

double dot(const sglVec3<float>& a, const sglVec3<float>& b) {
  return double{a.x} * double{b.x} + double{a.y} * double{b.y} + double{a.z} * double{b.z};
}

float squareRoot(double value) { return std::sqrt(static_cast<float>(value)); }

}  // namespace

Quaternion quaternionOf(const sglMat4<float>& matrix) {
  const auto m = [&matrix](unsigned row, unsigned column) { return static_cast<double>(matrix(row, column)); };
  const double trace = m(0, 0) + m(1, 1) + m(2, 2);
  if (trace > 0.0) {
    const float s = squareRoot(trace + 1.0);
    const float f = 0.5F / s;
    return {(m(1, 2) - m(2, 1)) * f, (m(2, 0) - m(0, 2)) * f, (m(0, 1) - m(1, 0)) * f, s * 0.5};
  }
  unsigned i = 0;
  if (m(1, 1) > m(0, 0)) i = 1;
  if (m(2, 2) > m(i, i)) i = 2;
  const unsigned j = (i + 1) % 3;
  const unsigned k = (i + 2) % 3;
  const float s = squareRoot((m(i, i) - (m(j, j) + m(k, k))) + 1.0);
  const float f = s == 0.0F ? s : 0.5F / s;
  std::array<double, 3> q{};
  q[i] = s * 0.5;
  q[j] = (m(i, j) + m(j, i)) * f;
  q[k] = (m(i, k) + m(k, i)) * f;
  return {q[0], q[1], q[2], (m(j, k) - m(k, j)) * f};
}

AxisAngle axisAngleOf(const Quaternion& quaternion) {
  const auto& [x, y, z, w] = quaternion;
  const double length = std::sqrt(x * x + y * y + z * z + w * w);
  if (!(std::abs(length - 1.0) < 0.0001)) return {{0.0, 0.0, 0.0}, 0.0};
  const double r = std::sqrt(x * x + y * y + z * z);
  const double angle = 2.0 * std::atan2(r, w);
  if (r > 0.00001) return {{x / r, y / r, z / r}, angle};
  return {{1.0, 0.0, 0.0}, angle};
}

GroupTransform decompose(const sglMat4<float>& matrix) {
  CVekFrame frame;
  frame.SetMatLocalToGlobal(matrix);
  const std::array before = {frame.GetVx(), frame.GetVy(), frame.GetVz()};
  frame.NormalizeOrthoAlongZ();
  const std::array after = {frame.GetVx(), frame.GetVy(), frame.GetVz()};

  GroupTransform parts{};
  for (unsigned axis = 0; axis < 3; ++axis) {
    const float length = rowLength(matrix, axis);
    parts.scale[axis] = dot(before[axis], after[axis]) < 0.0 ? -length : length;
  }
  const sglMat4<float>& orthonormal = frame.GetMatLocalToGlobal();
  parts.translation = {orthonormal[12], orthonormal[13], orthonormal[14]};
  parts.rotation = axisAngleOf(quaternionOf(orthonormal));
  return parts;
}

}  // namespace exporter
