// Boxes are kept as two corners; the empty box is the pair of infinities that every union leaves alone.

#include "vrml/nodes/BoundingBox.h"

#include <cmath>

namespace vrml {

void BoundingBox::add(float x, float y, float z) noexcept {
  if (std::isnan(x) || std::isnan(y) || std::isnan(z)) return;
  const std::array<float, 3> point{x, y, z};
  for (std::size_t i = 0; i < 3; ++i) {
    m_min[i] = std::min(m_min[i], point[i]);
    m_max[i] = std::max(m_max[i], point[i]);
  }
}

void BoundingBox::add(const BoundingBox& other) noexcept {
  for (std::size_t i = 0; i < 3; ++i) {
    m_min[i] = std::min(m_min[i], other.m_min[i]);
    m_max[i] = std::max(m_max[i], other.m_max[i]);
  }
}

BoundingBox BoundingBox::transformed(const double (&matrix)[16]) const noexcept {
  BoundingBox result;
  if (isEmpty()) return result;
  for (unsigned corner = 0; corner < 8; ++corner) {
    const double x = static_cast<double>((corner & 1) ? m_max[0] : m_min[0]);
    const double y = static_cast<double>((corner & 2) ? m_max[1] : m_min[1]);
    const double z = static_cast<double>((corner & 4) ? m_max[2] : m_min[2]);
    float moved[3];
    for (std::size_t i = 0; i < 3; ++i) {
      const double sum = x * matrix[i] + y * matrix[4 + i] + z * matrix[8 + i] + matrix[12 + i];
      constexpr double kLargest = static_cast<double>(std::numeric_limits<float>::max());
      moved[i] = static_cast<float>(std::isnan(sum) ? sum : std::clamp(sum, -kLargest, kLargest));
    }
    result.add(moved[0], moved[1], moved[2]);
  }
  return result;
}

}  // namespace vrml
