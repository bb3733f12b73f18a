#pragma once

// A list of 3-vectors, empty at first.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFVec3f.h"

namespace vrml {

extern template class PackedField<SFVec3f>;

class MFVec3f final : public PackedField<SFVec3f> {
 public:
  MFVec3f() noexcept : PackedField(FieldType::MFVec3f) {}
};

static_assert(sizeof(MFVec3f) <= 56);

}  // namespace vrml
