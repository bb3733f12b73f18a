// The union over a subtree, from the leaves up, along the links. What is kept on the way is one box for each level of
// the tree. A node's box is in its own coordinates; it enters its parent's as its corners under the node's matrix, if
// it has one.

#include "vrml/nodes/GroupingNode.h"

#include <vector>

#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/TransformNode.h"

namespace vrml {

namespace {

BoundingBox inParent(const Node& node, const BoundingBox& box) {
  if (!node.isType(nodeType("Transform"))) return box;
  double matrix[16];
  static_cast<const TransformNode&>(node).getMatrix(matrix);
  return box.transformed(matrix);
}

bool isGeometry(const Node& node) { return kGeometryTypes.contains(node.getType()); }

}  // namespace

void GroupingNode::recomputeBoundingBox() {
  std::vector<BoundingBox> boxes(1);  // of the nodes from this one down to `node`
  const Node* node = this;
  for (;;) {
    const Node* const child = isGeometry(*node) ? nullptr : node->getChildNodes();
    if (child) {
      node = child;
      boxes.emplace_back();
      continue;
    }
    if (isGeometry(*node)) boxes.back() = static_cast<const GeometryNode*>(node)->computeBox();
    while (node != this) {
      const BoundingBox box = inParent(*node, boxes.back());
      boxes.pop_back();
      boxes.back().add(box);
      if (const Node* const sibling = node->next()) {
        node = sibling;
        boxes.emplace_back();
        break;
      }
      node = node->getParent();
    }
    if (node == this) break;
  }
  setComputedBox(boxes.front());
}

}  // namespace vrml
