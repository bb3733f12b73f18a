#pragma once

// Surfaces as the materials and textures of a glTF file.

#include <tiny_gltf.h>

#include <map>
#include <string>
#include <utility>

#include "embedded/meshes/GltfBuffer.h"
#include "embedded/meshes/MeshNotes.h"
#include "embedded/meshes/Surface.h"

namespace embedded {

// Adds materials, and the textures, samplers and images that they use, to a model; equal ones once. Image bytes go into
// the buffer. Model, buffer and notes must outlive it.
class GltfMaterials {
 public:
  GltfMaterials(tinygltf::Model& model, GltfBuffer& buffer, MeshNotes& notes)
      : m_model(model), m_buffer(buffer), m_notes(notes) {}

  // The number of the material for a surface. With `hasColors` the mesh's own colours stand for the diffuse one.
  [[nodiscard]] int materialOf(const Surface& surface, bool hasColors);

 private:
  int textureOf(const Surface& surface);
  int imageOf(const std::string& path);
  int samplerOf(bool repeatsS, bool repeatsT);

  tinygltf::Model& m_model;
  GltfBuffer& m_buffer;
  MeshNotes& m_notes;
  std::map<Surface, int> m_materials;
  std::map<std::string, int> m_images;              // by path, -1 for what cannot be read
  std::map<std::pair<int, int>, int> m_textures;    // by sampler and image
  std::map<std::pair<bool, bool>, int> m_samplers;  // by what repeats
};

}  // namespace embedded
