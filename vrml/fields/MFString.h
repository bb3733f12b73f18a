#pragma once

// A list of texts, each of which may be missing; empty at first. The list owns copies of them. Copying it copies the
// texts instead of sharing elements.

#include "vrml/fields/PackedField.h"
#include "vrml/fields/SFString.h"

namespace vrml {

extern template class PackedField<SFString>;

class MFString final : public PackedField<SFString> {
 public:
  MFString() noexcept : PackedField(FieldType::MFString) {}

  using PackedField::addValue;
  using PackedField::setValue;
  using PackedField::write;

  /// Appends a copy of the text, up to its first zero byte.
  void addValue(std::string_view text);

  void setValue(const MField* other) override;

  /// Prints every text in quotes, a missing one as an empty one; with `escapes` a quote and a backslash in a text stand
  /// behind a backslash.
  void write(std::ostream& out, const char* indent, bool escapes) const { writeElements(out, indent, escapes); }
};

static_assert(sizeof(MFString) <= 56);

}  // namespace vrml
