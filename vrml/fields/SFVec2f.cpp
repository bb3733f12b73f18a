// Lengths are computed in double, where the squares of floats neither overflow nor vanish.

#include "vrml/fields/SFVec2f.h"

#include <algorithm>
#include <cmath>

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFVec2f::getValue(float* out) const noexcept { std::copy(m_value.begin(), m_value.end(), out); }

void SFVec2f::setValue(const char* text) {
  Value read;
  if (scanFloats(text, read.data(), 2) == 2) m_value = read;
}

bool SFVec2f::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFVec2f*>(other)->m_value == m_value;
}

bool SFVec2f::equals(float x, float y) const {
  const SFVec2f other(x, y);
  return equals(&other);
}

void SFVec2f::appendText(std::string& out) const { formatText(out, m_value); }

void SFVec2f::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

namespace {

double lengthOf(const SFVec2f::Value& value) noexcept {
  double sum = 0.0;
  for (const double component : value) sum += component * component;
  return std::sqrt(sum);
}

}  // namespace

float SFVec2f::length() const noexcept { return static_cast<float>(lengthOf(m_value)); }

void SFVec2f::normalize() noexcept {
  const double length = lengthOf(m_value);
  if (length == 0.0) return;
  for (float& component : m_value) component = static_cast<float>(component / length);
}

void SFVec2f::negate() noexcept {
  for (float& component : m_value) component = -component;
}

void SFVec2f::scale(float factor) noexcept {
  for (float& component : m_value) component *= factor;
}

void SFVec2f::add(const SFVec2f& other) noexcept {
  for (std::size_t i = 0; i < m_value.size(); ++i) m_value[i] += other.m_value[i];
}

void SFVec2f::subtract(const SFVec2f& other) noexcept {
  for (std::size_t i = 0; i < m_value.size(); ++i) m_value[i] -= other.m_value[i];
}

void SFVec2f::formatText(std::string& out, const Value& value) { appendG(out, value); }

void SFVec2f::formatVrml(std::string& out, const Value& value, bool) { appendShortest(out, value); }

void SFVec2f::formatStream(std::string& out, const Value& value, bool) { appendG(out, value); }

}  // namespace vrml
