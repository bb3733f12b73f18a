#pragma once

// From assimp's scene to the assembly.

#include <VekKernel/CVekAssyRoot.h>

#include <memory>
#include <string>

#include "embedded/UpAxis.h"
#include "embedded/meshes/MeshNotes.h"

struct aiScene;

namespace embedded {

// Where a scene comes from.
struct MeshSource {
  std::string path;           // of the model; textures are found from its folder
  UpAxis up = UpAxis::Y;      // which axis of the scene points up
  bool isLinear = false;      // its colours are glTF's: amounts of light, and factors of each other
  std::string textureFolder;  // as MeshReadOptions has it
};

// The assembly of a scene that has a root node, as readMeshFile() makes it. The scene may go afterwards.
[[nodiscard]] std::unique_ptr<CVekAssyRoot> assemblyOf(const aiScene& scene, const MeshSource& source,
                                                       MeshNotes& notes);

}  // namespace embedded
