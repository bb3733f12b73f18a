// A time prints with single precision. As VRML text it takes the digits of a float when it holds one: what is read from
// a file is one.

#include "vrml/fields/SFTime.h"

#include <chrono>
#include <ostream>

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFTime::setValue(const char* text) {
  if (text) m_value = scanDouble(text);
}

bool SFTime::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFTime*>(other)->m_value == m_value;
}

void SFTime::appendText(std::string& out) const { formatText(out, m_value); }

void SFTime::appendVrml(std::string& out, bool escapes) const { formatVrml(out, m_value, escapes); }

void SFTime::formatText(std::string& out, double value) {
  char text[kNumberTextSize];
  out.append(text, printF(text, static_cast<float>(value)));
}

void SFTime::formatVrml(std::string& out, double value, bool) {
  const auto single = static_cast<float>(value);
  if (static_cast<double>(single) == value) {
    appendShortest(out, single);
  } else {
    appendShortest(out, value);
  }
}

void SFTime::formatStream(std::string& out, double value, bool) { appendG(out, value); }

double SFTime::currentTime() {
  using std::chrono::milliseconds;
  const auto now =
      std::chrono::duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch()).count();
  return static_cast<double>(now / 1000) + static_cast<double>(now % 1000) / 1000.0;
}

std::ostream& operator<<(std::ostream& out, const SFTime& field) {
  std::string text;
  SFTime::formatStream(text, field.getValue(), false);
  return out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace vrml
