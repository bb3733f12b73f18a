#pragma once

// The whole export, as the module's entry point runs it.

#include <string>

class CVekStager;

namespace exporter {

/// Writes the stager's assembly to the file at `path`, as VRML97 text, between the opening and the closing access call
/// on the assembly's root. A stager that is null, or has no assembly, writes no file.
///
/// Afterwards `errno` is 0 when the file was written whole; otherwise it says why not, and what stands at `path` is the
/// file as far as it was written. Lets no exception out.
void writeModel(const std::string& path, CVekStager* stager) noexcept;

}  // namespace exporter
