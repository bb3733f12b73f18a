// The base's text operations do nothing; printing into a buffer or a stream is built on the one text form of each
// class.

#include "vrml/fields/Field.h"

#include <cstring>
#include <ostream>

#include "vrml/fields/OwnedText.h"

namespace vrml {

void Field::setValue(const char*) {}

char* Field::getValue(char* buffer) const {
  std::string text;
  appendText(text);
  std::memcpy(buffer, text.c_str(), text.size() + 1);
  return buffer;
}

bool Field::equals(const Field*) const { return false; }

void Field::appendText(std::string&) const {}

void Field::appendVrml(std::string&, bool) const {}

void Field::setName(std::string_view name) {
  const char* const copy = copyText(name);  // before the old name goes: the text may be part of it
  setStaticName(copy);
  m_ownsName = true;
}

void Field::releaseName() noexcept {
  freeText(m_name);
  m_name = "";
  m_ownsName = false;
}

std::ostream& operator<<(std::ostream& out, const Field& field) {
  std::string text;
  field.appendText(text);
  return out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace vrml
