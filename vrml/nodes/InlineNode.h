#pragma once

// Another file in this one's place. What the file holds becomes this node's children once it is loaded: a conversion
// walks them like a group's. They are not part of the text of this file, so they are not written, and their names are
// known in their own file only: they belong to no container.

#include <string>
#include <utility>

#include "vrml/fields/MFString.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct InlineData : GroupingData {
  Named<MFString> url{"url"};
  std::string file;  // no field: what was loaded
};

class InlineNode final : public TypedNode<GroupingNode, InlineData> {
 public:
  static const NodeClass kClass;
  explicit InlineNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }

  /// The path of the file whose content hangs below this node, as it was opened: what that file names is relative to
  /// it. "" when nothing was loaded.
  [[nodiscard]] const std::string& getFile() const { return data().file; }
  void setFile(std::string path) { editData().file = std::move(path); }

  /// Moves every child of `root` here, behind what is here already, in order; each leaves its container.
  void takeContent(Node& root);
};

/// The file that a node stands in when an Inline brought it in; "" when it is of the file that was loaded.
[[nodiscard]] std::string inlinedFileOf(const Node& node);

}  // namespace vrml
