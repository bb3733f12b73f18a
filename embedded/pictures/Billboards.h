#pragma once

// How billboards turn.

#include <VekSG/sglBillboard.h>

#include <glm/mat4x4.hpp>

#include "embedded/pictures/ViewDirection.h"

namespace embedded {

// Who looks: a place, or a direction (fourth number 0) for an eye that is very far away; and what is up to it.
struct Onlooker {
  glm::dvec4 viewpoint{0.0, -1.0, 0.0, 0.0};
  glm::dvec3 up{0.0, 0.0, 1.0};
};

// The rotation that turns what is under a billboard to the onlooker, about the billboard's origin and in its own
// coordinates: their z axis turns to the eye, about the axis (AXIAL) or so that their y axis is as upright as it can
// be. An AXIAL billboard whose axis is zero is upright to the onlooker. `world` leads from these coordinates to the
// onlooker's. The identity where there is no such rotation, as for an eye on the axis.
[[nodiscard]] glm::dmat4 billboardTurn(const sglBillboard& billboard, const glm::dmat4& world,
                                       const Onlooker& onlooker);

}  // namespace embedded
