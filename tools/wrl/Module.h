#pragma once

// The interchange module, where it is looked for.

#include "embedded/ModuleLoader.h"

namespace wrl {

/// Opens the module that stands beside the embedded host's library, or that the environment variable WRL_MODULE names.
/// False, with a line on standard error, when there is none.
[[nodiscard]] bool openModule(embedded::ModuleLoader& module);

}  // namespace wrl
