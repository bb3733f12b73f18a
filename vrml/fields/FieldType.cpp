// One table of names, indexed by type code.

#include "vrml/fields/FieldType.h"

#include <array>

namespace vrml {

namespace {

constexpr std::array kNames = {"",        "SFBool",  "SFFloat",    "SFInt32", "SFVec2f", "SFVec3f",   "SFString",
                               "SFColor", "SFTime",  "SFRotation", "SFImage", "SFNode",  "MFFloat",   "MFInt32",
                               "MFVec2f", "MFVec3f", "MFString",   "MFColor", "MFTime",  "MFRotation"};
static_assert(kNames.size() == static_cast<std::size_t>(FieldType::MFRotation) + 1);

}  // namespace

const char* fieldTypeName(FieldType type) noexcept {
  const auto code = static_cast<std::size_t>(type);
  return code < kNames.size() ? kNames[code] : "";
}

FieldType fieldTypeOf(std::string_view name) noexcept {
  for (std::size_t code = 1; code < kNames.size(); ++code)
    if (name == kNames[code]) return static_cast<FieldType>(code);
  return FieldType::none;
}

}  // namespace vrml
