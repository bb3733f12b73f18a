#pragma once

// Loading a file the way a host application does: through the module, with the host set up by the command line.

#include <VekSGdb/CVekDBRoot.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "embedded/MessageSink.h"
#include "tools/wrl/HostOptions.h"

namespace wrl {

/// What a load gives.
struct LoadedScene {
  std::unique_ptr<CVekDBRoot> database;     // never null; without a scene when the load failed or found none
  std::vector<embedded::Message> messages;  // what the module wrote to the host's message stream, in order
  bool failed = false;                      // the module wrote its error report
  double seconds = 0.0;                     // what the load took
};

/// Opens the module and loads a file with it; "-" is standard input. Messages appear on standard error as they come,
/// exactly as they were written, and so does what the module writes to standard output. Nothing, with a line on
/// standard error, when there is no module or no standard input.
[[nodiscard]] std::optional<LoadedScene> loadScene(const std::string& file, const HostOptions& options);

}  // namespace wrl
