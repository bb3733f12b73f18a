// The table of the Text node.

#include "vrml/nodes/TextNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGeometryFields, std::array{
                                dataField<&TextData::maxExtent>(FieldList::exposedField, "maxExtent"),
                                dataField<&TextData::length>(FieldList::exposedField, "length"),
                                dataField<&TextData::string>(FieldList::exposedField, "string"),
                            });

constexpr NodeMember kMembers[] = {
    {fieldKey("fontStyle"), false, NodeTypeSet("FontStyle")},
};

}  // namespace

constinit const NodeClass TextNode::kClass = describe<TextNode>({.typeName = "Text",
                                                                 .fields = kFields,
                                                                 .members = kMembers,
                                                                 .acceptedChildren = NodeTypeSet("FontStyle"),
                                                                 .childrenBlock = ChildrenBlock::asMembers});

}  // namespace vrml
