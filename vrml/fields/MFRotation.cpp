// Instantiates the list over `SFRotation`.

#include "vrml/fields/MFRotation.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFRotation>;

}  // namespace vrml
