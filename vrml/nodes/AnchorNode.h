#pragma once

// A group whose content leads to another place: a url, words for the browser, and a text for the user.

#include <string_view>

#include "vrml/fields/MFString.h"
#include "vrml/fields/SFString.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct AnchorData : GroupingData {
  Named<SFString> description{"description", ""};
  Named<MFString> parameter{"parameter"};
  Named<MFString> url{"url"};
};

class AnchorNode final : public TypedNode<GroupingNode, AnchorData> {
 public:
  static const NodeClass kClass;
  explicit AnchorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const char* getDescription() const { return data().description->getValue(); }
  void setDescription(std::string_view text) { editData().description->setValue(text); }
  [[nodiscard]] const MFString& getParameter() const { return *data().parameter; }
  [[nodiscard]] MFString& editParameter() { return *editData().parameter; }
  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }
};

}  // namespace vrml
