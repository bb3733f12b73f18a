#pragma once

// The base of multi-valued fields. The values are kept packed, as plain numbers in one block, until somebody wants an
// element as an object; then the field turns into a list of entries and stays one. `PackedField` holds the packed form
// and the typed operations; here is what does not depend on the element class.

#include <iosfwd>
#include <memory>
#include <vector>

#include "vrml/fields/Field.h"
#include "vrml/fields/FieldEntry.h"

namespace vrml {

class MField : public Field {
 public:
  /// Hands pieces of a comma-separated text to the existing elements; it never makes elements. Kept exactly as it
  /// always was: when a comma follows the first piece, that piece is given to every element (its first 127 characters),
  /// and without a comma nothing is set.
  void setValue(const char* text) override;

  /// Prints an empty string: a list has no bounded text form.
  char* getValue(char* buffer) const override;

  /// Copies from a field of the same type; a field of another type, or null, changes nothing. The copy shares the
  /// element objects with the other field (both turn into entry form), except in `MFColor` and `MFString`, which copy
  /// the values. A field set from itself stays as it is.
  virtual void setValue(const MField* other) = 0;

  /// Prints all elements, one a line behind the indent, with a comma behind every one but the last.
  virtual void write(std::ostream& out, const char* indent) const = 0;

  /// Number of elements.
  [[nodiscard]] int getSize() const { return m_entries ? static_cast<int>(m_entries->size()) : packedSize(); }

  /// Whether the values stand packed. A field is until an element is asked for as an object.
  [[nodiscard]] bool isPacked() const noexcept { return m_entries == nullptr; }

  /// The element object at an index, null when there is none; turns the field into entry form. The field keeps owning
  /// it.
  [[nodiscard]] Field* getElement(int i);

  /// Prints the elements' texts joined by ", " into the buffer and returns it. Stops before the element whose text
  /// would make the length so far plus its own plus 2 reach or exceed `size`. Without room for the terminating zero the
  /// buffer is left alone.
  char* getValue(char* buffer, int size) const;

  /// Removes all elements, destroying those that the field owns.
  void clear();

  void appendText(std::string& out) const override;
  void appendVrml(std::string& out, bool escapes = false) const override;

 protected:
  explicit MField(FieldType type) noexcept : Field(type) {}

  /// The shared copy: clears, then refers to every element object of the other field together with it.
  void shareElements(const MField& other);

  /// The text forms of the element at an index below `getSize()`.
  virtual void appendElementText(int i, std::string& out) const = 0;
  virtual void appendElementVrml(int i, std::string& out, bool escapes) const = 0;
  /// Hands a text to the element at an index below `getSize()`.
  virtual void setElementText(int i, const char* text) = 0;

  virtual int packedSize() const noexcept = 0;
  virtual void clearPacked() noexcept = 0;
  /// Element objects of all packed values, which are given up.
  virtual std::vector<FieldEntry> takePacked() const = 0;

  /// The entries, made from the packed values when there are none yet. Constant, because the value is: being asked for
  /// an element changes the form of a field that another one copies from.
  std::vector<FieldEntry>& entries() const;

  /// The entries, or null while the field is packed.
  [[nodiscard]] std::vector<FieldEntry>* entriesOrNull() const noexcept { return m_entries.get(); }

  [[nodiscard]] bool hasIndex(int i) const { return i >= 0 && i < getSize(); }

 private:
  mutable std::unique_ptr<std::vector<FieldEntry>> m_entries;
};

}  // namespace vrml
