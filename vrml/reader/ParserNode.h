#pragma once

// One entry of the parse stack: a node whose body is open.

#include "vrml/nodes/LinkedListNode.h"
#include "vrml/nodes/Names.h"

namespace vrml {

class Node;

class ParserNode : public LinkedListNode<ParserNode> {
 public:
  Node* node = nullptr;             // whose body is open
  FieldKey field = FieldKey::none;  // the node-valued field that is being filled; none between fields
  bool inList = false;              // its bracketed list is open
};

}  // namespace vrml
