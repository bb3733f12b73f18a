#pragma once

// A time in seconds as a 64-bit float, -1 by default. It prints with single precision.

#include "vrml/fields/Field.h"

namespace vrml {

class SFTime final : public Field {
 public:
  using Value = double;
  using Field::getValue;

  SFTime() noexcept : SFTime(-1.0) {}
  explicit SFTime(double seconds) noexcept : Field(FieldType::SFTime), m_value(seconds) {}
  explicit SFTime(const double* seconds) noexcept : SFTime(*seconds) {}
  SFTime(const SFTime& other) noexcept : SFTime(other.m_value) {}

  [[nodiscard]] double getValue() const noexcept { return m_value; }
  void getValue(double* out) const noexcept { *out = m_value; }
  void setValue(double seconds) noexcept { m_value = seconds; }

  /// Takes what `atof` gives; null is ignored.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  /// With "%f", of the value narrowed to a 32-bit float.
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  /// The wall-clock time: whole seconds plus milliseconds / 1000.
  [[nodiscard]] static double currentTime();

  // What PackedField asks of an element class.
  static double stored(double value) noexcept { return value; }
  static void discard(double) noexcept {}
  static void formatText(std::string& out, double value);
  static void formatVrml(std::string& out, double value, bool escapes);
  static void formatStream(std::string& out, double value, bool escapes);

 private:
  double m_value;
};

static_assert(sizeof(SFTime) == 32);

/// Prints as a stream prints a number, not with the "%f" of the value's own text form.
std::ostream& operator<<(std::ostream& out, const SFTime& field);

}  // namespace vrml
