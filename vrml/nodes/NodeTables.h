#pragma once

// How a node class writes its table down: one line a field, from which the type, the access to the field in the data
// block and the way to make an event come by themselves. Only the sources of the node classes include this.

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/InterpolatorNode.h"
#include "vrml/nodes/LightNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeClass.h"
#include "vrml/nodes/NodeData.h"
#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TextureNode.h"

namespace vrml {

template <class F>
inline constexpr FieldType kTypeOfField = FieldType::none;
template <>
inline constexpr FieldType kTypeOfField<SFBool> = FieldType::SFBool;
template <>
inline constexpr FieldType kTypeOfField<SFFloat> = FieldType::SFFloat;
template <>
inline constexpr FieldType kTypeOfField<SFInt32> = FieldType::SFInt32;
template <>
inline constexpr FieldType kTypeOfField<SFVec2f> = FieldType::SFVec2f;
template <>
inline constexpr FieldType kTypeOfField<SFVec3f> = FieldType::SFVec3f;
template <>
inline constexpr FieldType kTypeOfField<SFString> = FieldType::SFString;
template <>
inline constexpr FieldType kTypeOfField<SFColor> = FieldType::SFColor;
template <>
inline constexpr FieldType kTypeOfField<SFTime> = FieldType::SFTime;
template <>
inline constexpr FieldType kTypeOfField<SFRotation> = FieldType::SFRotation;
template <>
inline constexpr FieldType kTypeOfField<SFImage> = FieldType::SFImage;
template <>
inline constexpr FieldType kTypeOfField<MFFloat> = FieldType::MFFloat;
template <>
inline constexpr FieldType kTypeOfField<MFInt32> = FieldType::MFInt32;
template <>
inline constexpr FieldType kTypeOfField<MFVec2f> = FieldType::MFVec2f;
template <>
inline constexpr FieldType kTypeOfField<MFVec3f> = FieldType::MFVec3f;
template <>
inline constexpr FieldType kTypeOfField<MFString> = FieldType::MFString;
template <>
inline constexpr FieldType kTypeOfField<MFColor> = FieldType::MFColor;
template <>
inline constexpr FieldType kTypeOfField<MFTime> = FieldType::MFTime;
template <>
inline constexpr FieldType kTypeOfField<MFRotation> = FieldType::MFRotation;

/// What the type of a pointer to a data member tells.
template <class Pointer>
struct DataMember;
template <class Struct, class F>
struct DataMember<Named<F> Struct::*> {
  using Owner = Struct;
  using Value = F;
};
template <class Struct, class P>
struct DataMember<Rare<P> Struct::*> {
  using Owner = Struct;
  using Part = P;
};

/// The keyword of a field that files set; the fields of a Script are keywords there only, and have none here.
[[nodiscard]] consteval FieldKey keyOfField(const char* word) {
  return findScriptWord(word) != ScriptWord::none ? findFieldKey(word) : fieldKey(word);
}

/// A field that stands in the data block: dataField<&MaterialData::transparency>(FieldList::exposedField,
/// "transparency"). `keyword` is given when it is another word than the field's name.
template <auto member>
[[nodiscard]] consteval FieldDecl dataField(FieldList list, const char* name, const char* keyword = nullptr) {
  using Member = DataMember<decltype(member)>;
  using Owner = typename Member::Owner;
  return {.name = name,
          .keyword = keyword ? keyword : name,
          .key = keyOfField(keyword ? keyword : name),
          .list = list,
          .type = kTypeOfField<typename Member::Value>,
          .get = [](NodeData& data) -> Field& { return *(static_cast<Owner&>(data).*member); },
          .peek = [](const NodeData& data) -> const Field& { return *(static_cast<const Owner&>(data).*member); },
          .make = nullptr};
}

/// The same for a field in a rare part: rareField<&MaterialData::rare, &MaterialRare::shininess>(...).
template <auto part, auto member>
[[nodiscard]] consteval FieldDecl rareField(FieldList list, const char* name) {
  using Owner = typename DataMember<decltype(part)>::Owner;
  using Member = DataMember<decltype(member)>;
  return {.name = name,
          .keyword = name,
          .key = fieldKey(name),
          .list = list,
          .type = kTypeOfField<typename Member::Value>,
          .get = [](NodeData& data) -> Field& { return *((static_cast<Owner&>(data).*part).edit().*member); },
          .peek = [](const NodeData& data) -> const Field& {
            return *((static_cast<const Owner&>(data).*part).get().*member);
          },
          .make = nullptr};
}

/// The number type that a single-valued field is made from.
template <class F>
struct ScalarOf {
  using type = float;
};
template <>
struct ScalarOf<SFBool> {
  using type = bool;
};
template <>
struct ScalarOf<SFTime> {
  using type = double;
};

/// A field that no file sets, made when it is asked for: madeField<SFTime, 1>(FieldList::eventOut, "bindTime"). The
/// numbers are its default; without any it is what the field's own constructor makes.
template <class F, int... defaults>
[[nodiscard]] consteval FieldDecl madeField(FieldList list, const char* name) {
  return {.name = name,
          .keyword = "",
          .key = FieldKey::none,
          .list = list,
          .type = kTypeOfField<F>,
          .get = nullptr,
          .peek = nullptr,
          .make = []() -> std::unique_ptr<Field> {
            return std::make_unique<F>(static_cast<typename ScalarOf<F>::type>(defaults)...);
          }};
}

/// The fields of a base, then those of the class itself.
template <std::size_t n, std::size_t m>
[[nodiscard]] consteval std::array<FieldDecl, n + m> joined(const std::array<FieldDecl, n>& base,
                                                            const std::array<FieldDecl, m>& own) {
  std::array<FieldDecl, n + m> all{};
  std::copy(base.begin(), base.end(), all.begin());
  std::copy(own.begin(), own.end(), all.begin() + n);
  return all;
}

/// The fields of the category bases.
inline constexpr std::array kGroupingFields{
    rareField<&GroupingData::bbox, &GroupingBox::bboxCenter>(FieldList::field, "bboxCenter"),
    rareField<&GroupingData::bbox, &GroupingBox::bboxSize>(FieldList::field, "bboxSize"),
};
inline constexpr std::array kGeometryFields{
    madeField<SFVec3f, 0, 0, 0>(FieldList::fifth, "bboxCenter"),
    madeField<SFVec3f, -1, -1, -1>(FieldList::fifth, "bboxSize"),
};
inline constexpr std::array kBindableFields{
    madeField<SFBool, 1>(FieldList::eventIn, "set_bind"),
    madeField<SFTime, 1>(FieldList::eventOut, "bindTime"),
    madeField<SFBool, 1>(FieldList::eventOut, "isBound"),
};
inline constexpr std::array kInterpolatorFields{
    dataField<&InterpolatorData::key>(FieldList::exposedField, "key"),
    madeField<SFFloat, 0>(FieldList::eventIn, "fraction"),
};
inline constexpr std::array kLightFields{
    dataField<&LightData::on>(FieldList::exposedField, "on"),
    dataField<&LightData::intensity>(FieldList::exposedField, "intensity"),
    dataField<&LightData::color>(FieldList::exposedField, "color"),
};
inline constexpr std::array kSensorFields{
    dataField<&SensorData::enabled>(FieldList::exposedField, "enabled"),
    madeField<SFBool, 0>(FieldList::eventOut, "isActive"),
};
inline constexpr std::array kTextureFields{
    dataField<&TextureData::repeatS>(FieldList::field, "repeatS"),
    dataField<&TextureData::repeatT>(FieldList::field, "repeatT"),
};

/// What a class says of itself; the rest of its table follows from its C++ types.
struct ClassTraits {
  const char* typeName;
  std::span<const FieldDecl> fields = {};
  std::span<const NodeMember> members = {};
  NodeTypeSet acceptedChildren = {};
  ChildrenBlock childrenBlock = ChildrenBlock::written;
  FieldKey childrenKey = fieldKey("children");
  std::span<const FieldKey> writeOrder = {};
  bool copyable = true;
};

/// The table of the node class N, whose values stand in an N::Data.
template <class N>
[[nodiscard]] consteval NodeClass describe(const ClassTraits& traits) {
  using Data = typename N::Data;
  static_assert(alignof(N) <= NodePool::kAlignment && alignof(Data) <= NodePool::kAlignment);
  return {.typeName = traits.typeName,
          .type = nodeType(traits.typeName),
          .fields = traits.fields,
          .members = traits.members,
          .acceptedChildren = traits.acceptedChildren,
          .childrenBlock = traits.childrenBlock,
          .childrenKey = traits.childrenKey,
          .writeOrder = traits.writeOrder,
          .copyable = traits.copyable,
          .create = [](NodeData* shared) -> Node* { return new N(shared); },
          .createData = []() -> NodeData* { return new Data; },
          .destroyData = [](NodeData* data) noexcept { delete static_cast<Data*>(data); },
          .defaults = []() -> const NodeData& {
            // Never destroyed: a node may outlive what ends with the process. Not in the pool, where it would keep a
            // whole chunk.
            static const Data& defaults = *::new Data;
            return defaults;
          }};
}

}  // namespace vrml
