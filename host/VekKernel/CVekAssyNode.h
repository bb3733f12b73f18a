#pragma once

// Base of the nodes of the assembly tree.

#include <VekKernel/CVekModifiable.h>

#include <cstdint>

// A node belongs to the group that has it among its children; one that stands in none belongs to whoever made it.
// Deleting a node deletes everything under it, at any depth.
class VEK_API CVekAssyNode : public CVekModifiable {
 public:
  ~CVekAssyNode() override;

  // A number that no other node of the process has; it rises in the order of creation, from 1.
  [[nodiscard]] std::uint64_t GetIdentity() const { return m_identity; }

 protected:
  CVekAssyNode();

 private:
  std::uint64_t m_identity;
};
