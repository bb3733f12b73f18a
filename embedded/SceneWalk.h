#pragma once

// A walk over a scene graph, in order, at any depth.

#include <VekSG/sglNode.h>

#include <glm/mat4x4.hpp>

namespace embedded {

// Which children of levels of detail and switches are visited.
enum class SceneChoice {
  Everything,  // all of them
  Shown,       // the first level, the selected choice
};

// Hears of the nodes of a scene, depth first, children in their order.
class SceneVisitor {
 public:
  virtual ~SceneVisitor();

  // Comes to a node. `world` leads from the coordinates of what is under the node (its own matrix included, when it is
  // a transform) to those above the root; read it as glm does, in columns. False passes over what is under the node.
  virtual bool enter(const sglNode& node, const glm::dmat4& world) = 0;

  // Leaves a node whose enter() answered true.
  virtual void leave(const sglNode& node);
};

// Visits `root`, which may be null, and what is under it. The scene must not change meanwhile.
void walkScene(const sglNode* root, SceneChoice choice, SceneVisitor& visitor);

}  // namespace embedded
