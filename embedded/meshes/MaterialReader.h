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

// Where a colour texture lies: which texture coordinates it uses, and what is done to them, the scale first.
struct TexturePlacement {
  unsigned channel = 0;
  std::array<float, 2> scale{1.0F, 1.0F};
  std::array<float, 2> offset{0.0F, 0.0F};
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

  // Where the material's colour texture lies. A turned texture is taken as an unturned one, with a note.
  [[nodiscard]] TexturePlacement placementOf(unsigned material) const;

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
