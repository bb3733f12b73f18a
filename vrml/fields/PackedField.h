#pragma once

// What all multi-valued classes share, over their element class. An element class `E` brings its `Value` (the plain
// form in which the list packs it), construction from it and typed get and set, the three text forms as functions of a
// value (`formatText`, `formatVrml`, `formatStream`), and the pair `stored` and `discard`: what a value becomes when a
// list takes it (a rotation's axis is normalised, a text copied) and how it ends (a text is freed).

#include <array>
#include <cassert>
#include <concepts>
#include <cstring>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "vrml/fields/MField.h"
#include "vrml/fields/PackedArray.h"

namespace vrml {

/// How a value falls into the components of a flat array.
template <class V>
struct Components {
  using Component = V;
  static constexpr std::size_t kCount = 1;
};
template <class C, std::size_t n>
struct Components<std::array<C, n>> {
  using Component = C;
  static constexpr std::size_t kCount = n;
};

template <class E>
class PackedField : public MField {
 public:
  using Element = E;
  using Value = typename E::Value;
  using Component = typename Components<Value>::Component;
  static constexpr std::size_t kComponents = Components<Value>::kCount;

  using MField::setValue;

  ~PackedField() override { clearPacked(); }

  /// The value at an index; the zero value (no text) when there is none.
  [[nodiscard]] Value get1Value(int i) const {
    if (!hasIndex(i)) return Value{};
    return isPacked() ? m_packed[static_cast<std::size_t>(i)] : element(i).getValue();
  }

  /// The element object at an index, null when there is none; turns the field into entry form. The field keeps owning
  /// it.
  [[nodiscard]] E* getElement(int i) { return static_cast<E*>(MField::getElement(i)); }

  /// Appends a value.
  void addValue(const Value& value) { addStored(E::stored(value)); }

  /// Inserts a value before position `i`, 0 to `getSize()`; elsewhere nothing happens. The value may be one of this
  /// field's own.
  void insertValue(int i, const Value& value);

  /// Replaces the value at an index; without such an element nothing happens.
  void replaceValue(int i, const Value& value);

  /// The same, by components: `addValue(x, y, z)`.
  template <class... C>
  requires(sizeof...(C) == kComponents && kComponents > 1 &&
           (std::convertible_to<C, Component> && ...)) void addValue(C... components) {
    addValue(Value{static_cast<Component>(components)...});
  }
  template <class... C>
  requires(sizeof...(C) == kComponents && kComponents > 1 &&
           (std::convertible_to<C, Component> && ...)) void insertValue(int i, C... components) {
    insertValue(i, Value{static_cast<Component>(components)...});
  }
  template <class... C>
  requires(sizeof...(C) == kComponents && kComponents > 1 &&
           (std::convertible_to<C, Component> && ...)) void replaceValue(int i, C... components) {
    replaceValue(i, Value{static_cast<Component>(components)...});
  }

  /// Appends an element object, which the field owns from now on, or only refers to; turns the field into entry form.
  /// Null adds nothing.
  void addElement(std::unique_ptr<E> element) {
    if (element) entries().push_back(FieldEntry::owning(std::move(element)));
  }
  void addElement(E* unowned) {
    if (unowned) entries().push_back(FieldEntry::referring(unowned));
  }

  /// Replaces all values by `count` values of `kComponents` components each. A null array counts as empty. The array
  /// must not be this field's own.
  void setValues(int count, const Component* components);

  /// Copies from a field of the same type; see `MField`.
  void setValue(const MField* other) override;

  /// All values, in both forms. The span ends with the next change of the field; in entry form also with the next call.
  [[nodiscard]] std::span<const Value> values() const;

  /// The packed values, for appending in bulk. Only while `isPacked()`, which a field that was only loaded always is.
  /// What goes in must be as `stored` makes it: a rotation passes through `SFRotation::stored` first, and a text
  /// through `copyText`, which the list then owns.
  [[nodiscard]] PackedArray<Value>& packed() noexcept {
    assert(isPacked());
    return m_packed;
  }
  [[nodiscard]] const PackedArray<Value>& packed() const noexcept {
    assert(isPacked());
    return m_packed;
  }

  void write(std::ostream& out, const char* indent) const override { writeElements(out, indent, false); }

 protected:
  explicit PackedField(FieldType type) noexcept : MField(type) {}

  /// Appends a value that `stored` has made.
  void addStored(Value value);

  /// Replaces the values by copies of the other's. The other is of the same class and not this field.
  void copyValues(const PackedField& other);

  void writeElements(std::ostream& out, const char* indent, bool escapes) const;

  void appendElementText(int i, std::string& out) const override { E::formatText(out, get1Value(i)); }
  void appendElementVrml(int i, std::string& out, bool escapes) const override {
    E::formatVrml(out, get1Value(i), escapes);
  }
  void setElementText(int i, const char* text) override;
  int packedSize() const noexcept override { return static_cast<int>(m_packed.size()); }
  void clearPacked() noexcept override;
  std::vector<FieldEntry> takePacked() const override;

 private:
  E& element(int i) const { return static_cast<E&>(*(*entriesOrNull())[static_cast<std::size_t>(i)].value); }
  void discardPacked() const noexcept;

  // In entry form a copy of the elements' values, for `values()`; otherwise the values themselves.
  mutable PackedArray<Value> m_packed;
};

template <class E>
void PackedField<E>::addStored(Value value) {
  if (isPacked()) [[likely]] {
    m_packed.push_back(value);
    return;
  }
  entries().push_back(FieldEntry::owning(std::make_unique<E>(value)));
  E::discard(value);
}

}  // namespace vrml
