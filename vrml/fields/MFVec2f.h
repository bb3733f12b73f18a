#pragma once

// A list of 2-vectors, empty at first.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFVec2f.h"

namespace vrml {

extern template class PackedField<SFVec2f>;

class MFVec2f final : public PackedField<SFVec2f> {
 public:
  MFVec2f() noexcept : PackedField(FieldType::MFVec2f) {}
};

static_assert(sizeof(MFVec2f) <= 56);

}  // namespace vrml
