#pragma once

// A camera given by two points and an up vector, as the axis and angle of a Viewpoint.

#include <VekSG/sglVec3.h>

namespace exporter {

/// The rotation that carries a camera which looks along -z with +y up to one that looks from `position` to `target`.
struct Orientation {
  sglVec3<double> axis;
  double angleRadians;
};

/// Computes an orientation. `up` need not stand at a right angle to the view direction, and no vector need be of unit
/// length; a direction or an up vector of length 0 counts as it is.
[[nodiscard]] Orientation orientationOf(const sglVec3<double>& position, const sglVec3<double>& target,
                                        const sglVec3<double>& up);

}  // namespace exporter
