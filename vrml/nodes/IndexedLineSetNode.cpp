// The table of the IndexedLineSet node, and its bounding box.

#include "vrml/nodes/IndexedLineSetNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGeometryFields, std::array{
                                dataField<&IndexedLineSetData::colorPerVertex>(FieldList::field, "colorPerVertex"),
                                dataField<&IndexedLineSetData::coordIndex>(FieldList::field, "coordIndex"),
                                dataField<&IndexedLineSetData::colorIndex>(FieldList::field, "colorIndex"),
                                madeField<MFInt32>(FieldList::eventIn, "coordIndex"),
                                madeField<MFInt32>(FieldList::eventIn, "colorIndex"),
                            });

constexpr NodeMember kMembers[] = {
    {fieldKey("color"), false, NodeTypeSet("Color")},
    {fieldKey("coord"), false, NodeTypeSet("Coordinate")},
};

}  // namespace

constinit const NodeClass IndexedLineSetNode::kClass =
    describe<IndexedLineSetNode>({.typeName = "IndexedLineSet",
                                  .fields = kFields,
                                  .members = kMembers,
                                  .acceptedChildren = NodeTypeSet("Color", "Coordinate"),
                                  .childrenBlock = ChildrenBlock::asMembers});

BoundingBox IndexedLineSetNode::computeBox() const { return boxOfPoints(); }

}  // namespace vrml
