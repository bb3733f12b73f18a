#pragma once

// Three 32-bit floats x, y and z, 0 0 0 by default.

#include <array>

#include "vrml/fields/Field.h"

namespace vrml {

class SFVec3f final : public Field {
 public:
  using Value = std::array<float, 3>;
  using Field::getValue;

  SFVec3f() noexcept : SFVec3f(0.0f, 0.0f, 0.0f) {}
  SFVec3f(float x, float y, float z) noexcept : Field(FieldType::SFVec3f), m_value{x, y, z} {}
  explicit SFVec3f(const float* components) noexcept : SFVec3f(components[0], components[1], components[2]) {}
  explicit SFVec3f(const Value& value) noexcept : SFVec3f(value[0], value[1], value[2]) {}
  SFVec3f(const SFVec3f& other) noexcept : SFVec3f(other.m_value) {}

  [[nodiscard]] const Value& getValue() const noexcept { return m_value; }
  void getValue(float* out) const noexcept;
  [[nodiscard]] float x() const noexcept { return m_value[0]; }
  [[nodiscard]] float y() const noexcept { return m_value[1]; }
  [[nodiscard]] float z() const noexcept { return m_value[2]; }

  void setValue(float x, float y, float z) noexcept { m_value = {x, y, z}; }
  void setValue(const float* components) noexcept { setValue(components[0], components[1], components[2]); }
  void setValue(const Value& value) noexcept { m_value = value; }
  void setValue(const SFVec3f& other) noexcept { m_value = other.m_value; }
  void setX(float x) noexcept { m_value[0] = x; }
  void setY(float y) noexcept { m_value[1] = y; }
  void setZ(float z) noexcept { m_value[2] = z; }

  /// Applied only when all three numbers are read.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  [[nodiscard]] bool equals(float x, float y, float z) const;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  /// Square root of the sum of squares.
  [[nodiscard]] float length() const noexcept;
  /// Divides each component by the length; does nothing when that is 0.
  void normalize() noexcept;
  void negate() noexcept;
  void scale(float factor) noexcept;
  void add(const SFVec3f& other) noexcept;
  void subtract(const SFVec3f& other) noexcept;

  // What PackedField asks of an element class.
  static const Value& stored(const Value& value) noexcept { return value; }
  static void discard(const Value&) noexcept {}
  static void formatText(std::string& out, const Value& value);
  static void formatVrml(std::string& out, const Value& value, bool escapes);
  static void formatStream(std::string& out, const Value& value, bool escapes);

 private:
  Value m_value;
};

static_assert(sizeof(SFVec3f) == 32);

}  // namespace vrml
