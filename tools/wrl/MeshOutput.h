#pragma once

// Models of other formats out.

#include <string>

#include "tools/wrl/Formats.h"

namespace wrl {

/// Write the assembly as binary glTF, OBJ (with its materials and textures beside it), STL and PLY; why that could not
/// be, or "". What is left out is noted on standard error.
[[nodiscard]] std::string writeGlb(const WriteJob& job);
[[nodiscard]] std::string writeObj(const WriteJob& job);
[[nodiscard]] std::string writeStl(const WriteJob& job);
[[nodiscard]] std::string writePly(const WriteJob& job);

}  // namespace wrl
