#pragma once

// Models of other formats out.

#include <string>

#include "embedded/meshes/MeshNotes.h"
#include "tools/wrl/Formats.h"

namespace wrl {

/// Why nothing is written when the input held nothing.
inline constexpr const char* kNoAssembly = "there is no assembly to write";

/// Tells the notes of a writer on standard error, behind the name of the output.
void reportNotes(const embedded::MeshNotes& notes, const WriteJob& job);

/// Write the assembly as binary glTF, OBJ (with its materials and textures beside it), STL and PLY; why that could not
/// be, or "". What is left out is noted on standard error.
[[nodiscard]] std::string writeGlb(const WriteJob& job);
[[nodiscard]] std::string writeObj(const WriteJob& job);
[[nodiscard]] std::string writeStl(const WriteJob& job);
[[nodiscard]] std::string writePly(const WriteJob& job);

}  // namespace wrl
