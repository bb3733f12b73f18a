#pragma once

// Makes fields from type codes.

#include <memory>

#include "vrml/fields/Field.h"

namespace vrml {

/// A new default-valued field for the codes 1 to 9, null for any other: what a node may declare by type code alone.
[[nodiscard]] std::unique_ptr<Field> createField(FieldType type);

/// A new default-valued field of any class that has a type code; null for `none` and for numbers that are no type code.
[[nodiscard]] std::unique_ptr<Field> makeField(FieldType type);

}  // namespace vrml
