#pragma once

// assimp's materials as the host's render states.

#include <VekSG/sglStatelet.h>
#include <VekSG/sglTexture2D.h>

#include <array>
#include <map>
#include <optional>
#include <string>

#include "embedded/meshes/MeshNotes.h"
#include "embedded/meshes/SceneToAssembly.h"
#include "embedded/meshes/TextureFinder.h"

struct aiMaterial;

namespace embedded {

// How a mesh looks.
struct MeshLooks {
  sglStateletList states;             // for a mesh without texture coordinates
  sglStateletList statesWithTexture;  // the same and the texture, when there is one
  std::string texturePath;            // "" without a texture
  sglRef<sglTexture2D> texture;       // null without a texture
};

// Reads the materials of a scene. Scene, source and notes must outlive it.
class MaterialReader {
 public:
  MaterialReader(const aiScene& scene, const MeshSource& source, MeshNotes& notes);

  // The states for a mesh of that material whose vertices have, when they have any, that mean colour. States are new,
  // textures are shared. A material that is not there is a grey one.
  [[nodiscard]] MeshLooks looksOf(unsigned material, const std::optional<std::array<float, 4>>& meanColor);

  // A vertex's colour as it is displayed on that material.
  [[nodiscard]] std::array<float, 4> vertexColorOf(unsigned material, const std::array<float, 4>& color) const;

  // Which texture coordinates the material's colour texture uses.
  [[nodiscard]] unsigned texCoordChannelOf(unsigned material) const;

 private:
  [[nodiscard]] const aiMaterial* materialAt(unsigned number) const;
  void addTexture(const aiMaterial& material, MeshLooks& looks);
  sglRef<sglTexture2D> readTexture(const std::string& path, bool repeatsS, bool repeatsT);

  const aiScene& m_scene;
  const MeshSource& m_source;
  MeshNotes& m_notes;
  TextureFinder m_finder;
  std::map<std::string, sglRef<sglTexture2D>> m_textures;  // by path and what repeats
};

}  // namespace embedded
