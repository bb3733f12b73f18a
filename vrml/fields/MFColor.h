#pragma once

// A list of colours, empty at first. Copying it copies the values instead of sharing elements.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFColor.h"

namespace vrml {

extern template class PackedField<SFColor>;

class MFColor final : public PackedField<SFColor> {
 public:
  MFColor() noexcept : PackedField(FieldType::MFColor) {}

  using PackedField::setValue;

  void setValue(const MField* other) override;
};

static_assert(sizeof(MFColor) <= 56);

}  // namespace vrml
