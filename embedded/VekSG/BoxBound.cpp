// The axis-aligned box around points. An empty box has its corners the wrong way round, at infinity, so that the first
// point needs no case of its own.

#include <VekSG/sglBoxBound.h>

#include <algorithm>
#include <limits>

void sglBoxBound::makeEmpty() {
  constexpr float kFar = std::numeric_limits<float>::infinity();
  m_min = {kFar, kFar, kFar};
  m_max = {-kFar, -kFar, -kFar};
}

void sglBoxBound::expandToInclude(const sglVec3<float>& point) {
  for (unsigned axis = 0; axis < 3; ++axis) {
    // In this order of arguments a comparison with not-a-number keeps the corner.
    m_min[axis] = std::min(m_min[axis], point[axis]);
    m_max[axis] = std::max(m_max[axis], point[axis]);
  }
}
