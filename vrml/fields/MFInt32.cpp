// Instantiates the list over `SFInt32`, which images are too.

#include "vrml/fields/MFInt32.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFInt32>;

}  // namespace vrml
