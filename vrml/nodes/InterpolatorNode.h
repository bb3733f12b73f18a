#pragma once

// The base of the nodes that turn a fraction into a value between key values. Each adds its keyValue and its
// value_changed.

#include "vrml/fields/MFFloat.h"
#include "vrml/nodes/Node.h"

namespace vrml {

struct InterpolatorData : NodeData {
  Named<MFFloat> key{"key"};
};

class InterpolatorNode : public Node {
 public:
  [[nodiscard]] const MFFloat& getKey() const { return *static_cast<const InterpolatorData&>(data()).key; }
  [[nodiscard]] MFFloat& editKey() { return *static_cast<InterpolatorData&>(editData()).key; }

 protected:
  using Node::Node;
};

}  // namespace vrml
