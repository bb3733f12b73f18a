// The table of the Coordinate node.

#include "vrml/nodes/CoordinateNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&CoordinateData::point>(FieldList::exposedField, "point"),
};

}  // namespace

constinit const NodeClass CoordinateNode::kClass =
    describe<CoordinateNode>({.typeName = "Coordinate", .fields = kFields});

}  // namespace vrml
