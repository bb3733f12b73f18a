// Instantiates the list over `SFColor`; copying copies the values.

#include "vrml/fields/MFColor.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFColor>;

void MFColor::setValue(const MField* other) {
  if (other != this && isSameType(other)) copyValues(static_cast<const MFColor&>(*other));
}

}  // namespace vrml
