#pragma once

// One 32-bit float, 0 by default.

#include "vrml/fields/Field.h"

namespace vrml {

class SFFloat final : public Field {
 public:
  using Value = float;
  using Field::getValue;

  SFFloat() noexcept : SFFloat(0.0f) {}
  explicit SFFloat(float value) noexcept : Field(FieldType::SFFloat), m_value(value) {}
  explicit SFFloat(const float* value) noexcept : SFFloat(*value) {}
  SFFloat(const SFFloat& other) noexcept : SFFloat(other.m_value) {}

  [[nodiscard]] float getValue() const noexcept { return m_value; }
  void getValue(float* out) const noexcept { *out = m_value; }
  void setValue(float value) noexcept { m_value = value; }

  /// Takes what `atof` gives; null is ignored.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  // What PackedField asks of an element class.
  static float stored(float value) noexcept { return value; }
  static void discard(float) noexcept {}
  static void formatText(std::string& out, float value);
  static void formatVrml(std::string& out, float value, bool escapes);
  static void formatStream(std::string& out, float value, bool escapes);

 private:
  float m_value;
};

static_assert(sizeof(SFFloat) == 24);

}  // namespace vrml
