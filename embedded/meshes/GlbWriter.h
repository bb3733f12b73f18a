#pragma once

// Binary glTF 2.0 out.

#include <VekKernel/CVekAssyRoot.h>

#include <ostream>
#include <string>

#include "embedded/meshes/MeshNotes.h"

namespace embedded {

// Writes an assembly as one .glb file: every group is a node of its name, every actor that shows a node with a mesh
// (the group's node, when the group is there for it alone and of the same name), with a primitive for each drawable
// that has triangles. Vertices are welded; looks become metallic-roughness
// materials of no metal; PNG and JPEG textures are embedded as they are, other kinds as PNG. glTF has y up, and so has
// the scene; a turn right below the root that only stands a world up is taken back. What a viewer of the host would not
// see (hidden actors) is not written. The same assembly gives the same bytes.
//
// False, with the reason in `error`, when the model is too large for the format; what `out` got is then of no use.
// Write errors are the stream's. Textures that cannot be read, placements and triangles without finite numbers are
// left out with a note.
[[nodiscard]] bool writeGlb(const CVekAssyRoot& root, std::ostream& out, MeshNotes& notes, std::string& error);

}  // namespace embedded
