#pragma once

// The command line as a function.

#include "tools/wrl/Command.h"

namespace wrl {

/// What the command line is for, in one sentence.
inline constexpr const char* kToolDescription = "Reads VRML97 files and shows what a host application gets of them.";

/// The name and the version, "wrl 1.2.3".
[[nodiscard]] const char* toolVersion();

/// Parses the arguments, the program's name first, and runs the subcommand that they name. Results go to standard
/// output, everything else to standard error.
[[nodiscard]] ExitStatus runTool(int argumentCount, const char* const* arguments);

}  // namespace wrl
