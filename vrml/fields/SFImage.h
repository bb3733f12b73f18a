#pragma once

// An image as a list of integers: width, height, number of components, then one integer a pixel. Empty at first.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFInt32.h"

namespace vrml {

extern template class PackedField<SFInt32>;

class SFImage final : public PackedField<SFInt32> {
 public:
  SFImage() noexcept : PackedField(FieldType::SFImage) {}

  /// Prints the indent, then every integer and a blank; behind every 33rd a line end and the indent; at last a line
  /// end.
  void write(std::ostream& out, const char* indent) const override;

  /// The integers separated by blanks, without brackets; empty brackets when there are none.
  void appendVrml(std::string& out, bool escapes = false) const override;
};

static_assert(sizeof(SFImage) <= 56);

}  // namespace vrml
