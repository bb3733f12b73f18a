// Instantiates the list over `SFVec3f`.

#include "vrml/fields/MFVec3f.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFVec3f>;

}  // namespace vrml
