#pragma once

// A node with children.

#include <VekSG/sglNode.h>

#include <vector>

class VEK_API sglGroup : public sglNode {
 public:
  sglGroup();
  ~sglGroup() override;

  // Puts a child at the end and owns it from now on. A child that stands in another group is taken out of that one;
  // null, the group itself and a child that it has already change nothing. `child` must not hold this group. `notify`
  // tells the host's observers.
  virtual void addChild(sglNode* child, bool notify);

  // Takes a child out without destroying it: it belongs to the caller again. False when it is no child of this group,
  // null included.
  virtual bool removeChild(sglNode* child);

  [[nodiscard]] unsigned getNumChildren() const { return static_cast<unsigned>(m_children.size()); }

  // The child at a place from 0; null past the last one. It stays the group's.
  [[nodiscard]] sglNode* getChild(unsigned index) const {
    return index < m_children.size() ? m_children[index] : nullptr;
  }

 private:
  friend class sglNode;
  std::vector<sglNode*> m_children;  // owned, never null
};
