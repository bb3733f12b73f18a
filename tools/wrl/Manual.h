#pragma once

// The manual page.

#include <ostream>
#include <span>

#include "tools/wrl/CommandUsage.h"

namespace wrl {

/// Writes the page of section 1 in roff, with man's macros.
void writeManual(std::ostream& out, std::span<const CommandUsage> commands);

}  // namespace wrl
