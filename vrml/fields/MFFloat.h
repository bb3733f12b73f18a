#pragma once

// A list of 32-bit floats, empty at first.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFFloat.h"

namespace vrml {

extern template class PackedField<SFFloat>;

class MFFloat final : public PackedField<SFFloat> {
 public:
  MFFloat() noexcept : PackedField(FieldType::MFFloat) {}
};

static_assert(sizeof(MFFloat) <= 56);

}  // namespace vrml
