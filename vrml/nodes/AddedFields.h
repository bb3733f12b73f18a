#pragma once

// The fields that were added to one node, as a Script's declarations are, in the order of adding. A script may declare
// thousands of them, and a file may route to them as often: once there are many, they are found by a hash of their
// names instead of one after the other.

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "vrml/fields/Field.h"
#include "vrml/nodes/NodeClass.h"

namespace vrml {

/// What a look-up wants of a field's name: all of `text`, or a part of it. No name at all is no part.
struct NamePattern {
  std::string_view text;
  bool isWhole = true;  // the name is the text
  bool isTail = false;  // or ends it
  bool isHead = false;  // or begins it

  [[nodiscard]] bool matches(std::string_view name) const noexcept {
    if (isWhole && name == text) return true;
    return !name.empty() && ((isTail && text.ends_with(name)) || (isHead && text.starts_with(name)));
  }
};

class AddedFields {
 public:
  struct Entry {
    FieldList list;
    std::unique_ptr<Field> field;
  };

  AddedFields() noexcept;
  ~AddedFields();
  AddedFields(const AddedFields&) = delete;
  AddedFields& operator=(const AddedFields&) = delete;

  /// Adds a field, which is not null, behind the others and returns it. It is found under the name that it has at the
  /// first look-up after this.
  Field* add(FieldList list, std::unique_ptr<Field> field);

  /// The first field of a list whose name matches; null when there is none. Takes time in the length of the text, not
  /// in the number of fields.
  [[nodiscard]] Field* first(FieldList list, const NamePattern& wanted) const;

  /// All fields of all lists. Valid until the next one is added.
  [[nodiscard]] std::span<const Entry> all() const noexcept { return m_entries; }

 private:
  class Index;

  std::vector<Entry> m_entries;
  mutable std::unique_ptr<Index> m_index;  // null until there are many fields and one is looked for
};

}  // namespace vrml
