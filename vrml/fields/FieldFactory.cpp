// One table of makers, indexed by type code.

#include "vrml/fields/FieldFactory.h"

#include <array>

#include "vrml/fields/Fields.h"

namespace vrml {

namespace {

using Maker = std::unique_ptr<Field> (*)();

template <class F>
std::unique_ptr<Field> make() {
  return std::make_unique<F>();
}

constexpr std::array<Maker, 20> kMakers = {
    nullptr,       make<SFBool>,  make<SFFloat>,    make<SFInt32>, make<SFVec2f>, make<SFVec3f>,   make<SFString>,
    make<SFColor>, make<SFTime>,  make<SFRotation>, make<SFImage>, make<SFNode>,  make<MFFloat>,   make<MFInt32>,
    make<MFVec2f>, make<MFVec3f>, make<MFString>,   make<MFColor>, make<MFTime>,  make<MFRotation>};

std::unique_ptr<Field> makeBelow(FieldType type, std::size_t limit) {
  const auto code = static_cast<std::size_t>(type);
  return code < limit && kMakers[code] ? kMakers[code]() : nullptr;
}

}  // namespace

std::unique_ptr<Field> createField(FieldType type) {
  return makeBelow(type, static_cast<std::size_t>(FieldType::SFRotation) + 1);
}

std::unique_ptr<Field> makeField(FieldType type) { return makeBelow(type, kMakers.size()); }

}  // namespace vrml
