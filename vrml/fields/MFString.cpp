// Instantiates the list over `SFString`; copying copies the texts.

#include "vrml/fields/MFString.h"

#include "vrml/fields/OwnedText.h"
#include "vrml/fields/PackedFieldBody.h"

namespace vrml {

template class PackedField<SFString>;

void MFString::addValue(std::string_view text) {
  if (isPacked()) packed().makeRoom(1);  // before there is a copy that could be lost
  addStored(copyText(text));
}

void MFString::setValue(const MField* other) {
  if (other != this && isSameType(other)) copyValues(static_cast<const MFString&>(*other));
}

}  // namespace vrml
