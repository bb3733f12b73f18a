#pragma once

// A list of times, empty at first.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFTime.h"

namespace vrml {

extern template class PackedField<SFTime>;

class MFTime final : public PackedField<SFTime> {
 public:
  MFTime() noexcept : PackedField(FieldType::MFTime) {}
};

static_assert(sizeof(MFTime) <= 56);

}  // namespace vrml
