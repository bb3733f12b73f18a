#pragma once

// One text, owned, or none; none by default.

#include <string_view>

#include "vrml/fields/Field.h"

namespace vrml {

class SFString final : public Field {
 public:
  using Value = const char*;
  using Field::getValue;

  SFString() noexcept : Field(FieldType::SFString) {}
  explicit SFString(const char* text) : SFString() { setValue(text); }
  explicit SFString(std::string_view text) : SFString() { setValue(text); }
  SFString(const SFString& other) : SFString(other.m_value) {}
  ~SFString() override;

  /// The zero-terminated text, null when there is none. Valid until the next set.
  [[nodiscard]] const char* getValue() const noexcept { return m_value; }

  /// Stores a copy; null stores no text.
  void setValue(const char* text) override;
  /// Stores a copy, up to the first zero byte.
  void setValue(std::string_view text);

  /// No text equals no text only; otherwise the bytes are compared.
  [[nodiscard]] bool equals(const Field* other) const override;
  /// The text, however long it is; no text is an empty one.
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  // What PackedField asks of an element class: a list owns copies of the texts.
  [[nodiscard]] static const char* stored(const char* text);
  static void discard(const char* text) noexcept;
  static void formatText(std::string& out, const char* text);
  static void formatVrml(std::string& out, const char* text, bool escapes);
  static void formatStream(std::string& out, const char* text, bool escapes);

 private:
  void adopt(char* text) noexcept;

  char* m_value = nullptr;
};

static_assert(sizeof(SFString) == 32);

}  // namespace vrml
