#pragma once

// Where the images lie that a model's materials name.

#include <map>
#include <string>

#include "embedded/meshes/MeshNotes.h"
#include "embedded/meshes/SceneToAssembly.h"

struct aiTexture;

namespace embedded {

// Turns the names of textures into paths of files. Scene, source and notes must outlive it.
class TextureFinder {
 public:
  TextureFinder(const aiScene& scene, const MeshSource& source, MeshNotes& notes)
      : m_scene(scene), m_source(source), m_notes(notes) {}

  // The absolute path of the image that a material names. One inside the model is unpacked first; "", with a note, when
  // that cannot be. One outside is taken from the model's folder: under its name, under its name as a URI, or, when a
  // path leads nowhere, the file of that name right in the folder; when none of these is there, the first of them.
  [[nodiscard]] std::string pathOf(const std::string& name);

 private:
  std::string unpacked(const aiTexture& texture, int number);
  [[nodiscard]] std::string found(const std::string& name) const;

  const aiScene& m_scene;
  const MeshSource& m_source;
  MeshNotes& m_notes;
  std::map<const aiTexture*, std::string> m_unpacked;  // paths, "" for what could not be unpacked
};

}  // namespace embedded
