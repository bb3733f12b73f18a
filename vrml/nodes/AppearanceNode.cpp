// The table of the Appearance node.

#include "vrml/nodes/AppearanceNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr NodeMember kMembers[] = {
    {fieldKey("material"), false, NodeTypeSet("Material")},
    {fieldKey("texture"), false, kTextureTypes},
    {fieldKey("textureTransform"), false, NodeTypeSet("TextureTransform")},
};

}  // namespace

constinit const NodeClass AppearanceNode::kClass =
    describe<AppearanceNode>({.typeName = "Appearance",
                              .members = kMembers,
                              .acceptedChildren = NodeTypeSet("Material", "TextureTransform") | kTextureTypes,
                              .childrenBlock = ChildrenBlock::asMembers});

}  // namespace vrml
