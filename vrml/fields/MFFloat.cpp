// Instantiates the list over `SFFloat`.

#include "vrml/fields/MFFloat.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFFloat>;

}  // namespace vrml
