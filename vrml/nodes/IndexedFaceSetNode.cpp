// The table of the IndexedFaceSet node, and its bounding box.

#include "vrml/nodes/IndexedFaceSetNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(
    kGeometryFields,
    std::array{
        rareField<&IndexedFaceSetData::flags, &IndexedFaceSetFlags::ccw>(FieldList::field, "ccw"),
        rareField<&IndexedFaceSetData::flags, &IndexedFaceSetFlags::colorPerVertex>(FieldList::field, "colorPerVertex"),
        rareField<&IndexedFaceSetData::flags, &IndexedFaceSetFlags::normalPerVertex>(FieldList::field,
                                                                                     "normalPerVertex"),
        rareField<&IndexedFaceSetData::flags, &IndexedFaceSetFlags::solid>(FieldList::field, "solid"),
        rareField<&IndexedFaceSetData::flags, &IndexedFaceSetFlags::convex>(FieldList::field, "convex"),
        rareField<&IndexedFaceSetData::flags, &IndexedFaceSetFlags::creaseAngle>(FieldList::field, "creaseAngle"),
        dataField<&IndexedFaceSetData::coordIndex>(FieldList::field, "coordIndex"),
        rareField<&IndexedFaceSetData::indices, &IndexedFaceSetIndices::texCoordIndex>(FieldList::field,
                                                                                       "texCoordIndex"),
        rareField<&IndexedFaceSetData::indices, &IndexedFaceSetIndices::colorIndex>(FieldList::field, "colorIndex"),
        rareField<&IndexedFaceSetData::indices, &IndexedFaceSetIndices::normalIndex>(FieldList::field, "normalIndex"),
        madeField<MFInt32>(FieldList::eventIn, "coordIndex"),
        madeField<MFInt32>(FieldList::eventIn, "texCoordIndex"),
        madeField<MFInt32>(FieldList::eventIn, "colorIndex"),
        madeField<MFInt32>(FieldList::eventIn, "normalIndex"),
    });

constexpr NodeMember kMembers[] = {
    {fieldKey("color"), false, NodeTypeSet("Color")},
    {fieldKey("coord"), false, NodeTypeSet("Coordinate")},
    {fieldKey("normal"), false, NodeTypeSet("Normal")},
    {fieldKey("texCoord"), false, NodeTypeSet("TextureCoordinate")},
};

}  // namespace

constinit const NodeClass IndexedFaceSetNode::kClass =
    describe<IndexedFaceSetNode>({.typeName = "IndexedFaceSet",
                                  .fields = kFields,
                                  .members = kMembers,
                                  .acceptedChildren = NodeTypeSet("Color", "Coordinate", "Normal", "TextureCoordinate"),
                                  .childrenBlock = ChildrenBlock::asMembers});

BoundingBox IndexedFaceSetNode::computeBox() const { return boxOfPoints(); }

}  // namespace vrml
