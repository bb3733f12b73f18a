// The table of the ElevationGrid node, and its bounding box.

#include "vrml/nodes/ElevationGridNode.h"

#include <cstddef>

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGeometryFields, std::array{
                                dataField<&ElevationGridData::xSpacing>(FieldList::field, "xSpacing"),
                                dataField<&ElevationGridData::zSpacing>(FieldList::field, "zSpacing"),
                                dataField<&ElevationGridData::xDimension>(FieldList::field, "xDimension"),
                                dataField<&ElevationGridData::zDimension>(FieldList::field, "zDimension"),
                                dataField<&ElevationGridData::colorPerVertex>(FieldList::field, "colorPerVertex"),
                                dataField<&ElevationGridData::normalPerVertex>(FieldList::field, "normalPerVertex"),
                                dataField<&ElevationGridData::ccw>(FieldList::field, "ccw"),
                                dataField<&ElevationGridData::solid>(FieldList::field, "solid"),
                                dataField<&ElevationGridData::creaseAngle>(FieldList::field, "creaseAngle"),
                                dataField<&ElevationGridData::height>(FieldList::field, "height"),
                                madeField<MFFloat>(FieldList::eventIn, "height"),
                            });

constexpr NodeMember kMembers[] = {
    {fieldKey("color"), false, NodeTypeSet("Color")},
    {fieldKey("normal"), false, NodeTypeSet("Normal")},
    {fieldKey("texCoord"), false, NodeTypeSet("TextureCoordinate")},
};

}  // namespace

constinit const NodeClass ElevationGridNode::kClass =
    describe<ElevationGridNode>({.typeName = "ElevationGrid",
                                 .fields = kFields,
                                 .members = kMembers,
                                 .acceptedChildren = NodeTypeSet("Color", "Normal", "TextureCoordinate"),
                                 .childrenBlock = ChildrenBlock::asMembers});

// Heights that the list lacks count for nothing, as do those beyond the grid.
BoundingBox ElevationGridNode::computeBox() const {
  BoundingBox box;
  const int columnCount = getXDimension();
  const int rowCount = getZDimension();
  if (columnCount < 1 || rowCount < 1) return box;
  const auto heights = getHeight().values();
  const auto columns = static_cast<std::size_t>(columnCount);
  for (std::size_t i = 0; i < heights.size() && i / columns < static_cast<std::size_t>(rowCount); ++i)
    box.add(static_cast<float>(i % columns) * getXSpacing(), heights[i],
            static_cast<float>(i / columns) * getZSpacing());
  return box;
}

}  // namespace vrml
