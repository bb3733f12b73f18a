// The table of the Cylinder node, and its bounding box.

#include "vrml/nodes/CylinderNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGeometryFields, std::array{
                                dataField<&CylinderData::radius>(FieldList::exposedField, "radius"),
                                dataField<&CylinderData::height>(FieldList::exposedField, "height"),
                                dataField<&CylinderData::top>(FieldList::exposedField, "top"),
                                dataField<&CylinderData::side>(FieldList::exposedField, "side"),
                                dataField<&CylinderData::bottom>(FieldList::exposedField, "bottom"),
                            });

}  // namespace

constinit const NodeClass CylinderNode::kClass = describe<CylinderNode>({.typeName = "Cylinder", .fields = kFields});

BoundingBox CylinderNode::computeBox() const {
  return BoundingBox::centered(getRadius(), getHeight() * 0.5f, getRadius());
}

}  // namespace vrml
