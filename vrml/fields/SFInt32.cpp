// The text forms of an integer are all the same.

#include "vrml/fields/SFInt32.h"

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFInt32::setValue(const char* text) {
  if (text) m_value = scanInt32(text);
}

bool SFInt32::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFInt32*>(other)->m_value == m_value;
}

void SFInt32::appendText(std::string& out) const { formatText(out, m_value); }

void SFInt32::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

void SFInt32::formatText(std::string& out, std::int32_t value) { appendD(out, value); }

void SFInt32::formatVrml(std::string& out, std::int32_t value, bool) { appendD(out, value); }

void SFInt32::formatStream(std::string& out, std::int32_t value, bool) { appendD(out, value); }

}  // namespace vrml
