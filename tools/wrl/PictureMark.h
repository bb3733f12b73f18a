#pragma once

// The mark that the pictures of `wrl` bear, by which one of them is told from an image that somebody made: where a
// world and its texture have one name, the picture's place among many others is taken by what cannot be made again.

#include <cstdint>
#include <string>
#include <vector>

namespace wrl {

/// Puts the mark into a PNG file, as its first chunk behind the header: a `tEXt` with the keyword "Software" (PNG,
/// third edition, 11.3.3.2).
void markPicture(std::vector<std::uint8_t>& png);

/// Whether a file begins as a marked picture does; false for one that cannot be read.
[[nodiscard]] bool isMarkedPicture(const std::string& path);

}  // namespace wrl
