// Instantiates the list over `SFVec2f`.

#include "vrml/fields/MFVec2f.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFVec2f>;

}  // namespace vrml
