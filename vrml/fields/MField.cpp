// The operations that need no element class: they ask for an element's text, or work on the entries.

#include "vrml/fields/MField.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vrml {

void MField::setValue(const char* text) {
  if (!text) return;
  const char* const comma = std::strchr(text, ',');
  if (!comma) return;
  // The read position never passes the comma, so every later piece is empty and leaves the first one in the buffer.
  std::array<char, 128> piece{};
  std::copy_n(text, std::min<std::size_t>(static_cast<std::size_t>(comma - text), piece.size() - 1), piece.begin());
  const int count = getSize();
  for (int i = 0; i < count; ++i) setElementText(i, piece.data());
}

char* MField::getValue(char* buffer) const {
  *buffer = '\0';
  return buffer;
}

Field* MField::getElement(int i) { return hasIndex(i) ? entries()[static_cast<std::size_t>(i)].value.get() : nullptr; }

char* MField::getValue(char* buffer, int size) const {
  if (size < 1) return buffer;
  const int count = getSize();
  const auto room = static_cast<std::size_t>(size);
  std::string joined, text;
  for (int i = 0; i < count; ++i) {
    text.clear();
    appendElementText(i, text);
    if (joined.size() + text.size() + 2 >= room) break;
    if (i > 0) joined += ", ";
    joined += text;
  }
  std::memcpy(buffer, joined.c_str(), joined.size() + 1);
  return buffer;
}

void MField::clear() {
  clearPacked();
  if (m_entries) m_entries->clear();
}

void MField::appendText(std::string& out) const {
  const int count = getSize();
  for (int i = 0; i < count; ++i) {
    if (i > 0) out += ", ";
    appendElementText(i, out);
  }
}

void MField::appendVrml(std::string& out, bool escapes) const {
  out += '[';
  const int count = getSize();
  for (int i = 0; i < count; ++i) {
    if (i > 0) out += ", ";
    appendElementVrml(i, out, escapes);
  }
  out += ']';
}

void MField::shareElements(const MField& other) {
  const std::vector<FieldEntry>& shared = other.entries();
  clear();
  std::vector<FieldEntry>& own = entries();
  own.reserve(shared.size());
  for (const FieldEntry& entry : shared) own.push_back({true, entry.value});
}

std::vector<FieldEntry>& MField::entries() const {
  if (!m_entries) m_entries = std::make_unique<std::vector<FieldEntry>>(takePacked());
  return *m_entries;
}

}  // namespace vrml
