// Plain row-vector matrix arithmetic in 32-bit floats; the determinant by expansion along pairs of rows.

#include "vrml/fields/SFMatrix.h"

#include <algorithm>

namespace vrml {

void SFMatrix::getValue(float rows[4][4]) const noexcept {
  for (std::size_t i = 0; i < 4; ++i) std::copy(m_rows[i].begin(), m_rows[i].end(), rows[i]);
}

void SFMatrix::setValue(const float rows[4][4]) noexcept {
  for (std::size_t i = 0; i < 4; ++i) std::copy(rows[i], rows[i] + 4, m_rows[i].begin());
}

void SFMatrix::setIdentity() noexcept {
  m_rows = {};
  for (std::size_t i = 0; i < 4; ++i) m_rows[i][i] = 1.0f;
}

void SFMatrix::setScale(float x, float y, float z) noexcept {
  setIdentity();
  m_rows[0][0] = x;
  m_rows[1][1] = y;
  m_rows[2][2] = z;
}

void SFMatrix::setTranslation(float x, float y, float z) noexcept {
  setIdentity();
  m_rows[3] = {x, y, z, 1.0f};
}

void SFMatrix::multiply(const SFMatrix& other) noexcept {
  Rows product{};
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j)
      for (std::size_t k = 0; k < 4; ++k) product[i][j] += m_rows[i][k] * other.m_rows[k][j];
  m_rows = product;
}

void SFMatrix::transform(SFVec3f& point) const noexcept {
  SFVec3f::Value value = point.getValue();
  transform(value.data());
  point.setValue(value);
}

void SFMatrix::transform(float point[3]) const noexcept {
  const std::array<float, 3> old = {point[0], point[1], point[2]};
  for (std::size_t j = 0; j < 3; ++j)
    point[j] = old[0] * m_rows[0][j] + old[1] * m_rows[1][j] + old[2] * m_rows[2][j] + m_rows[3][j];
}

float SFMatrix::determinant() const noexcept {
  // The 2x2 determinant of two rows in columns i and j.
  const auto minorOf = [this](std::size_t row, std::size_t i, std::size_t j) {
    const auto& a = m_rows[row];
    const auto& b = m_rows[row + 1];
    return static_cast<double>(a[i]) * static_cast<double>(b[j]) -
           static_cast<double>(a[j]) * static_cast<double>(b[i]);
  };
  return static_cast<float>(minorOf(0, 0, 1) * minorOf(2, 2, 3) - minorOf(0, 0, 2) * minorOf(2, 1, 3) +
                            minorOf(0, 0, 3) * minorOf(2, 1, 2) + minorOf(0, 1, 2) * minorOf(2, 0, 3) -
                            minorOf(0, 1, 3) * minorOf(2, 0, 2) + minorOf(0, 2, 3) * minorOf(2, 0, 1));
}

}  // namespace vrml
