// The table of the Cone node, and its bounding box.

#include "vrml/nodes/ConeNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGeometryFields, std::array{
                                dataField<&ConeData::bottomRadius>(FieldList::exposedField, "bottomRadius"),
                                dataField<&ConeData::height>(FieldList::exposedField, "height"),
                                dataField<&ConeData::side>(FieldList::exposedField, "side"),
                                dataField<&ConeData::bottom>(FieldList::exposedField, "bottom"),
                            });

}  // namespace

constinit const NodeClass ConeNode::kClass = describe<ConeNode>({.typeName = "Cone", .fields = kFields});

BoundingBox ConeNode::computeBox() const {
  return BoundingBox::centered(getBottomRadius(), getHeight() * 0.5f, getBottomRadius());
}

}  // namespace vrml
