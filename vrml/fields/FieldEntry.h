#pragma once

// One element of a multi-valued field in entry form: an element object and whether the field owns it. Two fields may
// own one element together (copying a multi-valued field shares its elements); the last one destroys it, in whatever
// order the fields end. That is what the shared pointer is for.

#include <memory>
#include <utility>

#include "vrml/fields/Field.h"

namespace vrml {

struct FieldEntry {
  bool owned = false;
  std::shared_ptr<Field> value;

  /// An entry that destroys its element with the last field that holds it.
  [[nodiscard]] static FieldEntry owning(std::unique_ptr<Field> element) { return {true, std::move(element)}; }

  /// An entry that refers to an element that somebody else owns and keeps longer.
  [[nodiscard]] static FieldEntry referring(Field* element) { return {false, {std::shared_ptr<Field>(), element}}; }
};

}  // namespace vrml
