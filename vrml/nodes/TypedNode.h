#pragma once

// Puts the type of a class's data block between a node class and its base, so that the class's accessors read like
// members. A node is constructed with the block that it shares with its source, or with null when it is nobody's
// instance.

#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeClass.h"
#include "vrml/nodes/NodeData.h"

namespace vrml {

/// The block of a class without fields.
struct PlainData : NodeData {};

template <class Base, class D>
class TypedNode : public Base {
 public:
  using Data = D;

 protected:
  TypedNode(const NodeClass& nodeClass, NodeData* shared) : Base(nodeClass, shared) {}

  /// The values for reading, and for changing.
  [[nodiscard]] const D& data() const { return static_cast<const D&>(Node::data()); }
  [[nodiscard]] D& editData() { return static_cast<D&>(Node::editData()); }
};

}  // namespace vrml
