#pragma once

// Scripts that complete the command's arguments in a shell.

#include <ostream>
#include <span>

#include "tools/wrl/CommandUsage.h"

namespace wrl {

/// To be sourced by bash, or put where bash-completion looks.
void writeBashCompletion(std::ostream& out, std::span<const CommandUsage> commands);

/// To be put into a folder of zsh's `fpath` under the name `_wrl`.
void writeZshCompletion(std::ostream& out, std::span<const CommandUsage> commands);

/// To be sourced by fish, or put where fish looks.
void writeFishCompletion(std::ostream& out, std::span<const CommandUsage> commands);

}  // namespace wrl
