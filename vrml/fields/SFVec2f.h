#pragma once

// Two 32-bit floats x and y, 0 0 by default.

#include <array>

#include "vrml/fields/Field.h"

namespace vrml {

class SFVec2f final : public Field {
 public:
  using Value = std::array<float, 2>;
  using Field::getValue;

  SFVec2f() noexcept : SFVec2f(0.0f, 0.0f) {}
  SFVec2f(float x, float y) noexcept : Field(FieldType::SFVec2f), m_value{x, y} {}
  explicit SFVec2f(const float* components) noexcept : SFVec2f(components[0], components[1]) {}
  explicit SFVec2f(const Value& value) noexcept : SFVec2f(value[0], value[1]) {}
  SFVec2f(const SFVec2f& other) noexcept : SFVec2f(other.m_value) {}

  [[nodiscard]] const Value& getValue() const noexcept { return m_value; }
  void getValue(float* out) const noexcept;
  [[nodiscard]] float x() const noexcept { return m_value[0]; }
  [[nodiscard]] float y() const noexcept { return m_value[1]; }

  void setValue(float x, float y) noexcept { m_value = {x, y}; }
  void setValue(const float* components) noexcept { setValue(components[0], components[1]); }
  void setValue(const Value& value) noexcept { m_value = value; }
  void setValue(const SFVec2f& other) noexcept { m_value = other.m_value; }
  void setX(float x) noexcept { m_value[0] = x; }
  void setY(float y) noexcept { m_value[1] = y; }

  /// Applied only when both numbers are read.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  [[nodiscard]] bool equals(float x, float y) const;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  /// Square root of the sum of squares.
  [[nodiscard]] float length() const noexcept;
  /// Divides each component by the length; does nothing when that is 0.
  void normalize() noexcept;
  void negate() noexcept;
  void scale(float factor) noexcept;
  void add(const SFVec2f& other) noexcept;
  void subtract(const SFVec2f& other) noexcept;

  // What PackedField asks of an element class.
  static const Value& stored(const Value& value) noexcept { return value; }
  static void discard(const Value&) noexcept {}
  static void formatText(std::string& out, const Value& value);
  static void formatVrml(std::string& out, const Value& value, bool escapes);
  static void formatStream(std::string& out, const Value& value, bool escapes);

 private:
  Value m_value;
};

static_assert(sizeof(SFVec2f) == 32);

}  // namespace vrml
