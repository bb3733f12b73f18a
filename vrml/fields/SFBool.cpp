// Only the exact words are read, so that any other text keeps the value.

#include "vrml/fields/SFBool.h"

#include <string_view>

namespace vrml {

void SFBool::setValue(const char* text) {
  if (!text) return;
  if (std::string_view(text) == "TRUE") m_value = true;
  if (std::string_view(text) == "FALSE") m_value = false;
}

bool SFBool::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFBool*>(other)->m_value == m_value;
}

void SFBool::appendText(std::string& out) const { out += m_value ? "TRUE" : "FALSE"; }

void SFBool::appendVrml(std::string& out, bool) const { appendText(out); }

}  // namespace vrml
