// The table of the TextureTransform node.

#include "vrml/nodes/TextureTransformNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&TextureTransformData::translation>(FieldList::exposedField, "translation"),
    dataField<&TextureTransformData::scale>(FieldList::exposedField, "scale"),
    dataField<&TextureTransformData::center>(FieldList::exposedField, "center"),
    dataField<&TextureTransformData::rotation>(FieldList::exposedField, "rotation"),
};

}  // namespace

constinit const NodeClass TextureTransformNode::kClass =
    describe<TextureTransformNode>({.typeName = "TextureTransform", .fields = kFields});

}  // namespace vrml
