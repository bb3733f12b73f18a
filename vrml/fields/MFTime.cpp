// Instantiates the list over `SFTime`.

#include "vrml/fields/MFTime.h"

#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFTime>;

}  // namespace vrml
