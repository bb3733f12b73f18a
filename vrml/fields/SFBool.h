#pragma once

// A truth value, TRUE by default. Its text is exactly "TRUE" or "FALSE".

#include "vrml/fields/Field.h"

namespace vrml {

class SFBool final : public Field {
 public:
  using Field::getValue;

  SFBool() noexcept : SFBool(true) {}
  explicit SFBool(bool value) noexcept : Field(FieldType::SFBool), m_value(value) {}
  SFBool(const SFBool& other) noexcept : SFBool(other.m_value) {}

  [[nodiscard]] bool getValue() const noexcept { return m_value; }
  void setValue(bool value) noexcept { m_value = value; }

  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

 private:
  bool m_value;
};

static_assert(sizeof(SFBool) == 24);

}  // namespace vrml
