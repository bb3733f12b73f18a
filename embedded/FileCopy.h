#pragma once

// Copying a file so that a failure has a reason.

#include <string>

namespace embedded {

// Copies the bytes of one file to another, which is made or overwritten. Returns 0, or the `errno` of what went wrong;
// then the other file may hold a part.
[[nodiscard]] int copyFile(const std::string& from, const std::string& to);

}  // namespace embedded
