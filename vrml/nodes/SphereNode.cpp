// The table of the Sphere node, and its bounding box.

#include "vrml/nodes/SphereNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(kGeometryFields, std::array{
                                                     dataField<&SphereData::radius>(FieldList::exposedField, "radius"),
                                                 });

}  // namespace

constinit const NodeClass SphereNode::kClass = describe<SphereNode>({.typeName = "Sphere", .fields = kFields});

BoundingBox SphereNode::computeBox() const { return BoundingBox::centered(getRadius(), getRadius(), getRadius()); }

}  // namespace vrml
