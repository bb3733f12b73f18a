// The text forms of a float.

#include "vrml/fields/SFFloat.h"

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFFloat::setValue(const char* text) {
  if (text) m_value = scanFloat(text);
}

bool SFFloat::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFFloat*>(other)->m_value == m_value;
}

void SFFloat::appendText(std::string& out) const { formatText(out, m_value); }

void SFFloat::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

void SFFloat::formatText(std::string& out, float value) { appendG(out, value); }

void SFFloat::formatVrml(std::string& out, float value, bool) { appendShortest(out, value); }

void SFFloat::formatStream(std::string& out, float value, bool) { appendG(out, value); }

}  // namespace vrml
