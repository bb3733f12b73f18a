#pragma once

// The base of the nodes of which one at a time is bound: they are told by set_bind and tell by isBound and bindTime.

#include "vrml/nodes/Node.h"

namespace vrml {

class BindableNode : public Node {
 protected:
  using Node::Node;
};

}  // namespace vrml
