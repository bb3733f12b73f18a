#pragma once

// A rotation: an axis, which is a complete field of its own, and an angle in radians; 0 0 1 and 0 by default. The axis
// is normalised whenever it is set.

#include <array>

#include "vrml/fields/SFVec3f.h"

namespace vrml {

class SFRotation final : public Field {
 public:
  using Value = std::array<float, 4>;  // axis x, y, z, angle
  using Field::getValue;

  SFRotation() noexcept : Field(FieldType::SFRotation), m_axis(0.0f, 0.0f, 1.0f), m_angle(0.0f) {}
  SFRotation(float x, float y, float z, float angle) noexcept : SFRotation() { setValue(x, y, z, angle); }
  SFRotation(const SFVec3f& axis, float angle) noexcept : SFRotation() { setValue(axis, angle); }
  explicit SFRotation(const float* components) noexcept : SFRotation() { setValue(components); }
  explicit SFRotation(const Value& value) noexcept : SFRotation() { setValue(value); }
  SFRotation(const SFRotation& other) noexcept : SFRotation(other.getValue()) {}

  [[nodiscard]] Value getValue() const noexcept { return {x(), y(), z(), m_angle}; }
  void getValue(float* out) const noexcept;
  [[nodiscard]] const SFVec3f& axis() const noexcept { return m_axis; }
  void getAxis(float* out) const noexcept { m_axis.getValue(out); }
  [[nodiscard]] float x() const noexcept { return m_axis.x(); }
  [[nodiscard]] float y() const noexcept { return m_axis.y(); }
  [[nodiscard]] float z() const noexcept { return m_axis.z(); }
  [[nodiscard]] float angle() const noexcept { return m_angle; }

  void setValue(float x, float y, float z, float angle) noexcept { setValue(Value{x, y, z, angle}); }
  void setValue(const SFVec3f& axis, float angle) noexcept { setValue(axis.x(), axis.y(), axis.z(), angle); }
  void setValue(const float* components) noexcept {
    setValue(components[0], components[1], components[2], components[3]);
  }
  void setValue(const Value& value) noexcept;
  void setValue(const SFRotation& other) noexcept { setValue(other.getValue()); }
  void setAngle(float angle) noexcept { m_angle = angle; }

  /// Applied only when all four numbers are read.
  void setValue(const char* text) override;
  [[nodiscard]] bool equals(const Field* other) const override;
  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

  /// Negates the angle.
  void invert() noexcept { m_angle = -m_angle; }

  /// The value with its axis normalised, as every set makes it. An axis of length 0 stays, one without a finite length
  /// does, and so does one of unit length to within 2e-6: normalising that once more would change its last digits each
  /// time a file is read and written.
  [[nodiscard]] static Value stored(const Value& value) noexcept;

  /// What stays of a value that was printed with "%g" and read again; printing that gives the same text from then on.
  /// It is the value itself but for the six digits, unless its axis lies so near the edge of what is taken as it stands
  /// that the digits lie beyond: then the axis is normalised.
  [[nodiscard]] static Value settled(const Value& value);

  // What PackedField asks of an element class.
  static void discard(const Value&) noexcept {}
  static void formatText(std::string& out, const Value& value);
  static void formatVrml(std::string& out, const Value& value, bool escapes);
  /// As files are written: like `formatText`, of the settled value.
  static void formatStream(std::string& out, const Value& value, bool escapes);

 private:
  SFVec3f m_axis;
  float m_angle;
};

static_assert(sizeof(SFRotation) <= 64);

}  // namespace vrml
