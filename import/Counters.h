#pragma once

// Counting for the statistics block.

#include <algorithm>
#include <cstdint>
#include <limits>

namespace importer {

/// Adds to a counter that is never negative. It stops at the largest number: a file of many references can ask for more
/// than 32 bits hold.
inline void count(std::int32_t& counter, std::uint64_t amount = 1) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::int32_t>::max();
  counter = static_cast<std::int32_t>(std::min(kMost, static_cast<std::uint64_t>(counter) + std::min(amount, kMost)));
}

}  // namespace importer
