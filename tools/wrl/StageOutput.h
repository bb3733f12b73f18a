#pragma once

// What the host application holds, written to a file.

#include <string>

#include "tools/wrl/Formats.h"

namespace wrl {

/// Writes the assembly through the module, as a VRML97 file; why it could not, or "".
[[nodiscard]] std::string writeWorld(const WriteJob& job);

/// Writes a stage document; why it could not, or "".
[[nodiscard]] std::string writeStage(const WriteJob& job);

/// Where images inside a model are unpacked when the output only names them: a folder beside it. "", nowhere, for
/// standard output.
[[nodiscard]] std::string unpackFolderBeside(const std::string& path);

/// Writes a file of that format; "-" is standard output, which gets the file alone: what belongs beside it is left out,
/// and named on standard error. Failures are told on standard error. `source` may be null.
[[nodiscard]] bool deliverStage(const WriterFormat& format, const std::string& path, CVekStager& stager,
                                const JobSource* source = nullptr);

}  // namespace wrl
