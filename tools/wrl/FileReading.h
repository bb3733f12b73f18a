#pragma once

// Reading a file with the front end that is linked into this program, for the views of what the module keeps to itself.

#include <string>

#include "tools/wrl/HostOptions.h"

namespace vrml {
class SceneGraph;
}

namespace wrl {

/// Reads the file at `path` into the scene, with progress on a terminal. The result is the scene's `succeeded()`.
void readFile(vrml::SceneGraph& scene, const std::string& path, bool resolve);

/// The same with resolution, and where that fails once more under the path that the host's file search finds, as an
/// import does. The path that was read last.
std::string readFileOrSearch(vrml::SceneGraph& scene, const std::string& path);

/// The same for a file that the module has read just now, with the host set up as for that: nothing is echoed twice.
void readAgain(vrml::SceneGraph& scene, const std::string& path, const HostOptions& options);

/// Tells on standard error that a file was read, or tried to be: `wrl: PATH: 0.012 s`.
void tellReading(const std::string& path, double seconds);

/// A time with three decimals, in any locale.
[[nodiscard]] std::string inSeconds(double seconds);

/// Whether a reading that failed could not even open its file.
[[nodiscard]] bool isUnopened(const vrml::SceneGraph& scene);

/// Where a reading failed, one line without its end: `FILE:LINE: error at or about "TOKEN": TEXT-OF-LINE`.
[[nodiscard]] std::string errorLine(const std::string& file, const vrml::SceneGraph& scene);

}  // namespace wrl
