#pragma once

// The command line as a function.

#include "tools/wrl/Command.h"

namespace wrl {

/// Parses the arguments, the program's name first, and runs the subcommand that they name. Results go to standard
/// output, everything else to standard error.
[[nodiscard]] ExitStatus runTool(int argumentCount, const char* const* arguments);

}  // namespace wrl
