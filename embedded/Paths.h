#pragma once

// Paths of either slash.

#include <cstddef>
#include <string>
#include <string_view>

namespace embedded {

// The path with every backslash turned into the separator that this system's disk knows.
[[nodiscard]] std::string nativePath(std::string_view path);

// The place of the last slash of either kind, npos without one.
[[nodiscard]] std::size_t lastSlash(std::string_view path);

// What stands behind the last slash of either kind.
[[nodiscard]] std::string_view fileNameOf(std::string_view path);

// What stands before that, the slash included; "" when there is none.
[[nodiscard]] std::string folderOf(std::string_view path);

// Whether the path begins at the root or with a drive letter.
[[nodiscard]] bool isAbsolutePath(std::string_view path);

}  // namespace embedded
