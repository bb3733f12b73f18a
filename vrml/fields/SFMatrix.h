#pragma once

// A 4x4 matrix of 32-bit floats, stored row by row, with the translation in the fourth row (row vectors: p' = p M); the
// identity by default. It is no VRML type and has no type code and no text form.

#include <array>

#include "vrml/fields/SFVec3f.h"

namespace vrml {

class SFMatrix final : public Field {
 public:
  using Rows = std::array<std::array<float, 4>, 4>;

  SFMatrix() noexcept { setIdentity(); }
  explicit SFMatrix(const float rows[4][4]) noexcept { setValue(rows); }
  explicit SFMatrix(const Rows& rows) noexcept : m_rows(rows) {}
  SFMatrix(const SFMatrix& other) noexcept : SFMatrix(other.m_rows) {}

  using Field::getValue;
  using Field::setValue;

  [[nodiscard]] const Rows& getValue() const noexcept { return m_rows; }
  void getValue(float rows[4][4]) const noexcept;
  void setValue(const float rows[4][4]) noexcept;
  void setValue(const Rows& rows) noexcept { m_rows = rows; }
  void setValue(const SFMatrix& other) noexcept { m_rows = other.m_rows; }

  void setIdentity() noexcept;
  /// The identity with the scale on the diagonal.
  void setScale(float x, float y, float z) noexcept;
  void setScale(const SFVec3f& scale) noexcept { setScale(scale.x(), scale.y(), scale.z()); }
  /// The identity with the translation in the fourth row.
  void setTranslation(float x, float y, float z) noexcept;
  void setTranslation(const SFVec3f& translation) noexcept {
    setTranslation(translation.x(), translation.y(), translation.z());
  }

  /// This becomes this x other.
  void multiply(const SFMatrix& other) noexcept;
  /// The point becomes point x this, the fourth row being added.
  void transform(SFVec3f& point) const noexcept;
  /// In place, x y z.
  void transform(float point[3]) const noexcept;
  [[nodiscard]] float determinant() const noexcept;

 private:
  Rows m_rows;
};

}  // namespace vrml
