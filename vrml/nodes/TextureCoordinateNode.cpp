// The table of the TextureCoordinate node.

#include "vrml/nodes/TextureCoordinateNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&TextureCoordinateData::point>(FieldList::exposedField, "point"),
};

}  // namespace

constinit const NodeClass TextureCoordinateNode::kClass =
    describe<TextureCoordinateNode>({.typeName = "TextureCoordinate", .fields = kFields});

}  // namespace vrml
