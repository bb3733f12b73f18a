#pragma once

// The figures of a host scene graph.

#include <VekGeometry/CVekBBox.h>

#include <cstdint>
#include <map>
#include <string>

class sglNode;

namespace wrl {

/// How many there are of each type.
using TypeCounts = std::map<std::string, std::int64_t>;

struct SceneSummary {
  TypeCounts nodes;             // the nodes, the scene's root among them
  TypeCounts drawables;         // what the geodes hold
  std::uint64_t triangles = 0;  // of all drawables, primitives as the host tessellates them
  std::int64_t materials = 0;   // different sglMaterial objects
  std::int64_t textures = 0;    // different sglTexture2D objects
  CVekBBox box;                 // of everything, whatever a switch selects, in the host's upright-z world
};

/// Walks the tree under `root`, which may be null.
[[nodiscard]] SceneSummary summarizeScene(const sglNode* root);

}  // namespace wrl
