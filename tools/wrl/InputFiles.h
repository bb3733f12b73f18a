#pragma once

// The FILEs of a subcommand that takes several, with folders replaced by the worlds in them.

#include <string>
#include <vector>

namespace wrl {

/// What a list of arguments stands for.
struct InputFiles {
  std::vector<std::string> files;  // in the order of the arguments, those of a folder by name
  bool hasFolder = false;          // an argument was a folder
};

/// Takes every argument over as it stands, but for folders: in their place stand the files below them, at any depth,
/// whose names end in .wrl, .wrz or .wrl.gz in either case and do not begin with a full stop. Links to folders are not
/// followed. A folder that cannot be listed stays, to be reported by whoever opens it.
[[nodiscard]] InputFiles findInputFiles(const std::vector<std::string>& arguments);

}  // namespace wrl
