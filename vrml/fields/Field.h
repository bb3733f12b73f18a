#pragma once

// The base of every value that a node holds: a name, a type code, and the operations that turn the value into text and
// back and compare it. A node has its values by the hundred thousand, so the base is eighteen bytes and a derived
// class's value begins right behind them.

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

#include "vrml/fields/FieldType.h"

namespace vrml {

/// Not copyable as such; the single-valued classes have constructors that take the value of another field of their
/// class. A copy starts without a name: names belong to the node that registers the field.
class Field {
 public:
  Field() noexcept = default;
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;
  virtual ~Field() {
    if (m_ownsName) releaseName();
  }

  /// Reads the value from a zero-terminated text. Text that does not parse, or null, leaves the value as it is.
  /// The base ignores the text.
  virtual void setValue(const char* text);

  /// Prints the value's own text form, zero-terminated, into the caller's buffer and returns the buffer.
  /// `kNumberTextSize` characters are enough for every class but those that hold a text. The base prints an empty
  /// string.
  virtual char* getValue(char* buffer) const;

  /// Whether the other field, which may be null, is of the same class and holds an equal value. The base is equal to
  /// nothing.
  [[nodiscard]] virtual bool equals(const Field* other) const;

  /// Appends the value's own text form, without a bound: what `getValue` prints; of a multi-valued field all elements'
  /// texts joined by ", ".
  virtual void appendText(std::string& out) const;

  /// Appends the value as VRML text that scans back to the same value: strings in quotes (a quote and a backslash in
  /// them behind a backslash when `escapes` is set), lists in brackets, numbers with as many digits as that takes.
  virtual void appendVrml(std::string& out, bool escapes = false) const;

  /// The name; never null, "" until one was given. Valid until the name is set again or the field ends.
  [[nodiscard]] const char* getName() const noexcept { return m_name; }

  /// Sets the name to a copy of the text that the field owns.
  void setName(std::string_view name);

  /// Sets the name to a text that outlives the field (a keyword's): nothing is copied. Not null.
  void setStaticName(const char* name) noexcept {
    if (m_ownsName) releaseName();
    m_name = name;
  }

  [[nodiscard]] FieldType getType() const noexcept { return static_cast<FieldType>(m_type); }

 protected:
  explicit Field(FieldType type) noexcept : m_type(static_cast<std::uint8_t>(type)) {}

  [[nodiscard]] bool isSameType(const Field* other) const noexcept { return other && other->m_type == m_type; }

 private:
  void releaseName() noexcept;

  const char* m_name = "";
  std::uint8_t m_type = 0;
  bool m_ownsName = false;
};

static_assert(sizeof(Field) <= 24);

/// Prints the value's own text form.
std::ostream& operator<<(std::ostream& out, const Field& field);

}  // namespace vrml
