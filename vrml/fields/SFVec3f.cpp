// Lengths are computed in double, where the squares of floats neither overflow nor vanish.

#include "vrml/fields/SFVec3f.h"

#include <algorithm>
#include <cmath>

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFVec3f::getValue(float* out) const noexcept { std::copy(m_value.begin(), m_value.end(), out); }

void SFVec3f::setValue(const char* text) {
  Value read;
  if (scanFloats(text, read.data(), 3) == 3) m_value = read;
}

bool SFVec3f::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFVec3f*>(other)->m_value == m_value;
}

bool SFVec3f::equals(float x, float y, float z) const {
  const SFVec3f other(x, y, z);
  return equals(&other);
}

void SFVec3f::appendText(std::string& out) const { formatText(out, m_value); }

void SFVec3f::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

namespace {

double lengthOf(const SFVec3f::Value& value) noexcept {
  double sum = 0.0;
  for (const double component : value) sum += component * component;
  return std::sqrt(sum);
}

}  // namespace

float SFVec3f::length() const noexcept { return static_cast<float>(lengthOf(m_value)); }

void SFVec3f::normalize() noexcept {
  const double length = lengthOf(m_value);
  if (length == 0.0) return;
  for (float& component : m_value) component = static_cast<float>(component / length);
}

void SFVec3f::negate() noexcept {
  for (float& component : m_value) component = -component;
}

void SFVec3f::scale(float factor) noexcept {
  for (float& component : m_value) component *= factor;
}

void SFVec3f::add(const SFVec3f& other) noexcept {
  for (std::size_t i = 0; i < m_value.size(); ++i) m_value[i] += other.m_value[i];
}

void SFVec3f::subtract(const SFVec3f& other) noexcept {
  for (std::size_t i = 0; i < m_value.size(); ++i) m_value[i] -= other.m_value[i];
}

void SFVec3f::formatText(std::string& out, const Value& value) { appendG(out, value); }

void SFVec3f::formatVrml(std::string& out, const Value& value, bool) { appendShortest(out, value); }

void SFVec3f::formatStream(std::string& out, const Value& value, bool) { appendG(out, value); }

}  // namespace vrml
