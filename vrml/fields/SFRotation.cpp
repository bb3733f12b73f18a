// Every way to set the value passes through `stored`, which normalises the axis.

#include "vrml/fields/SFRotation.h"

#include <algorithm>
#include <cmath>

#include "vrml/fields/NumberText.h"

namespace vrml {

namespace {

constexpr double kUnitTolerance = 2e-6;

double axisLength(const SFRotation::Value& value) noexcept {
  const double x = value[0], y = value[1], z = value[2];
  return std::sqrt(x * x + y * y + z * z);
}

}  // namespace

void SFRotation::getValue(float* out) const noexcept {
  const Value value = getValue();
  std::copy(value.begin(), value.end(), out);
}

void SFRotation::setValue(const Value& value) noexcept {
  const Value kept = stored(value);
  m_axis.setValue(kept[0], kept[1], kept[2]);
  m_angle = kept[3];
}

void SFRotation::setValue(const char* text) {
  Value read;
  if (scanFloats(text, read.data(), 4) == 4) setValue(read);
}

bool SFRotation::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFRotation*>(other)->getValue() == getValue();
}

void SFRotation::appendText(std::string& out) const { formatText(out, getValue()); }

void SFRotation::appendVrml(std::string& out, bool escapes) const { formatVrml(out, getValue(), escapes); }

SFRotation::Value SFRotation::stored(const Value& value) noexcept {
  const double length = axisLength(value);
  const bool hasDirection = length > 0.0 && std::isfinite(length);
  if (!hasDirection || std::fabs(length - 1.0) <= kUnitTolerance) return value;
  const auto scaled = [length](float component) { return static_cast<float>(component / length); };
  return {scaled(value[0]), scaled(value[1]), scaled(value[2]), value[3]};
}

// Six digits change the length of a unit axis by less than half of the tolerance.
SFRotation::Value SFRotation::settled(const Value& value) {
  if (std::fabs(axisLength(value) - 1.0) <= kUnitTolerance / 2) return value;
  std::string text;
  formatText(text, value);
  Value read = value;
  static_cast<void>(scanFloats(text.c_str(), read.data(), 4));
  return stored(read);
}

void SFRotation::formatText(std::string& out, const Value& value) { appendG(out, value); }

void SFRotation::formatVrml(std::string& out, const Value& value, bool) { appendShortest(out, value); }

void SFRotation::formatStream(std::string& out, const Value& value, bool) { appendG(out, settled(value)); }

}  // namespace vrml
