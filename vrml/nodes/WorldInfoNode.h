#pragma once

// A title and notes.

#include <string_view>

#include "vrml/fields/MFString.h"
#include "vrml/fields/SFString.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct WorldInfoData : NodeData {
  Named<SFString> title{"title", ""};
  Named<MFString> info{"info"};
};

class WorldInfoNode final : public TypedNode<Node, WorldInfoData> {
 public:
  static const NodeClass kClass;
  explicit WorldInfoNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const char* getTitle() const { return data().title->getValue(); }
  void setTitle(std::string_view text) { editData().title->setValue(text); }
  [[nodiscard]] const MFString& getInfo() const { return *data().info; }
  [[nodiscard]] MFString& editInfo() { return *editData().info; }
};

}  // namespace vrml
