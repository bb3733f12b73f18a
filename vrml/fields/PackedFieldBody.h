#pragma once

// The bodies of PackedField, for the sources that instantiate it: one for each element class.

#include <algorithm>
#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "vrml/fields/PackedField.h"

namespace vrml {

template <class E>
void PackedField<E>::insertValue(int i, const Value& value) {
  if (i < 0 || i > getSize()) return;
  if (isPacked()) {
    const Value given = value;  // making room moves the values, of which this may be one
    m_packed.makeRoom(1);
    m_packed.insert(static_cast<std::size_t>(i), E::stored(given));
  } else {
    entries().insert(entries().begin() + i, FieldEntry::owning(std::make_unique<E>(value)));
  }
}

template <class E>
void PackedField<E>::replaceValue(int i, const Value& value) {
  if (!hasIndex(i)) return;
  if (isPacked()) {
    Value& place = m_packed[static_cast<std::size_t>(i)];
    const Value old = std::exchange(place, E::stored(value));
    E::discard(old);
  } else {
    element(i).setValue(value);
  }
}

template <class E>
void PackedField<E>::setValues(int count, const Component* components) {
  clear();
  if (!components) return;
  if (isPacked() && count > 0) m_packed.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    Value value;
    std::memcpy(&value, components + static_cast<std::size_t>(i) * kComponents, sizeof value);
    addValue(value);
  }
}

template <class E>
void PackedField<E>::setValue(const MField* other) {
  if (other != this && isSameType(other)) shareElements(*other);
}

template <class E>
std::span<const typename PackedField<E>::Value> PackedField<E>::values() const {
  if (!isPacked()) {
    discardPacked();
    const auto count = static_cast<std::size_t>(getSize());
    m_packed.reserve(count);
    for (std::size_t i = 0; i < count; ++i) m_packed.push_back(E::stored(element(static_cast<int>(i)).getValue()));
  }
  return m_packed.span();
}

template <class E>
void PackedField<E>::copyValues(const PackedField& other) {
  clear();
  const int count = other.getSize();
  if (isPacked()) m_packed.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) addValue(other.get1Value(i));
}

template <class E>
void PackedField<E>::writeElements(std::ostream& out, const char* indent, bool escapes) const {
  constexpr std::size_t kChunkBytes = 1 << 16;  // so that a long list costs few calls and little memory
  std::string text;
  const int count = getSize();
  for (int i = 0; i < count; ++i) {
    text += indent;
    E::formatStream(text, get1Value(i), escapes);
    text += i + 1 < count ? ",\n" : "\n";
    if (text.size() >= kChunkBytes || i + 1 == count) {
      out.write(text.data(), static_cast<std::streamsize>(text.size()));
      text.clear();
    }
  }
}

template <class E>
void PackedField<E>::setElementText(int i, const char* text) {
  E value(get1Value(i));
  value.setValue(text);
  replaceValue(i, value.getValue());
}

template <class E>
void PackedField<E>::clearPacked() noexcept {
  discardPacked();
}

template <class E>
std::vector<FieldEntry> PackedField<E>::takePacked() const {
  std::vector<FieldEntry> entries;
  entries.reserve(m_packed.size());
  for (const Value& value : m_packed) entries.push_back(FieldEntry::owning(std::make_unique<E>(value)));
  discardPacked();
  m_packed.shrinkToFit();
  return entries;
}

template <class E>
void PackedField<E>::discardPacked() const noexcept {
  for (const Value& value : m_packed) E::discard(value);
  m_packed.clear();
}

}  // namespace vrml
