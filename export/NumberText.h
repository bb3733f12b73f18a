#pragma once

// Numbers as the text of a written world: what `%f`, `%d` and `%lu` print in the C locale, whatever locale the process
// runs under. The common floats are printed inline, by an integer count of millionths; the rest go to the library.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace exporter {

/// Room that the longest text of each kind takes, without a closing zero.
inline constexpr std::size_t kMaxFloatChars = 48;    // a sign, 39 digits, a point, 6 digits
inline constexpr std::size_t kMaxDoubleChars = 318;  // a sign, 309 digits, a point, 6 digits
inline constexpr std::size_t kMaxIntegerChars = 20;  // a sign and 10 digits, or 20 digits

/// Prints `value` as `%f` does: six decimals, ties to the even digit, "inf", "-nan" and the like.
/// Returns the end of the text. `out` has room for kMaxDoubleChars.
[[nodiscard]] char* printFixed(char* out, double value) noexcept;

/// Prints `value` as `%lu` does. Returns the end of the text. `out` has room for kMaxIntegerChars.
[[nodiscard]] char* printUnsigned(char* out, std::uint64_t value) noexcept;

namespace detail {

// "00" to "99", so that a division by a hundred yields two digits.
inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

/// Writes the two digits of `value`, which is below 100.
inline char* printPair(char* out, std::uint32_t value) noexcept {
  std::memcpy(out, kDigitPairs.data() + 2 * value, 2);
  return out + 2;
}

/// Writes `value`, which is below 100, without a leading zero.
inline char* printUpToTwo(char* out, std::uint32_t value) noexcept {
  if (value >= 10) return printPair(out, value);
  *out = static_cast<char>('0' + value);
  return out + 1;
}

/// Writes `value`, which is below 10,000, without leading zeros.
inline char* printUpToFour(char* out, std::uint32_t value) noexcept {
  if (value < 100) return printUpToTwo(out, value);
  const std::uint32_t high = value / 100;
  return printPair(printUpToTwo(out, high), value - 100 * high);
}

/// Writes `value`, which is below 10,000, as four digits.
inline char* printFour(char* out, std::uint32_t value) noexcept {
  const std::uint32_t high = value / 100;
  return printPair(printPair(out, high), value - 100 * high);
}

}  // namespace detail

/// Prints `value` as `%u` does. Returns the end of the text. `out` has room for kMaxIntegerChars.
[[nodiscard]] inline char* printUnsigned(char* out, std::uint32_t value) noexcept {
  if (value < 10000) return detail::printUpToFour(out, value);
  if (value < 100000000) {
    const std::uint32_t high = value / 10000;
    return detail::printFour(detail::printUpToFour(out, high), value - 10000 * high);
  }
  const std::uint32_t high = value / 100000000;
  const std::uint32_t low = value - 100000000 * high;
  out = detail::printUpToFour(out, high);
  return detail::printFour(detail::printFour(out, low / 10000), low % 10000);
}

/// Prints `value` as `%d` does. Returns the end of the text. `out` has room for kMaxIntegerChars.
[[nodiscard]] inline char* printInteger(char* out, std::int32_t value) noexcept {
  const auto bits = static_cast<std::uint32_t>(value);
  if (value >= 0) return printUnsigned(out, bits);
  *out = '-';
  return printUnsigned(out + 1, 0U - bits);
}

/// Prints `value` as `%f` does. Returns the end of the text. `out` has room for kMaxFloatChars.
[[nodiscard]] inline char* printFixed(char* out, float value) noexcept {
  // A float has 24 significant bits and a million has 14 beside its power of two, so that the product is exact.
  const auto bits = std::bit_cast<std::uint32_t>(value);
  const double millionths = 1e6 * static_cast<double>(std::bit_cast<float>(bits & 0x7fffffffU));
  // Above this the digits before the point pass 32 bits; infinities and not-a-number fail the comparison too.
  constexpr double kLimit = 4294967296e6;
  if (!(millionths < kLimit)) [[unlikely]]
    return printFixed(out, static_cast<double>(value));
  *out = '-';
  out += bits >> 31U;
  // Between 2^52 and 2^53 doubles are the integers: the addition rounds, ties to even, as the library does.
  constexpr double kIntegers = 0x1p52;
  static_assert(kLimit < kIntegers);
  const std::uint64_t rounded = std::bit_cast<std::uint64_t>(millionths + kIntegers) & 0xfffffffffffffULL;
  const std::uint64_t whole = rounded / 1000000;
  const auto rest = static_cast<std::uint32_t>(rounded - 1000000 * whole);
  out = printUnsigned(out, static_cast<std::uint32_t>(whole));
  *out = '.';
  const std::uint32_t high = rest / 10000;
  return detail::printFour(detail::printPair(out + 1, high), rest - 10000 * high);
}

}  // namespace exporter
