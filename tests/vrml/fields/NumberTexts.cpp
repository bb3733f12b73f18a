// The generators of number texts and what the library makes of a text.

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "NumberTexts.h"

namespace numbers {

namespace {

std::string formatted(const char* format, double value, int precision) {
  std::string text(1600, '\0');
  const int size = std::snprintf(text.data(), text.size(), format, precision, value);
  text.resize(static_cast<std::size_t>(size));
  return text;
}

std::string digitsOf(Random& random, std::size_t count) {
  std::string digits(count, '0');
  for (char& digit : digits) digit = static_cast<char>('0' + random() % 10);
  return digits;
}

std::string sign(Random& random) { return random() % 2 ? "-" : ""; }

// Digits with a point at any place, or none.
std::string withPoint(Random& random, std::string digits) {
  const std::size_t place = random() % (digits.size() + 2);
  return place > digits.size() ? digits : digits.insert(place, ".");
}

std::string exponent(Random& random, int range) {
  const int value = static_cast<int>(random() % static_cast<std::uint64_t>(2 * range + 1)) - range;
  return (random() % 2 ? "e" : "E") + std::string(value >= 0 && random() % 2 ? "+" : "") + std::to_string(value);
}

// The middle of a float and the next one, which a double holds.
double anyMiddle(Random& random) {
  const float value = std::fabs(anyFloat(random));
  const float next = std::nextafter(value, std::numeric_limits<float>::infinity());
  if (std::isinf(next)) return 3.4028235677973366e38;  // where rounding to the largest float ends
  return (static_cast<double>(value) + static_cast<double>(next)) / 2;
}

// A middle of moderate size, of which short decimals and fast paths are made.
double moderateMiddle(Random& random) {
  const std::uint64_t whole = (random() % (1u << 24)) * 2 + (1u << 25) + 1;  // 25 bits and one: odd
  return std::ldexp(static_cast<double>(whole), static_cast<int>(random() % 40) - 40);
}

std::string nudged(Random& random, std::string text) {
  const std::size_t mantissaEnd = std::min(text.find('e'), text.size());
  switch (random() % 4) {
    case 0:
      return text;
    case 1:
      return text.insert(mantissaEnd, std::string(random() % 40, '0') + '1');
    case 2: {
      char& last = text[mantissaEnd - 1];
      if (last >= '1' && last <= '9') --last;
      return text;
    }
    default:
      return text.insert(mantissaEnd, std::string(random() % 40, '0'));
  }
}

const std::vector<Generator> kGenerators = {
    {"few digits", 400000,
     [](Random& random) { return sign(random) + withPoint(random, digitsOf(random, 1 + random() % 9)); }},
    {"few digits and an exponent", 150000,
     [](Random& random) {
       return sign(random) + withPoint(random, digitsOf(random, 1 + random() % 9)) + exponent(random, 50);
     }},
    {"up to twenty digits", 150000,
     [](Random& random) { return sign(random) + withPoint(random, digitsOf(random, 1 + random() % 22)); }},
    {"any float, nine digits", 100000, [](Random& random) { return formatted("%.*g", anyFloat(random), 9); }},
    {"any float, few digits", 100000,
     [](Random& random) { return formatted("%.*g", anyFloat(random), 1 + static_cast<int>(random() % 8)); }},
    {"any float, six decimals", 50000, [](Random& random) { return formatted("%.*f", anyFloat(random), 6); }},
    {"any middle, exact", 30000, [](Random& random) { return formatted("%.*e", anyMiddle(random), 160); }},
    {"any middle, nudged", 50000,
     [](Random& random) { return nudged(random, formatted("%.*e", anyMiddle(random), 110)); }},
    {"any middle, cut off", 50000,
     [](Random& random) { return formatted("%.*e", anyMiddle(random), static_cast<int>(random() % 30)); }},
    {"moderate middle, cut off", 150000,
     [](Random& random) { return formatted("%.*g", moderateMiddle(random), 8 + static_cast<int>(random() % 12)); }},
    {"moderate middle, exact, nudged", 100000,
     [](Random& random) { return nudged(random, formatted("%.*f", moderateMiddle(random), 41)); }},
    {"whole middles, nudged", 100000,
     [](Random& random) {
       const std::uint64_t whole = ((std::uint64_t{1} << 24 | random() % (1u << 24)) * 2 + 1) << (random() % 26);
       return nudged(random, std::to_string(whole) + ".0");
     }},
    {"many digits", 20000,
     [](Random& random) {
       return sign(random) + withPoint(random, digitsOf(random, 20 + random() % 300)) + exponent(random, 400);
     }},
    {"very many digits", 400,
     [](Random& random) {
       return sign(random) + withPoint(random, digitsOf(random, 700 + random() % 3000)) + exponent(random, 4000);
     }},
    {"zeros in front", 20000,
     [](Random& random) {
       return sign(random) + std::string(random() % 60, '0') + "." + std::string(random() % 60, '0') +
              digitsOf(random, random() % 12) + exponent(random, 60);
     }},
    {"near the ends of the range", 100000,
     [](Random& random) {
       const double end = random() % 2 ? 1.1754944e-38 : 3.4028235e38;
       return formatted("%.*e", end * (0.5 + static_cast<double>(random() % 1000) / 900.0),
                        static_cast<int>(random() % 20));
     }},
    {"at the smallest floats", 50000,
     [](Random& random) {
       return formatted("%.*e", 1.401298464324817e-45 * (static_cast<double>(random() % 4000) / 1000.0),
                        static_cast<int>(random() % 25));
     }},
};

bool hasDigit(const std::string& text) {
  const std::size_t mantissaEnd = std::min(text.find_first_of("eE"), text.size());
  return text.substr(0, mantissaEnd).find_first_of("0123456789") != std::string::npos;
}

template <class Float>
Float expected(const std::string& text, Float (*convert)(const char*, char**)) {
  if (!hasDigit(text)) return 0;
  Float value = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc()) return value;
  value = convert(text.c_str(), nullptr);
  return std::isinf(value) ? std::copysign(std::numeric_limits<Float>::max(), value) : value;
}

}  // namespace

std::uint64_t scaled(std::uint64_t count) {
  const char* const scale = std::getenv("WRL_NUMBER_SCALE");
  const std::uint64_t factor = scale ? std::strtoull(scale, nullptr, 10) : 1;
  return count * (factor == 0 ? 1 : factor);
}

float anyFloat(Random& random) {
  for (;;) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(value)) return value;
  }
}

double anyDouble(Random& random) {
  for (;;) {
    const auto value = std::bit_cast<double>(std::uint64_t{random()});
    if (std::isfinite(value)) return value;
  }
}

const std::vector<Generator>& decimalGenerators() { return kGenerators; }

const std::vector<std::string>& edgeTexts() {
  static const std::vector<std::string> texts = {
      "0", "-0", "0.0", "-0.0", "1", "-1", "1.", ".5", "-.5", "1e5", "5e-3", "5E+3", "00012", "0.1", "0.3", "-0e9",
      // The ends of what two exact doubles can do.
      "9007199254740992", "9007199254740993", "9007199254740991e22", "9007199254740993e22", "9007199254740992e-22",
      "1e22", "1e23", "1e-22", "1e-23", "18446744073709551615", "18446744073709551616", "99999999999999999999",
      "9999999999999999999", "10000000000000000000", "0.0000000000000000000001", "0.00000000000000000000001",
      // Middles of two floats and their neighbours.
      "16777217", "16777217.0", "16777217.000000000000001", "16777216.999999999999999", "16777219", "33554434",
      "33554435", "33554437", "8388609.5", "8388608.5", "8388610.5", "0.50000002980232238769531250",
      "0.50000002980232238769531251", "0.50000002980232238769531249", "1.00000005960464477539062500",
      "1.000000059604644775390625000000000000000000000000000000000000000000000000000000000000000000000000000001",
      "1.000000178813934326171875", "1.0000001788139343261718751", "9007199791611904", "9007200328482816",
      // The ends of the range.
      "3.4028234663852886e38", "3.4028235e38", "3.4028235677973366e38", "3.4028235677973365e38", "3.4028236e38",
      "340282346638528859811704183484516925440", "340282356779733661637539395458142568447",
      "340282356779733661637539395458142568448", "1e38", "1e39", "-1e39", "1e400", "1e999999999999999999999",
      "1.1754943508222875e-38", "1.1754942106924411e-38", "1.175494e-38", "1.4012984643248171e-45", "1e-45",
      "7.0064923216240854e-46", "7.0064923216240853e-46", "7.006492321624086e-46", "7.1e-46", "7e-46", "1e-46",
      "-1e-46", "1e-400", "-1e-400", "1e-99999999999999999999", "0e99999999999999999999", "-0e-99999999999999999999",
      "1.7976931348623157e308", "1.7976931348623159e308", "4.9406564584124654e-324", "2.4703282292062327e-324",
      "2.4703282292062328e-324", "2.2250738585072011e-308", "2.2250738585072014e-308"};
  return texts;
}

float expectedFloat(const std::string& text) { return expected<float>(text, &std::strtof); }

double expectedDouble(const std::string& text) { return expected<double>(text, &std::strtod); }

}  // namespace numbers
