// The table of the Box node, and its bounding box.

#include "vrml/nodes/BoxNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(kGeometryFields, std::array{
                                                     dataField<&BoxData::size>(FieldList::exposedField, "size"),
                                                 });

}  // namespace

constinit const NodeClass BoxNode::kClass =
    describe<BoxNode>({.typeName = "Box", .fields = kFields, .copyable = false});

BoundingBox BoxNode::computeBox() const {
  return BoundingBox::centered(getSize().x() * 0.5f, getSize().y() * 0.5f, getSize().z() * 0.5f);
}

}  // namespace vrml
