#pragma once

// The bytes of a file. The readers work on bytes in memory, so that one check of a length covers many of them.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace image {

/// How far into a file the readers look. It is more than the largest image takes, and an end for files that have none.
inline constexpr std::size_t kMaxFileBytes = std::size_t{256} << 20;

/// The first bytes of a file, `limit` at most, whatever its size is said to be (pipes work).
/// Empty when it cannot be opened, when it is a folder, and without memory.
[[nodiscard]] std::vector<std::uint8_t> readFileBytes(const std::string& path,
                                                      std::size_t limit = kMaxFileBytes) noexcept;

}  // namespace image
