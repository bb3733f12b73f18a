#pragma once

// Number texts for the comparisons with the library: generators of the kinds that have gone wrong in number readers
// before, each from a fixed seed, and how many of them a test tries.

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace numbers {

/// `count` times what WRL_NUMBER_SCALE says (1 when it is not set): the default keeps the suite quick, a scale of 100
/// is the tens of millions that a change to the number functions asks for.
[[nodiscard]] std::uint64_t scaled(std::uint64_t count);

using Random = std::mt19937_64;

/// A random float among all bit patterns, only finite ones.
[[nodiscard]] float anyFloat(Random& random);
[[nodiscard]] double anyDouble(Random& random);

struct Generator {
  std::string_view name;
  std::uint64_t count;  // tried at scale 1
  std::function<std::string(Random&)> make;
};

/// Decimal numbers of every kind, without characters behind them.
[[nodiscard]] const std::vector<Generator>& decimalGenerators();

/// Texts in which reading is most likely to be wrong, written out.
[[nodiscard]] const std::vector<std::string>& edgeTexts();

/// The float that a decimal text must be read as, by the library alone: a text without a digit is 0, and outside the
/// range the value is 0 or the largest one.
[[nodiscard]] float expectedFloat(const std::string& text);
[[nodiscard]] double expectedDouble(const std::string& text);

}  // namespace numbers
