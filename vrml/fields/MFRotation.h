#pragma once

// A list of rotations, empty at first. Each axis is normalised as it goes in.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFRotation.h"

namespace vrml {

extern template class PackedField<SFRotation>;

class MFRotation final : public PackedField<SFRotation> {
 public:
  MFRotation() noexcept : PackedField(FieldType::MFRotation) {}
};

static_assert(sizeof(MFRotation) <= 56);

}  // namespace vrml
