#pragma once

// An assembly node with children.

#include <VekKernel/CVekAssyNodeSet.h>

class VEK_API CVekAssyGroup : public CVekAssyNode {
 public:
  CVekAssyGroup();
  ~CVekAssyGroup() override;

  // The children in order of identity; one of them may be null. They stay the group's.
  [[nodiscard]] const CVekAssyNodeSet& GetChilds() const { return m_childs; }

  // Takes a node over, which must stand in no group yet. Null is kept as a child that is not there.
  void AddChild(CVekAssyNode* child);

 private:
  CVekAssyNodeSet m_childs;  // owned
};
