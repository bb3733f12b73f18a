#pragma once

// Recognising numbers: first the plain ones, which are nearly all, and then by all the forms that the rules know.

#include <cstdint>

#include "vrml/fields/Numbers.h"
#include "vrml/reader/CharClass.h"

namespace vrml {

/// Reads an optional '-', digits, and an optional point with digits to the nearest 32-bit float. Returns the end of the
/// number, or null, with `value` untouched, when its text goes on or needs more care: more than nineteen digits or
/// none, an exponent, "0x", or a value that `narrowDecimal` leaves alone. A zero byte must stand behind the text.
///
/// A plain loop over the digits: the lengths of a list's numbers repeat themselves, so that processors predict its end,
/// and then nothing that takes eight digits at a time is as fast (a mesh of 100 MB: 0.65 against 1.1 times the
/// yardstick).
[[nodiscard]] inline const char* readPlainFloat(const char* at, float& value) noexcept {
  const bool negative = *at == '-';
  at += negative;
  const char* const whole = at;
  std::uint64_t digits = 0;
  for (; isDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned char>(*at - '0');
  auto count = at - whole;
  int fraction = 0;
  if (*at == '.') {
    const char* const behindPoint = ++at;
    for (; isDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned char>(*at - '0');
    fraction = static_cast<int>(at - behindPoint);
    count += fraction;
  }
  // Nineteen digits fit 64 bits.
  if (count == 0 || count > 19 || (*at | 0x20) == 'e' || *at == 'x') return nullptr;
  return narrowDecimal(digits, -fraction, negative, value) ? at : nullptr;
}

/// Reads an optional '-' and digits the same way; null when they are more than nine or a real number begins with them.
[[nodiscard]] inline const char* readPlainInt32(const char* at, std::int32_t& value) noexcept {
  const bool negative = *at == '-';
  at += negative;
  const char* const begin = at;
  std::uint32_t digits = 0;
  for (; isDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned char>(*at - '0');
  const auto count = at - begin;
  if (count == 0 || count > 9 || *at == '.' || (*at | 0x20) == 'e' || *at == 'x') return nullptr;
  value = negative ? -static_cast<std::int32_t>(digits) : static_cast<std::int32_t>(digits);
  return at;
}

enum class NumberForm : std::uint8_t {
  integer,      // digits
  real,         // with a point, an exponent, or no digit at all
  hexadecimal,  // "0x" and hexadecimal digits
};

struct NumberMatch {
  const char* end;
  NumberForm form;
};

/// The longest number at `at`, where a digit, '-', '.', 'e' or 'E' stands; it has at least one character. Each digit
/// run of a real number may be empty; without a point and an exponent, and with a digit, it is an integer.
[[nodiscard]] NumberMatch matchNumber(const char* at) noexcept;

/// The value of a number that was matched at `at`: a hexadecimal one is a 32-bit pattern, of which the last eight
/// digits count; a decimal integer outside 32 bits saturates, unless it is wanted as a float. `integerOf` is not for
/// real numbers.
[[nodiscard]] float floatOf(const char* at, const NumberMatch& match) noexcept;
[[nodiscard]] std::int32_t integerOf(const char* at, const NumberMatch& match) noexcept;

}  // namespace vrml
