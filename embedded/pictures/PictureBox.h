#pragma once

// The box around what a picture shows.

#include <array>
#include <glm/common.hpp>
#include <glm/vec3.hpp>
#include <limits>

namespace embedded {

// Empty until a point is put in. In double precision, so that the size of a box of the largest numbers is a number.
class PictureBox {
 public:
  void include(const glm::dvec3& point) {
    m_min = glm::min(m_min, point);
    m_max = glm::max(m_max, point);
  }

  [[nodiscard]] bool isEmpty() const { return m_min.x > m_max.x; }

  // The origin for an empty box.
  [[nodiscard]] glm::dvec3 centre() const { return isEmpty() ? glm::dvec3(0.0) : m_min * 0.5 + m_max * 0.5; }

  // Half the diagonal; 1 for an empty box and for a single point, so that there is always something to look at.
  [[nodiscard]] double radius() const;

  // The corners; eight times the origin for an empty box.
  [[nodiscard]] std::array<glm::dvec3, 8> corners() const;

 private:
  glm::dvec3 m_min{std::numeric_limits<double>::infinity()};
  glm::dvec3 m_max{-std::numeric_limits<double>::infinity()};
};

}  // namespace embedded
