#pragma once

// A walk over an assembly tree, in order, at any depth.

#include <VekGeometry/CVekBBox.h>
#include <VekKernel/CVekAssyNode.h>

#include <cstdint>
#include <glm/mat4x4.hpp>

namespace embedded {

// Hears of the nodes of an assembly, depth first, children in their order.
class AssemblyVisitor {
 public:
  virtual ~AssemblyVisitor();

  // Comes to a node, which is null for a child that is not there. `world` leads from the coordinates of the node (its
  // own placement included) to those above the root; read it as glm does, in columns. False passes over the node's
  // children.
  virtual bool enter(const CVekAssyNode* node, const glm::dmat4& world) = 0;

  // Leaves a node that is not null and whose enter() answered true.
  virtual void leave(const CVekAssyNode& node);
};

// Visits `root`, which may be null, and what is under it. The tree must not change meanwhile. The root's own placement
// counts.
void walkAssembly(const CVekAssyNode* root, AssemblyVisitor& visitor);

// The box around all corners of all triangles of the actors that show, in the coordinates above the root. Empty when
// there are none. `root` may be null.
[[nodiscard]] CVekBBox assemblyBounds(const CVekAssyNode* root);

// The number of triangles of the actors that show. `root` may be null.
[[nodiscard]] std::uint64_t assemblyTriangleCount(const CVekAssyNode* root);

}  // namespace embedded
