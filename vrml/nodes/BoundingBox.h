#pragma once

// An axis-parallel box, for the extent of what nodes hold. An empty box holds no point at all.

#include <algorithm>
#include <array>
#include <limits>

namespace vrml {

class BoundingBox {
 public:
  /// Holds nothing.
  BoundingBox() noexcept = default;
  /// About the origin, by its half extents.
  [[nodiscard]] static BoundingBox centered(float x, float y, float z) noexcept {
    BoundingBox box;
    box.add(-x, -y, -z);
    box.add(x, y, z);
    return box;
  }

  [[nodiscard]] bool isEmpty() const noexcept { return m_min[0] > m_max[0]; }
  [[nodiscard]] const std::array<float, 3>& min() const noexcept { return m_min; }
  [[nodiscard]] const std::array<float, 3>& max() const noexcept { return m_max; }
  /// The middle, and half of the size on each axis; all 0 for an empty box.
  [[nodiscard]] std::array<float, 3> center() const noexcept { return halves(1.0f); }
  [[nodiscard]] std::array<float, 3> halfExtents() const noexcept { return halves(-1.0f); }

  /// Grows the box by a point, or by another box. A point that has a not-a-number in it changes nothing.
  void add(float x, float y, float z) noexcept;
  void add(const BoundingBox& other) noexcept;

  /// The box of this box's corners under a matrix: 16 numbers row by row, for row vectors.
  [[nodiscard]] BoundingBox transformed(const double (&matrix)[16]) const noexcept;

 private:
  static constexpr float kInfinity = std::numeric_limits<float>::infinity();

  [[nodiscard]] std::array<float, 3> halves(float sign) const noexcept {
    if (isEmpty()) return {};
    std::array<float, 3> result{};
    for (std::size_t i = 0; i < 3; ++i) result[i] = m_max[i] * 0.5f + sign * (m_min[i] * 0.5f);
    return result;
  }

  std::array<float, 3> m_min{kInfinity, kInfinity, kInfinity};
  std::array<float, 3> m_max{-kInfinity, -kInfinity, -kInfinity};
};

}  // namespace vrml
