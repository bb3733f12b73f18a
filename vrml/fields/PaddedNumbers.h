#pragma once

// Numbers read straight out of a text that goes on behind them, eight characters at a time: the way of files with
// millions of plain numbers, where the length of a number is what a digit loop cannot predict. Everything that is not
// plain (an exponent, hexadecimal, many digits, no digit) is left to the general way.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "vrml/fields/Numbers.h"

namespace vrml {

/// How many bytes from the beginning of a number must be readable; what stands behind the number does not matter.
inline constexpr std::size_t kNumberPadding = 32;

/// Up to eight decimal digits.
struct DigitRun {
  std::uint32_t value;
  std::uint32_t length;  // 0 to 8; at 8 more digits may follow
};

/// The digits at `p`, where eight bytes are readable.
[[nodiscard]] inline DigitRun readDigitRun(const char* p) noexcept {
  static_assert(std::endian::native == std::endian::little, "the first digit must be the lowest byte");
  std::uint64_t digits;
  std::memcpy(&digits, p, sizeof digits);
  digits ^= 0x3030303030303030;  // a digit becomes 0 to 9, everything else 10 or more
  const std::uint64_t others = ((digits + 0x7676767676767676) | digits) & 0x8080808080808080;
  const auto length = static_cast<std::uint32_t>(std::countr_zero(others)) / 8;
  // What follows the run is shifted out at the top, so that the run is followed by nothing and led by zeros.
  digits = length == 0 ? 0 : digits << (64 - 8 * length);
  digits = digits * 10 + (digits >> 8);  // pairs, then fours, then all eight
  digits = ((digits & 0x000000FF000000FF) * 0x000F424000000064 +
            ((digits >> 16) & 0x000000FF000000FF) * 0x0000271000000001) >>
           32;
  return {static_cast<std::uint32_t>(digits), length};
}

/// Whether a character behind digits makes them part of an exponent form or of a hexadecimal number.
[[nodiscard]] constexpr bool continuesNumber(char c) noexcept {
  const auto lower = static_cast<unsigned char>(c | 0x20);
  return lower == 'e' || lower == 'x';
}

/// Reads `-`, digits, a point and digits, all but some digits optional, to the nearest 32-bit float.
///
/// Returns the end of the number, or null, with `value` untouched, when the text needs the general way: fewer than one
/// or more than seven digits before the point, many behind it, an exponent, "0x", or a value that `narrowDecimal`
/// leaves alone. `kNumberPadding` bytes from `p` must be readable.
[[nodiscard]] inline const char* readPaddedFloat(const char* p, float& value) noexcept {
  const bool negative = *p == '-';
  p += negative ? 1 : 0;
  const DigitRun whole = readDigitRun(p);
  p += whole.length;
  std::uint64_t digits = whole.value;
  std::uint32_t fractionLength = 0;
  if (*p == '.') {
    ++p;
    const DigitRun fraction = readDigitRun(p);
    fractionLength = fraction.length;
    digits = digits * kSmallPowersOfTen[fraction.length] + fraction.value;
    if (fraction.length == 8) [[unlikely]] {
      const DigitRun more = readDigitRun(p + 8);
      if (more.length > 4) return nullptr;  // seven, eight and four digits are what 64 bits hold
      fractionLength += more.length;
      digits = digits * kSmallPowersOfTen[more.length] + more.value;
    }
    p += fractionLength;
  }
  if (whole.length == 8 || whole.length + fractionLength == 0 || continuesNumber(*p)) [[unlikely]]
    return nullptr;
  return narrowDecimal(digits, -static_cast<int>(fractionLength), negative, value) ? p : nullptr;
}

/// Reads `-` and digits that end in no point, exponent or "x", as a 32-bit integer.
///
/// Returns the end of the number, or null, with `value` untouched, when the text needs the general way: no digit, or
/// more than seven of them, or a float. `kNumberPadding` bytes from `p` must be readable.
[[nodiscard]] inline const char* readPaddedInt32(const char* p, std::int32_t& value) noexcept {
  const bool negative = *p == '-';
  p += negative ? 1 : 0;
  const DigitRun run = readDigitRun(p);
  p += run.length;
  if (run.length - 1 >= 7 || *p == '.' || continuesNumber(*p)) [[unlikely]]
    return nullptr;
  const auto magnitude = static_cast<std::int32_t>(run.value);
  value = negative ? -magnitude : magnitude;
  return p;
}

}  // namespace vrml
