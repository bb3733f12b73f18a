#pragma once

// One ROUTE of a parsed file: from a field of one node to a field of another.

#include <iosfwd>

#include "vrml/nodes/LinkedListNode.h"

namespace vrml {

class Field;
class Node;

/// All four members are borrowed from the scene; a route owns nothing.
class Route : public LinkedListNode<Route> {
 public:
  Route(Node* fromNode, Field* fromField, Node* toNode, Field* toField) noexcept
      : m_fromNode(fromNode), m_toNode(toNode), m_fromField(fromField), m_toField(toField) {}

  /// Cleared when the route is made and by the post-load pass; nothing in the reader sets it.
  [[nodiscard]] bool flag() const noexcept { return m_flag; }
  void setFlag(bool flag) noexcept { m_flag = flag; }

  [[nodiscard]] Node* getFromNode() const noexcept { return m_fromNode; }
  [[nodiscard]] Node* getToNode() const noexcept { return m_toNode; }
  [[nodiscard]] Field* getFromField() const noexcept { return m_fromField; }
  [[nodiscard]] Field* getToField() const noexcept { return m_toField; }

  /// Writes "ROUTE from.field TO to.field" and a line end; nothing when all four members are null.
  void write(std::ostream& out) const;

 private:
  bool m_flag = false;
  Node* m_fromNode;
  Node* m_toNode;
  Field* m_fromField;
  Field* m_toField;
};

}  // namespace vrml
