#pragma once

// Models of other formats in: glTF, OBJ, STL, PLY and COLLADA.

#include <VekKernel/CVekAssyRoot.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "embedded/UpAxis.h"
#include "embedded/meshes/MeshNotes.h"

namespace embedded {

struct MeshReadOptions {
  std::optional<UpAxis> up;   // which axis of the file points up; without it the format says
  std::string textureFolder;  // where images that the file holds inside are unpacked; "" leaves them out, with a note
};

// Whether files of that extension (without full stop, in small letters) can be read: glb, gltf, obj, stl, ply, dae.
[[nodiscard]] bool isReadableMesh(std::string_view extension);

// Reads a model as an assembly named like the file. Nodes become CVekKAssyGroups with their names and matrices; the one
// on top carries the turn that stands a model with y up upright, as an imported world's does. Each mesh of a node
// becomes a CVekActorMesh with one indexed triangle set: polygons are cut into triangles, points and lines left out.
// glTF and OBJ have y up, STL and PLY z; a COLLADA file says itself. Colours of glTF, which are linear, become
// displayed ones.
//
// A texture is found from the model's folder; it is read, and its path stands in the property "Texture.Map.Path" even
// when that failed. Textures inside the file are put into the texture folder, which is made when it is missing, under
// names that begin with the model's.
//
// Null, with the reason in `error`, when the file cannot be read. Untrusted files are allowed. Either slash separates
// in `path`.
[[nodiscard]] std::unique_ptr<CVekAssyRoot> readMeshFile(const std::string& path, const MeshReadOptions& options,
                                                         MeshNotes& notes, std::string& error);

}  // namespace embedded
