#pragma once

// Models of other formats in.

#include "tools/wrl/StageInput.h"

namespace wrl {

/// Reads a model by its extension (see embedded/meshes/MeshReader.h) as an assembly with no views. Images inside it are
/// unpacked into `options.unpackFolder`; without one, into a folder that goes with the result. What is missing is noted
/// on standard error.
[[nodiscard]] LoadedStage readMesh(const std::string& file, const HostOptions& options);

}  // namespace wrl
