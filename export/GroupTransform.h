#pragma once

// A placement matrix taken apart into what a Transform node can say: rotation, scale and translation.

#include <VekSG/sglMat4.h>
#include <VekSG/sglVec3.h>

#include <array>

namespace exporter {

/// A unit quaternion, or what came of a matrix that is no rotation.
struct Quaternion {
  double x;
  double y;
  double z;
  double w;
};

/// A rotation as VRML writes it: an axis and an angle in radians.
struct AxisAngle {
  std::array<double, 3> axis;
  double angleRadians;
};

/// The parts of a placement. A mirroring is in the scale, as negative factors.
struct GroupTransform {
  AxisAngle rotation;
  std::array<float, 3> scale;
  std::array<float, 3> translation;
};

/// The quaternion of the rotation in rows and columns 0 to 2, in the row-vector convention. The rows are unit vectors
/// at right angles; the answer means nothing for others.
[[nodiscard]] Quaternion quaternionOf(const sglMat4<float>& matrix);

/// The axis and angle of a quaternion. One that is not of unit length gives axis 0 0 0 and angle 0; no rotation has the
/// x axis.
[[nodiscard]] AxisAngle axisAngleOf(const Quaternion& quaternion);

/// Takes a placement apart. A shear is lost: the rotation keeps the direction of the z axis, and the scale holds the
/// lengths of the given rows.
[[nodiscard]] GroupTransform decompose(const sglMat4<float>& matrix);

}  // namespace exporter
