#pragma once

// Making nodes: of a type that a file names, and again from a node that exists already (USE). The factory's table lists
// every node class; adding a type is writing its class and its line there.

#include <string_view>
#include <vector>

#include "vrml/nodes/Names.h"
#include "vrml/nodes/NodeClass.h"

namespace vrml {

class Node;

/// The class of a node type; null for `none`.
[[nodiscard]] const NodeClass* findNodeClass(NodeType type) noexcept;
[[nodiscard]] const NodeClass* findNodeClass(std::string_view typeName) noexcept;

/// A new node of a type with every field at its default, owned by the caller. Null when there is no such type; "DEF"
/// and "Root" are types here.
[[nodiscard]] Node* createNode(NodeType type);
[[nodiscard]] Node* createNode(std::string_view typeName);

/// An instance of `node`, owned by the caller: a node of the same class that shares the values and the name of the node
/// behind all references, with instances of the children of `node` below it. Null for null and for a type that has no
/// copy ("Box", "DEF", "Root"). Such a node further down is left out, with all below it, and appended to `leftOut` when
/// that is given.
[[nodiscard]] Node* copyNode(const Node* node, std::vector<const Node*>* leftOut = nullptr);

/// What a USE puts into the tree: a DEFNode that refers to `source`, or to what that one refers to, and bears its name.
/// Owned by the caller.
[[nodiscard]] Node* createReference(Node& source);

}  // namespace vrml
