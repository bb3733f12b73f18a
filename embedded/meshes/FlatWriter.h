#pragma once

// OBJ, STL and PLY out: formats without a hierarchy.

#include <VekKernel/CVekAssyRoot.h>

#include <string>
#include <string_view>
#include <vector>

#include "embedded/meshes/MeshNotes.h"

namespace embedded {

// One file of a result. The name is relative to the folder in which the result is to stand, with slashes.
struct MeshFile {
  std::string name;
  std::string bytes;
};

// Whether writeFlatMesh() knows files of that extension (without full stop, in small letters): obj, stl, ply.
[[nodiscard]] bool isFlatMesh(std::string_view extension);

// An assembly as a file of that extension and that name, which comes first, and the files that belong to it: the
// materials of an OBJ, and their textures in a folder "Textures". Every placement is worked into the positions. OBJ
// gets y up, a group for each drawable and materials with textures; STL (binary) and PLY (text) keep z up, and PLY
// has the diffuse colours as those of its vertices. What does not show is left out. The same assembly gives the same
// bytes.
//
// False, with the reason in `error`, when there is no triangle to write or the exporter fails.
[[nodiscard]] bool writeFlatMesh(const CVekAssyRoot& root, std::string_view extension, const std::string& name,
                                 std::vector<MeshFile>& files, MeshNotes& notes, std::string& error);

}  // namespace embedded
