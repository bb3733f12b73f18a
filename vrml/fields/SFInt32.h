#pragma once

// One 32-bit signed integer, 0 by default.

#include <cstdint>

#include "vrml/fields/Field.h"

namespace vrml {

class SFInt32 final : public Field {
 public:
  using Value = std::int32_t;
  using Field::getValue;

  SFInt32() noexcept : SFInt32(std::int32_t{0}) {}
  explicit SFInt32(std::int32_t value) noexcept : Field(FieldType::SFInt32), m_value(value) {}
  explicit SFInt32(const std::int32_t* value) noexcept : SFInt32(*value) {}
  SFInt32(const SFInt32& other) noexcept : SFInt32(other.m_value) {}

  [[nodiscard]] std::int32_t getValue() const noexcept { return m_value; }
  void getValue(std::int32_t* out) const noexcept { *out = m_value; }
  void setValue(std::int32_t value) noexcept { m_value = value; }

  /// Takes what `atoi` gives, saturating; null is ignored.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  // What PackedField asks of an element class.
  static std::int32_t stored(std::int32_t value) noexcept { return value; }
  static void discard(std::int32_t) noexcept {}
  static void formatText(std::string& out, std::int32_t value);
  static void formatVrml(std::string& out, std::int32_t value, bool escapes);
  static void formatStream(std::string& out, std::int32_t value, bool escapes);

 private:
  std::int32_t m_value;
};

static_assert(sizeof(SFInt32) == 24);

}  // namespace vrml
