#pragma once

// Base of the nodes of the scene graph.

#include <VekSG/sglObject.h>

class sglGroup;

// A node stands in at most one group, which owns it. A node that stands in none belongs to whoever made it, and is
// deleted by them; deleting a node deletes everything under it, at any depth. A node that is deleted while it stands in
// a group is taken out of it first.
class VEK_API sglNode : public sglObject {
 public:
  ~sglNode() override;

  // The group that owns this node, null when there is none.
  [[nodiscard]] sglGroup* getParent() const { return m_parent; }

 protected:
  sglNode() = default;

 private:
  friend class sglGroup;
  sglGroup* m_parent = nullptr;
};
