#pragma once

// Any readable input as what the host application would hold of it: a stager with an assembly, views and a background.

#include <VekKernel/CVekStager.h>

#include <memory>
#include <string>
#include <vector>

#include "tools/wrl/HostOptions.h"

namespace wrl {

struct LoadedStage {
  std::unique_ptr<CVekStager> stager;  // null when there is nothing to show for the input at all
  bool failed = false;                 // the input could not be loaded; said on standard error
  // Temporary files that the assembly names and that go with this; null when there are none.
  std::shared_ptr<const void> files = nullptr;
  std::vector<std::string> messages = {};  // what the reader had to say, statistics aside; said on standard error
};

/// Reads a stage document; "-" is standard input, and relative paths in it are taken relative to the current folder
/// then.
[[nodiscard]] LoadedStage readStage(const std::string& file);

/// `readStage()` with options, none of which says anything about a stage document.
[[nodiscard]] LoadedStage readStageByOptions(const std::string& file, const HostOptions& options);

/// Loads a world through the module and makes an assembly of it, named like the file; "-" is standard input. A failed
/// load gives a stager without an assembly.
[[nodiscard]] LoadedStage readWorld(const std::string& file, const HostOptions& options);

/// Reads an input by its extension; one that is not known is loaded as a world.
[[nodiscard]] LoadedStage loadStage(const std::string& file, const HostOptions& options);

}  // namespace wrl
