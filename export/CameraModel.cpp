// Two rotations after each other: the first carries -z to the view direction, the second turns about the view direction
// until the carried y axis meets the up vector. Everything is computed in double precision, so that a level camera has
// no stray component in the sixth decimal.

#include "export/CameraModel.h"

#include <algorithm>
#include <cmath>

namespace exporter {
namespace {

using Vec3 = sglVec3<double>;

// Squared lengths, and sines, below this count as 0.
constexpr double kTiny = 0.00000001;

struct Quaternion {
  Vec3 v;
  double w;
};

Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vec3 operator*(const Vec3& a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
double dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vec3 cross(const Vec3& a, const Vec3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// A zero vector stays as it is.
Vec3 normalized(const Vec3& a) {
  const double length = std::sqrt(dot(a, a));
  return length == 0.0 ? a : a * (1.0 / length);
}

/// The Hamilton product: `b` acts first.
Quaternion operator*(const Quaternion& a, const Quaternion& b) {
  return {b.v * a.w + a.v * b.w + cross(a.v, b.v), a.w * b.w - dot(a.v, b.v)};
}

Vec3 rotated(const Vec3& a, const Quaternion& q) {
  const Quaternion conjugate = {q.v * -1.0, q.w};
  return (q * Quaternion{a, 0.0} * conjugate).v;
}

/// The rotation about a unit axis by the angle of that cosine.
Quaternion rotation(const Vec3& axis, double cosine) {
  const double half = std::acos(std::clamp(cosine, -1.0, 1.0)) / 2.0;
  return {axis * std::sin(half), std::cos(half)};
}

/// The rotation that takes -z to a unit vector.
Quaternion rotationFromMinusZ(const Vec3& direction) {
  const Vec3 axis = {direction.y, -direction.x, 0.0};
  if (dot(axis, axis) < kTiny) return direction.z > 0.0 ? Quaternion{{0.0, 1.0, 0.0}, 0.0} : Quaternion{{}, 1.0};
  return rotation(normalized(axis), -direction.z);
}

/// The rotation that takes one unit vector to another, about any axis at a right angle when they are opposite.
Quaternion rotationBetween(const Vec3& from, const Vec3& to) {
  Vec3 axis = cross(from, to);
  if (dot(axis, axis) < kTiny) axis = {0.0, -to.z, to.y};
  if (dot(axis, axis) < kTiny) axis = {to.z, 0.0, -to.x};
  return rotation(normalized(axis), dot(from, to));
}

}  // namespace

Orientation orientationOf(const Vec3& position, const Vec3& target, const Vec3& up) {
  const Vec3 direction = normalized(target - position);
  const Vec3 unitUp = normalized(up);
  const Vec3 levelUp = normalized(unitUp - direction * dot(unitUp, direction));
  const Quaternion first = rotationFromMinusZ(direction);
  const Quaternion second = rotationBetween(rotated({0.0, 1.0, 0.0}, first), levelUp);
  const Quaternion q = second * first;

  const double half = std::acos(q.w);
  const double sine = std::sin(half);
  if (-kTiny < sine && sine < kTiny) return {{1.0, 0.0, 0.0}, 2.0 * half};
  return {q.v * (1.0 / sine), 2.0 * half};
}

}  // namespace exporter
