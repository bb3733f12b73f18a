#pragma once

// What a file is that was refused as a VRML97 file.

#include <string>

namespace wrl {

/// What the file at `path` is instead, by its first bytes, as it ends the sentence "this is ...": "a VRML 1.0 file, not
/// VRML97". Also says why a compressed file could not be unpacked. "" for a file that says that it is VRML97, for one
/// that cannot be told, and for one that is no regular file.
[[nodiscard]] std::string foreignKind(const std::string& path);

/// That as a line with its end, "FILE: error: this is ...", under the name `file`; "" when there is nothing to say.
[[nodiscard]] std::string foreignKindLine(const std::string& file, const std::string& path);

/// Why a file that is there cannot be opened: `"Permission denied"`. "" when it can, and when it is not there.
[[nodiscard]] std::string openingError(const std::string& path);

}  // namespace wrl
