#pragma once

// The root of a parsed file, whose children are the nodes of its top level.

#include <string>
#include <utility>

#include "vrml/nodes/TypedNode.h"

namespace vrml {

class RootNode final : public TypedNode<Node, PlainData> {
 public:
  static const NodeClass kClass;
  explicit RootNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  /// The path of the file that the tree was read from; "" when it was read from none.
  [[nodiscard]] const std::string& getFile() const noexcept { return m_file; }
  void setFile(std::string path) { m_file = std::move(path); }

 private:
  std::string m_file;
};

}  // namespace vrml
