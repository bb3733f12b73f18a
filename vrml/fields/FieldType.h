#pragma once

// The type codes of field values. The node base and the copy operations compare them, and they stand in the order of
// their numbers in every table, so the numbers are fixed.

#include <cstdint>
#include <string_view>

namespace vrml {

enum class FieldType : std::int32_t {
  none = 0,         // Field itself, MField itself, SFMatrix
  SFBool = 1,       // one truth value
  SFFloat = 2,      // one 32-bit float
  SFInt32 = 3,      // one 32-bit integer
  SFVec2f = 4,      // two floats
  SFVec3f = 5,      // three floats
  SFString = 6,     // one text, or none
  SFColor = 7,      // red, green, blue
  SFTime = 8,       // seconds, 64-bit float
  SFRotation = 9,   // axis and angle in radians
  SFImage = 10,     // width, height, components, then one integer a pixel
  SFNode = 11,      // one node, not owned
  MFFloat = 12,     // list of SFFloat
  MFInt32 = 13,     // list of SFInt32
  MFVec2f = 14,     // list of SFVec2f
  MFVec3f = 15,     // list of SFVec3f
  MFString = 16,    // list of SFString
  MFColor = 17,     // list of SFColor
  MFTime = 18,      // list of SFTime
  MFRotation = 19,  // list of SFRotation
};

/// The type's name as VRML text spells it ("SFVec3f"); "" for `none` and for numbers that are no type code.
[[nodiscard]] const char* fieldTypeName(FieldType type) noexcept;

/// The type of that exact name, or `none`.
[[nodiscard]] FieldType fieldTypeOf(std::string_view name) noexcept;

}  // namespace vrml
