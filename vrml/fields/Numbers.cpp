// Reading takes two ways. A short decimal is one exact operation on two doubles (`narrowDecimal`); everything else goes
// to `std::from_chars`, which rounds right but leaves its target alone outside the range, so that the size of the
// number has to be told from its text then. Printing is `std::to_chars`, whose output with a precision is that of
// `printf` in the C locale; only "%f" of a float has a way of its own, because whole files are written with it.

#include "vrml/fields/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace vrml {

namespace {

static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559);

constexpr bool isDigit(char c) noexcept { return static_cast<unsigned char>(c - '0') < 10; }
constexpr bool isSpace(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }

// A decimal number as it stands in a text.
struct Decimal {
  const char* begin;         // the first digit or the point
  const char* end;           // behind the exponent, when that has digits
  std::uint64_t digits = 0;  // all digits, when there are at most 19
  std::int64_t digitCount = 0;
  std::int64_t exponent = 0;  // the value is digits x 10^exponent; saturated far outside every range
  bool negative = false;
  bool hasExponent = false;
};

constexpr std::int64_t kMostExactDigits = 19;
constexpr std::int64_t kExponentLimit = std::int64_t{1} << 40;

const char* skipExponent(const char* p, const char* last, std::int64_t& exponent) noexcept {
  if (p == last || (*p | 0x20) != 'e') return p;
  const char* q = p + 1;
  const bool negative = q != last && *q == '-';
  if (q != last && (*q == '-' || *q == '+')) ++q;
  if (q == last || !isDigit(*q)) return p;
  std::int64_t value = 0;
  for (; q != last && isDigit(*q); ++q)
    if (value < kExponentLimit) value = value * 10 + (*q - '0');
  exponent += negative ? -value : value;
  return q;
}

// Unsigned arithmetic may wrap beyond 19 digits; the count says so.
Decimal readDecimal(const char* first, const char* last) noexcept {
  Decimal number{};
  const char* p = first;
  if (p != last && *p == '-') {
    number.negative = true;
    ++p;
  }
  number.begin = p;
  std::uint64_t digits = 0;
  for (; p != last && isDigit(*p); ++p) digits = digits * 10 + static_cast<std::uint64_t>(*p - '0');
  number.digitCount = p - number.begin;
  if (p != last && *p == '.') {
    const char* const fraction = ++p;
    for (; p != last && isDigit(*p); ++p) digits = digits * 10 + static_cast<std::uint64_t>(*p - '0');
    number.exponent = fraction - p;
    number.digitCount += p - fraction;
  }
  number.digits = digits;
  number.end = number.digitCount == 0 ? p : skipExponent(p, last, number.exponent);
  number.hasExponent = number.end != p;
  return number;
}

// The same number with leading zeros gone, all digits that can matter and an exponent of few digits: what stands in a
// text of a million digits is beyond what the library's exponent arithmetic is made for.
class ShortenedDecimal {
 public:
  explicit ShortenedDecimal(const Decimal& number) noexcept {
    std::int64_t exponent = number.exponent + number.digitCount;  // of a point before the first digit
    bool significant = false, restIsZero = true;
    std::int64_t seen = 0;
    for (const char* p = number.begin; seen < number.digitCount; ++p) {
      if (*p == '.') continue;
      ++seen;
      if (*p != '0') significant = true;
      if (!significant) {
        --exponent;
      } else if (m_size < kDigits) {
        m_text[m_size++] = *p;
      } else if (*p != '0') {
        restIsZero = false;
      }
    }
    m_isZero = !significant;
    m_isLarge = exponent > 0;
    exponent -= static_cast<std::int64_t>(m_size);
    if (!restIsZero) m_text[m_size - 1] = m_text[m_size - 1] == '0' ? '1' : m_text[m_size - 1];
    m_text[m_size++] = 'e';
    const auto limited = static_cast<int>(std::clamp<std::int64_t>(exponent, -kLargestExponent, kLargestExponent));
    m_size = static_cast<std::size_t>(std::to_chars(m_text + m_size, m_text + sizeof m_text, limited).ptr - m_text);
  }

  [[nodiscard]] const char* begin() const noexcept { return m_text; }
  [[nodiscard]] const char* end() const noexcept { return m_text + m_size; }
  [[nodiscard]] bool isZero() const noexcept { return m_isZero; }
  /// Whether the value is 1 or more.
  [[nodiscard]] bool isLarge() const noexcept { return m_isLarge; }

 private:
  // The middle of two doubles has at most 767 significant digits; one more tells on which side of it a number lies.
  static constexpr std::size_t kDigits = 800;
  static constexpr int kLargestExponent = 9999;

  char m_text[kDigits + 16] = {};
  std::size_t m_size = 0;
  bool m_isZero = false;
  bool m_isLarge = false;
};

// Longer numbers are shortened before the library sees them.
constexpr std::ptrdiff_t kDirectLength = 1024;

// The magnitude of a number with at least one digit, by the library.
template <class Float>
Float magnitudeOf(const Decimal& number) noexcept {
  if (number.end - number.begin <= kDirectLength) {
    Float value = 0;
    if (std::from_chars(number.begin, number.end, value).ec == std::errc()) return value;
  }
  const ShortenedDecimal shortened(number);
  if (shortened.isZero()) return 0;
  Float value = 0;
  if (std::from_chars(shortened.begin(), shortened.end(), value).ec == std::errc()) return value;
  return shortened.isLarge() ? std::numeric_limits<Float>::max() : Float{0};
}

float floatOf(const Decimal& number) noexcept {
  if (number.digitCount == 0) return 0.0f;
  float value = 0.0f;
  if (number.digitCount <= kMostExactDigits && number.exponent >= -22 && number.exponent <= 22 &&
      narrowDecimal(number.digits, static_cast<int>(number.exponent), number.negative, value)) [[likely]]
    return value;
  value = magnitudeOf<float>(number);
  return number.negative ? -value : value;
}

double doubleOf(const Decimal& number) noexcept {
  if (number.digitCount == 0) return 0.0;
  const auto value = magnitudeOf<double>(number);
  return number.negative ? -value : value;
}

template <class Float>
Float valueOf(const Decimal& number) noexcept {
  if constexpr (std::is_same_v<Float, float>) {
    return floatOf(number);
  } else {
    return doubleOf(number);
  }
}

bool startsWithWord(std::string_view text, std::string_view lowerCaseWord) noexcept {
  return text.size() >= lowerCaseWord.size() &&
         std::equal(lowerCaseWord.begin(), lowerCaseWord.end(), text.begin(),
                    [](char expected, char c) { return (c | 0x20) == expected; });
}

// A hexadecimal number behind its "0x": the end of its text, or null when no digit stands there.
template <class Float>
const char* scanHex(const char* first, const char* last, Float& value) noexcept {
  const std::from_chars_result result = std::from_chars(first, last, value, std::chars_format::hex);
  if (result.ec == std::errc::invalid_argument) return nullptr;
  if (result.ec == std::errc::result_out_of_range) {
    const bool small = std::string_view(first, result.ptr).find("p-") != std::string_view::npos ||
                       std::string_view(first, result.ptr).find("P-") != std::string_view::npos;
    value = small ? Float{0} : std::numeric_limits<Float>::max();
  }
  return result.ptr;
}

// The scanning functions also take an exponent mark, and a sign behind it, where the digits are missing.
const char* skipEmptyExponent(const char* p, const char* last, char mark) noexcept {
  if (p == last || (*p | 0x20) != mark) return p;
  ++p;
  return p != last && (*p == '-' || *p == '+') ? p + 1 : p;
}

// Reads one number as "%f" does; returns where it ends, or null when none stands there.
template <class Float>
const char* scanNumber(const char* p, const char* last, Float& value) noexcept {
  while (p != last && isSpace(*p)) ++p;
  const bool negative = p != last && *p == '-';
  if (p != last && (*p == '-' || *p == '+')) ++p;
  const std::string_view rest(p, static_cast<std::size_t>(last - p));
  const char* end = nullptr;
  Float magnitude = 0;
  if (startsWithWord(rest, "0x")) {
    end = scanHex(p + 2, last, magnitude);
    if (end && std::string_view(p, end).find_first_of("pP") == std::string_view::npos)
      end = skipEmptyExponent(end, last, 'p');
  } else if (startsWithWord(rest, "inf")) {
    magnitude = std::numeric_limits<Float>::infinity();
    end = p + (startsWithWord(rest, "infinity") ? 8 : 3);
  } else if (startsWithWord(rest, "nan")) {
    magnitude = std::numeric_limits<Float>::quiet_NaN();
    end = p + 3;
  } else if (!rest.empty() && rest.front() != '-') {
    const Decimal number = readDecimal(p, last);
    if (number.digitCount != 0) {
      magnitude = valueOf<Float>(number);
      end = number.hasExponent ? number.end : skipEmptyExponent(number.end, last, 'e');
    }
  }
  if (end) value = negative ? -magnitude : magnitude;
  return end;
}

char* printSixDecimals(char* out, std::uint64_t millionths) noexcept {
  out = std::to_chars(out, out + 20, millionths / 1000000).ptr;
  auto fraction = static_cast<std::uint32_t>(millionths % 1000000);
  *out = '.';
  for (char* digit = out + 6; digit != out; --digit) {
    *digit = static_cast<char>('0' + fraction % 10);
    fraction /= 10;
  }
  return out + 7;
}

template <class Float>
char* printWith(char* out, Float value, std::chars_format format) noexcept {
  return std::to_chars(out, out + kNumberTextSize, value, format, 6).ptr;
}

}  // namespace

float parseFloat(const char* first, const char* last) noexcept { return floatOf(readDecimal(first, last)); }

double parseDouble(const char* first, const char* last) noexcept { return doubleOf(readDecimal(first, last)); }

std::int32_t parseInt32(const char* first, const char* last) noexcept {
  constexpr std::int64_t kSmallest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
  const bool negative = first != last && *first == '-';
  std::int64_t value = 0;
  for (const char* p = first + (negative ? 1 : 0); p != last && isDigit(*p); ++p)
    if (value <= kLargest) value = value * 10 + (*p - '0');
  return static_cast<std::int32_t>(negative ? std::max(-value, kSmallest) : std::min(value, kLargest));
}

char* printG(char* out, float value) noexcept { return printWith(out, value, std::chars_format::general); }

char* printG(char* out, double value) noexcept { return printWith(out, value, std::chars_format::general); }

// A float times a million is exact in a double, and below 9e15 so is its distance to the next integers: rounding that
// product to the nearest integer, ties to even, gives the digits that rounding the exact decimal gives.
char* printF(char* out, float value) noexcept {
  constexpr double kLimit = 9e15;
  const double millionths = std::fabs(static_cast<double>(value)) * 1e6;
  if (!(millionths < kLimit)) return printF(out, static_cast<double>(value));
  auto whole = static_cast<std::uint64_t>(millionths);
  const double rest = millionths - static_cast<double>(whole);
  if (rest > 0.5 || (rest == 0.5 && whole % 2 != 0)) ++whole;
  if (std::signbit(value)) *out++ = '-';
  return printSixDecimals(out, whole);
}

char* printF(char* out, double value) noexcept { return printWith(out, value, std::chars_format::fixed); }

char* printD(char* out, std::int32_t value) noexcept { return std::to_chars(out, out + kNumberTextSize, value).ptr; }

char* printShortest(char* out, float value) noexcept { return std::to_chars(out, out + kNumberTextSize, value).ptr; }

char* printShortest(char* out, double value) noexcept { return std::to_chars(out, out + kNumberTextSize, value).ptr; }

int scanFloats(const char* text, float* values, int count) noexcept {
  if (!text) return 0;
  const char* const last = text + std::strlen(text);
  const char* p = text;
  int read = 0;
  while (read < count && (p = scanNumber(p, last, values[read]))) ++read;
  return read;
}

float scanFloat(const char* text) noexcept {
  float value = 0.0f;
  return scanFloats(text, &value, 1) == 1 ? value : 0.0f;
}

double scanDouble(const char* text) noexcept {
  double value = 0.0;
  return text && scanNumber(text, text + std::strlen(text), value) ? value : 0.0;
}

std::int32_t scanInt32(const char* text) noexcept {
  if (!text) return 0;
  while (isSpace(*text)) ++text;
  if (*text == '+')
    ++text;  // a sign behind it is no digit, so that "+-1" is 0
  else if (*text == '-')
    return parseInt32(text, text + std::strlen(text));
  return isDigit(*text) ? parseInt32(text, text + std::strlen(text)) : 0;
}

}  // namespace vrml
