#pragma once

// What a node tree tells the container that owns it. The container of a parsed file implements this to keep its name
// index and its bindable stacks in step with the tree, without the nodes knowing anything of the container.

#include <string_view>

namespace vrml {

class Node;

class NodeOwner {
 public:
  NodeOwner() = default;
  virtual ~NodeOwner() = default;
  NodeOwner(const NodeOwner&) = delete;
  NodeOwner& operator=(const NodeOwner&) = delete;

  /// `node` has become part of this container's tree. It stands in its place already. Called for every node of a
  /// subtree, in document order.
  virtual void nodeAttached(Node& node) { static_cast<void>(node); }

  /// `node` has left this container's tree or is being destroyed; its type and name can still be asked for, nothing
  /// else of it. Called for every node of a subtree.
  virtual void nodeDetached(Node& node) { static_cast<void>(node); }

  /// `node`, which is part of this container's tree, was called `oldName` until now.
  virtual void nodeRenamed(Node& node, std::string_view oldName) {
    static_cast<void>(node);
    static_cast<void>(oldName);
  }

  /// True when quotes and backslashes in strings are written with a backslash before them: when the tree was read so.
  [[nodiscard]] virtual bool writesEscapes() const { return false; }
};

}  // namespace vrml
