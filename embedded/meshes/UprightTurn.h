#pragma once

// The turn between the two ways to stand upright.

#include <glm/mat4x4.hpp>

namespace embedded {

// A quarter about x, after which what had y up has z up: (x, y, z) goes to (x, -z, y). Its transpose is the way back.
inline const glm::dmat4 kYToZ({1.0, 0.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, -1.0, 0.0, 0.0}, {0.0, 0.0, 0.0, 1.0});

}  // namespace embedded
