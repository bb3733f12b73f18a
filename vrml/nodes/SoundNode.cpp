// The table of the Sound node.

#include "vrml/nodes/SoundNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&SoundData::minFront>(FieldList::exposedField, "minFront"),
    dataField<&SoundData::maxFront>(FieldList::exposedField, "maxFront"),
    dataField<&SoundData::minBack>(FieldList::exposedField, "minBack"),
    dataField<&SoundData::maxBack>(FieldList::exposedField, "maxBack"),
    dataField<&SoundData::intensity>(FieldList::exposedField, "intensity"),
    dataField<&SoundData::priority>(FieldList::exposedField, "priority"),
    dataField<&SoundData::direction>(FieldList::exposedField, "direction"),
    dataField<&SoundData::location>(FieldList::exposedField, "location"),
    dataField<&SoundData::spatialize>(FieldList::field, "spatialize"),
};

constexpr NodeMember kMembers[] = {
    {fieldKey("source"), false, NodeTypeSet("AudioClip", "MovieTexture")},
};

}  // namespace

constinit const NodeClass SoundNode::kClass =
    describe<SoundNode>({.typeName = "Sound",
                         .fields = kFields,
                         .members = kMembers,
                         .acceptedChildren = NodeTypeSet("AudioClip", "MovieTexture"),
                         .childrenBlock = ChildrenBlock::asMembers});

}  // namespace vrml
