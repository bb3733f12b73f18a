#pragma once

// A list of 32-bit integers, empty at first.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFInt32.h"

namespace vrml {

extern template class PackedField<SFInt32>;

class MFInt32 final : public PackedField<SFInt32> {
 public:
  MFInt32() noexcept : PackedField(FieldType::MFInt32) {}
};

static_assert(sizeof(MFInt32) <= 56);

}  // namespace vrml
