#pragma once

// Numbers as text, independent of any locale: reading decimals to the nearest 32-bit float, printing as "%g", "%f" and
// "%d" do in the C locale, and the scanning that "%f %f", `atof` and `atoi` mean there.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace vrml {

/// Room that every print function below is content with, the longest "%f" of a double included.
inline constexpr std::size_t kNumberTextSize = 336;

/// The powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> kExactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                             1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                             1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// The powers of ten that eight digits can need.
inline constexpr std::array<std::uint64_t, 9> kSmallPowersOfTen = {1,      10,      100,      1000,     10000,
                                                                   100000, 1000000, 10000000, 100000000};

/// The fast half of reading a float: `digits` times ten to the power of `exponent`, negated when asked for.
///
/// Returns false, and leaves `result` alone, when the value needs the whole text (`parseFloat`): digits beyond 2^53, a
/// power of ten beyond the exact ones, or a double that lies in the middle of two floats. All digits of the number must
/// be in `digits`. Why it is right: both operands are exact, so the one product or quotient is the double nearest to
/// the value; a middle of two floats is a double itself, so it cannot lie between the value and its nearest double, and
/// narrowing rounds to the wrong side only when that double is the middle. Within these bounds every nonzero result is
/// a normal float.
[[nodiscard]] inline bool narrowDecimal(std::uint64_t digits, int exponent, bool negative, float& result) noexcept {
  constexpr std::uint64_t kExactLimit = std::uint64_t{1} << 53;
  constexpr std::uint64_t kDroppedBits = (std::uint64_t{1} << 29) - 1;  // what narrowing takes off a double's fraction
  constexpr std::uint64_t kMiddle = std::uint64_t{1} << 28;
  if (digits > kExactLimit || exponent < -22 || exponent > 22) return false;
  const double whole = static_cast<double>(digits);
  const double value = exponent < 0 ? whole / kExactPowersOfTen[static_cast<std::size_t>(-exponent)]
                                    : whole * kExactPowersOfTen[static_cast<std::size_t>(exponent)];
  if ((std::bit_cast<std::uint64_t>(value) & kDroppedBits) == kMiddle) return false;
  // By its bit, since a sign is what no processor can predict.
  const std::uint32_t sign = std::uint32_t{negative} << 31;
  result = std::bit_cast<float>(std::bit_cast<std::uint32_t>(static_cast<float>(value)) ^ sign);
  return true;
}

/// The 32-bit float nearest to the decimal text from `first` up to `last`.
///
/// An optional '-', digits, an optional '.' with digits, an optional exponent; every digit run may be empty. A text
/// without a digit before the exponent is 0, an exponent without digits counts as none. Too small gives 0 (of the
/// text's sign), too large the largest float of the text's sign. What stands behind the number is ignored. Untrusted
/// input is allowed.
[[nodiscard]] float parseFloat(const char* first, const char* last) noexcept;

/// The 64-bit float nearest to the decimal text, by the same rules.
[[nodiscard]] double parseDouble(const char* first, const char* last) noexcept;

/// The integer of an optional '-' and decimal digits; outside 32 bits it saturates. No digit gives 0.
[[nodiscard]] std::int32_t parseInt32(const char* first, const char* last) noexcept;

/// Each prints into `out`, which must have room for `kNumberTextSize` characters (of these only the text is touched),
/// and returns the end of the text. No terminating zero is written.
[[nodiscard]] char* printG(char* out, float value) noexcept;         // "%g"
[[nodiscard]] char* printG(char* out, double value) noexcept;        // "%g"
[[nodiscard]] char* printF(char* out, float value) noexcept;         // "%f", the fast one
[[nodiscard]] char* printF(char* out, double value) noexcept;        // "%f"
[[nodiscard]] char* printD(char* out, std::int32_t value) noexcept;  // "%d"

/// The fewest digits that read back to the same value.
[[nodiscard]] char* printShortest(char* out, float value) noexcept;
[[nodiscard]] char* printShortest(char* out, double value) noexcept;

/// Reads up to `count` floats as `sscanf` with "%f %f ..." does: white space before each, a sign, decimal, hexadecimal,
/// "inf" and "nan" forms. Returns how many were read; values behind them stay untouched. Null reads nothing.
[[nodiscard]] int scanFloats(const char* text, float* values, int count) noexcept;

/// What `atof` gives, straight to the nearest 32-bit float; 0 when no number stands there.
[[nodiscard]] float scanFloat(const char* text) noexcept;

/// What `atof` gives.
[[nodiscard]] double scanDouble(const char* text) noexcept;

/// What `atoi` gives; outside 32 bits it saturates.
[[nodiscard]] std::int32_t scanInt32(const char* text) noexcept;

}  // namespace vrml
