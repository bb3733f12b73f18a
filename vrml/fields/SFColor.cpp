// Adding and subtracting colours halve the result, which keeps a mix of two colours within their range.

#include "vrml/fields/SFColor.h"

#include <algorithm>

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFColor::getValue(float* out) const noexcept { std::copy(m_value.begin(), m_value.end(), out); }

void SFColor::setValue(const char* text) {
  Value read;
  if (scanFloats(text, read.data(), 3) == 3) m_value = read;
}

bool SFColor::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFColor*>(other)->m_value == m_value;
}

void SFColor::appendText(std::string& out) const { formatText(out, m_value); }

void SFColor::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

void SFColor::add(const SFColor& other) noexcept {
  for (std::size_t i = 0; i < m_value.size(); ++i) m_value[i] = (m_value[i] + other.m_value[i]) * 0.5f;
}

void SFColor::subtract(const SFColor& other) noexcept {
  for (std::size_t i = 0; i < m_value.size(); ++i) m_value[i] = (m_value[i] - other.m_value[i]) * 0.5f;
}

void SFColor::formatText(std::string& out, const Value& value) { appendG(out, value); }

void SFColor::formatVrml(std::string& out, const Value& value, bool) { appendShortest(out, value); }

void SFColor::formatStream(std::string& out, const Value& value, bool) { appendG(out, value); }

}  // namespace vrml
