// Loaded content hangs below the node as ordinary children. Node's own walks know an Inline by its type and leave what
// is below it out of containers, searches in document order and text.

#include "vrml/nodes/InlineNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGroupingFields, std::array{dataField<&InlineData::url>(FieldList::exposedField, "url")});

}  // namespace

constinit const NodeClass InlineNode::kClass = describe<InlineNode>({.typeName = "Inline",
                                                                     .fields = kFields,
                                                                     .acceptedChildren = kGroupingChildTypes,
                                                                     .childrenBlock = ChildrenBlock::hidden});

void InlineNode::takeContent(Node& root) {
  while (Node* child = root.getChildNodes())
    if (!addChildNode(child)) return;
}

std::string inlinedFileOf(const Node& node) {
  const Node* at = node.getParent();
  while (at && !at->isType(nodeType("Inline"))) at = at->getParent();
  return at ? static_cast<const InlineNode*>(at)->getFile() : std::string();
}

}  // namespace vrml
