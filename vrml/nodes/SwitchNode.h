#pragma once

// A choice of one of its children by number, or of none.

#include <cstdint>

#include "vrml/fields/SFInt32.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct SwitchData : NodeData {
  Named<SFInt32> whichChoice{"whichChoice", -1};
};

class SwitchNode final : public TypedNode<Node, SwitchData> {
 public:
  static const NodeClass kClass;
  explicit SwitchNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] std::int32_t getWhichChoice() const { return data().whichChoice->getValue(); }
  void setWhichChoice(std::int32_t value) { editData().whichChoice->setValue(value); }
};

}  // namespace vrml
