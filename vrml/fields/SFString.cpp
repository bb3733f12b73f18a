// The text is a plain owned pointer, since most string fields hold none and all of them cost its eight bytes.

#include "vrml/fields/SFString.h"

#include <cstring>

#include "vrml/fields/OwnedText.h"

namespace vrml {

SFString::~SFString() { freeText(m_value); }

void SFString::setValue(const char* text) { adopt(copyText(text)); }

void SFString::setValue(std::string_view text) { adopt(copyText(text)); }

bool SFString::equals(const Field* other) const {
  if (!isSameType(other)) return false;
  const char* const text = static_cast<const SFString*>(other)->m_value;
  if (!text || !m_value) return text == m_value;
  return std::strcmp(text, m_value) == 0;
}

void SFString::appendText(std::string& out) const { formatText(out, m_value); }

void SFString::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

const char* SFString::stored(const char* text) { return copyText(text); }

void SFString::discard(const char* text) noexcept { freeText(text); }

void SFString::formatText(std::string& out, const char* text) {
  if (text) out += text;
}

void SFString::formatVrml(std::string& out, const char* text, bool escapes) {
  out += '"';
  for (const char* p = text ? text : ""; *p; ++p) {
    if (escapes && (*p == '"' || *p == '\\')) out += '\\';
    out += *p;
  }
  out += '"';
}

void SFString::formatStream(std::string& out, const char* text, bool escapes) { formatVrml(out, text, escapes); }

void SFString::adopt(char* text) noexcept {
  freeText(m_value);  // only now: the new text may have been copied from the old one
  m_value = text;
}

}  // namespace vrml
