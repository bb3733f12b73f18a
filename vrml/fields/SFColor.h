#pragma once

// Red, green and blue as 32-bit floats, 1 1 1 by default.

#include <array>

#include "vrml/fields/Field.h"

namespace vrml {

class SFColor final : public Field {
 public:
  using Value = std::array<float, 3>;
  using Field::getValue;

  SFColor() noexcept : SFColor(1.0f, 1.0f, 1.0f) {}
  SFColor(float r, float g, float b) noexcept : Field(FieldType::SFColor), m_value{r, g, b} {}
  explicit SFColor(const float* components) noexcept : SFColor(components[0], components[1], components[2]) {}
  explicit SFColor(const Value& value) noexcept : SFColor(value[0], value[1], value[2]) {}
  SFColor(const SFColor& other) noexcept : SFColor(other.m_value) {}

  [[nodiscard]] const Value& getValue() const noexcept { return m_value; }
  void getValue(float* out) const noexcept;
  [[nodiscard]] float r() const noexcept { return m_value[0]; }
  [[nodiscard]] float g() const noexcept { return m_value[1]; }
  [[nodiscard]] float b() const noexcept { return m_value[2]; }

  void setValue(float r, float g, float b) noexcept { m_value = {r, g, b}; }
  void setValue(const float* components) noexcept { setValue(components[0], components[1], components[2]); }
  void setValue(const Value& value) noexcept { m_value = value; }
  void setValue(const SFColor& other) noexcept { m_value = other.m_value; }
  void setR(float r) noexcept { m_value[0] = r; }
  void setG(float g) noexcept { m_value[1] = g; }
  void setB(float b) noexcept { m_value[2] = b; }

  /// Applied only when all three numbers are read.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  /// Not sums: each component becomes half of itself plus (or minus) the other's, so that a mix of two colours stays
  /// one.
  void add(const SFColor& other) noexcept;
  void subtract(const SFColor& other) noexcept;

  // What PackedField asks of an element class.
  static const Value& stored(const Value& value) noexcept { return value; }
  static void discard(const Value&) noexcept {}
  static void formatText(std::string& out, const Value& value);
  static void formatVrml(std::string& out, const Value& value, bool escapes);
  static void formatStream(std::string& out, const Value& value, bool escapes);

 private:
  Value m_value;
};

static_assert(sizeof(SFColor) == 32);

}  // namespace vrml
