#pragma once

// Unpacking gzip, in which many worlds are handed on.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace embedded {

// The most bytes that a file is unpacked to, and how many times its own size. Text never comes near that ratio unless
// it repeats itself on purpose, so small files may go beyond it up to kMaxRepeatedBytes.
inline constexpr std::size_t kMaxUnpackedBytes = std::size_t{1} << 30;
inline constexpr std::size_t kMaxUnpackRatio = 200;
inline constexpr std::size_t kMaxRepeatedBytes = std::size_t{32} << 20;

enum class GzipResult : std::uint8_t {
  unpacked,  // all of it
  notGzip,   // the bytes begin otherwise
  damaged,   // the data are no gzip data, end early, or fail their check
  tooLarge,  // they unpack to more than the constants above allow, or than there is memory for
};

// Whether the bytes begin as gzip does.
[[nodiscard]] bool isGzip(std::string_view bytes);

// Unpacks a whole file, all its members one behind the other; what follows the last is ignored, as gzip does. `plain`
// is empty unless the result is `unpacked`. Untrusted bytes are allowed.
[[nodiscard]] GzipResult unpackGzip(std::string_view packed, std::string& plain);

// The same as the host hands it out: sglDataLoader::UnpackFn.
[[nodiscard]] bool unpackFile(std::string_view packed, std::string& plain);

}  // namespace embedded
