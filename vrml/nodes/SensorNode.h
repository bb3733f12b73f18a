#pragma once

// The base of the nodes that notice something and send an event.

#include "vrml/fields/SFBool.h"
#include "vrml/nodes/Node.h"

namespace vrml {

struct SensorData : NodeData {
  Named<SFBool> enabled{"enabled", true};
};

class SensorNode : public Node {
 public:
  [[nodiscard]] bool getEnabled() const { return static_cast<const SensorData&>(data()).enabled->getValue(); }
  void setEnabled(bool value) { static_cast<SensorData&>(editData()).enabled->setValue(value); }

 protected:
  using Node::Node;
};

}  // namespace vrml
