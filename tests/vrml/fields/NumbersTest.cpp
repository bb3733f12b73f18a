// Reading and printing of numbers, held against the library and the C functions.

#include "vrml/fields/Numbers.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "NumberTexts.h"

namespace vrml {
namespace {

using numbers::Random;
using numbers::scaled;

std::uint32_t bits(float value) { return std::bit_cast<std::uint32_t>(value); }
std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

float parsed(const std::string& text) { return parseFloat(text.data(), text.data() + text.size()); }
double parsedDouble(const std::string& text) { return parseDouble(text.data(), text.data() + text.size()); }

TEST(parseFloat, gives_the_nearest_float_of_random_texts) {
  Random random(1);
  for (const numbers::Generator& generator : numbers::decimalGenerators())
    for (std::uint64_t i = scaled(generator.count); i > 0; --i) {
      const std::string text = generator.make(random);
      const float value = parsed(text), expected = numbers::expectedFloat(text);
      ASSERT_EQ(bits(value), bits(expected)) << generator.name << ": " << text << ": " << value << " " << expected;
    }
}

TEST(parseDouble, gives_the_nearest_double_of_random_texts) {
  Random random(2);
  for (const numbers::Generator& generator : numbers::decimalGenerators())
    for (std::uint64_t i = scaled(generator.count / 20); i > 0; --i) {
      const std::string text = generator.make(random);
      ASSERT_EQ(bits(parsedDouble(text)), bits(numbers::expectedDouble(text))) << generator.name << ": " << text;
    }
}

TEST(parseFloat, gives_the_nearest_float_at_the_edges) {
  for (const std::string& edge : numbers::edgeTexts())
    for (const std::string& text : {edge, "-" + edge}) {
      if (text.starts_with("--")) continue;
      EXPECT_EQ(bits(parsed(text)), bits(numbers::expectedFloat(text))) << text;
      EXPECT_EQ(bits(parsedDouble(text)), bits(numbers::expectedDouble(text))) << text;
    }
}

TEST(parseFloat, reads_back_every_kind_of_float) {
  Random random(3);
  char text[kNumberTextSize];
  for (std::uint64_t i = scaled(100000); i > 0; --i) {
    const float value = numbers::anyFloat(random);
    ASSERT_EQ(bits(parseFloat(text, printShortest(text, value))), bits(value)) << value;
  }
}

TEST(parseFloat, takes_the_number_and_leaves_the_rest) {
  const struct {
    const char* text;
    float value;
  } rows[] = {{"1e", 1},     {"1e+", 1},      {"1e-x", 1},     {"12.", 12}, {"12.e1", 120}, {"1.5.5", 1.5f},
              {"1-2", 1},    {"1 2", 1},      {"3abc", 3},     {"0x10", 0}, {".5", 0.5f},   {"-.5", -0.5f},
              {"1E5", 1e5f}, {"5e-3", 5e-3f}, {"1e5e5", 1e5f}, {"1,5", 1}};
  for (const auto& row : rows) EXPECT_EQ(parsed(row.text), row.value) << row.text;
}

TEST(parseFloat, gives_zero_without_a_digit_before_the_exponent) {
  for (const char* text :
       {"", "-", ".", "-.", "e", "E", "e5", "-e5", ".e5", "-.e-5", "+", "+1", "inf", "nan", "-inf", " 1"})
    EXPECT_EQ(bits(parsed(text)), bits(0.0f)) << text;
}

TEST(parseFloat, keeps_the_sign_of_zero_and_of_what_is_too_small) {
  EXPECT_EQ(bits(parsed("-0")), bits(-0.0f));
  EXPECT_EQ(bits(parsed("-0.0e7")), bits(-0.0f));
  EXPECT_EQ(bits(parsed("-1e-60")), bits(-0.0f));
  EXPECT_EQ(bits(parsed("1e-60")), bits(0.0f));
}

TEST(parseFloat, gives_the_largest_float_for_what_is_too_large) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  EXPECT_EQ(parsed("1e39"), kLargest);
  EXPECT_EQ(parsed("-1e39"), -kLargest);
  EXPECT_EQ(parsed(std::string(5000, '9')), kLargest);
  EXPECT_EQ(parsed("1e99999999999999999999999"), kLargest);
}

TEST(parseFloat, reads_exponents_that_a_million_digits_cancel) {
  const std::string zeros(1000000, '0');
  EXPECT_EQ(parsed("0." + zeros + "125e1000001"), 1.25f);
  EXPECT_EQ(parsed("-125" + zeros + "e-1000000"), -125.0f);
  EXPECT_EQ(parsed("0." + zeros + "e99999999"), 0.0f);
  EXPECT_EQ(parsedDouble("0." + zeros + "125e1000001"), 1.25);
  // On the far side of a middle by its last digit alone.
  EXPECT_EQ(parsed("16777217." + zeros + "1"), 16777218.0f);
  EXPECT_EQ(parsed("16777217." + zeros), 16777216.0f);
}

TEST(parseFloat, tells_the_side_of_a_middle_by_a_digit_far_behind) {
  // Exact middles of two neighbouring floats and of two neighbouring doubles, among them the longest there are.
  const double floatMiddles[] = {7.0064923216240854e-46, 1.7632415262334313e-38, 16777217.0, 1.00000005960464477539};
  for (const double middle : floatMiddles) {
    std::string text(1200, '\0');
    text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.200f", middle)));
    for (const std::string& tail : {std::string(2000, '0'), std::string(2000, '0') + '1'})
      EXPECT_EQ(bits(parsed(text + tail)), bits(std::strtof((text + tail).c_str(), nullptr))) << middle;
  }
  const long double doubleMiddles[] = {2.2250738585072011360574097967091319759e-308L, 1.0L + 0x1p-53L};
  for (const long double middle : doubleMiddles) {
    std::string text(1600, '\0');
    text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.1100Lf", middle)));
    for (const std::string& tail : {std::string(2000, '0'), std::string(2000, '0') + '1'})
      EXPECT_EQ(bits(parsedDouble(text + tail)), bits(std::strtod((text + tail).c_str(), nullptr)));
  }
}

TEST(narrowDecimal, leaves_alone_what_two_exact_doubles_cannot_do) {
  constexpr std::uint64_t kExact = std::uint64_t{1} << 53;
  const struct {
    std::uint64_t digits;
    int exponent;
    bool taken;
  } rows[] = {{0, 0, true},        {kExact, 0, true},      {kExact + 1, 0, false}, {1, 22, true},
              {1, 23, false},      {1, -22, true},         {1, -23, false},        {16777217, 0, false},
              {16777216, 0, true}, {167772170, -1, false}, {167772171, -1, true}};
  for (const auto& row : rows) {
    float value = -9.0f;
    EXPECT_EQ(narrowDecimal(row.digits, row.exponent, false, value), row.taken) << row.digits << " " << row.exponent;
    if (row.taken) {
      const std::string text = std::to_string(row.digits) + "e" + std::to_string(row.exponent);
      EXPECT_EQ(bits(value), bits(std::strtof(text.c_str(), nullptr))) << text;
    } else {
      EXPECT_EQ(value, -9.0f);
    }
  }
  float value = 1.0f;
  ASSERT_TRUE(narrowDecimal(0, 0, true, value));
  EXPECT_EQ(bits(value), bits(-0.0f));
}

TEST(parseInt32, saturates_and_stops_at_what_is_no_digit) {
  const struct {
    const char* text;
    std::int32_t value;
  } rows[] = {{"0", 0},
              {"-0", 0},
              {"7", 7},
              {"-12", -12},
              {"0012", 12},
              {"2147483647", 2147483647},
              {"2147483648", 2147483647},
              {"-2147483648", std::numeric_limits<std::int32_t>::min()},
              {"-2147483649", std::numeric_limits<std::int32_t>::min()},
              {"99999999999999999999999999999999", 2147483647},
              {"-99999999999999999999999999999999", std::numeric_limits<std::int32_t>::min()},
              {"", 0},
              {"-", 0},
              {"+3", 0},
              {"12x", 12},
              {"1.9", 1}};
  for (const auto& row : rows) {
    const std::string_view text = row.text;
    EXPECT_EQ(parseInt32(text.data(), text.data() + text.size()), row.value) << row.text;
  }
}

// What a print function writes, and what printf writes.
template <class T>
std::string printed(char* (*print)(char*, T), T value) {
  char text[kNumberTextSize];
  return {text, print(text, value)};
}

template <class T>
std::string formatted(const char* format, T value) {
  char text[kNumberTextSize];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

void expectPrintedAsPrintf(float value) {
  ASSERT_EQ(printed<float>(printG, value), formatted("%g", static_cast<double>(value)));
  ASSERT_EQ(printed<float>(printF, value), formatted("%f", static_cast<double>(value)));
}

void expectPrintedAsPrintf(double value) {
  ASSERT_EQ(printed<double>(printG, value), formatted("%g", value));
  ASSERT_EQ(printed<double>(printF, value), formatted("%f", value));
}

TEST(print, equals_printf_for_random_values) {
  Random random(4);
  for (std::uint64_t i = scaled(50000); i > 0; --i) {
    expectPrintedAsPrintf(numbers::anyFloat(random));
    // Of the size that models have, where "%f" of a float goes its own way.
    expectPrintedAsPrintf(static_cast<float>(static_cast<std::int64_t>(random())) / 1e10f);
    expectPrintedAsPrintf(static_cast<float>(static_cast<std::int64_t>(random())) / 1e16f);
    // Ties of the sixth decimal: odd multiples of 1/128 and of 1/2^k.
    expectPrintedAsPrintf(static_cast<float>(static_cast<std::int32_t>(random() % 20000000)) / 128.0f);
    expectPrintedAsPrintf(std::ldexp(static_cast<float>(random() % (1 << 24)), -static_cast<int>(random() % 60)));
  }
  for (std::uint64_t i = scaled(20000); i > 0; --i) expectPrintedAsPrintf(numbers::anyDouble(random));
}

TEST(print, equals_printf_at_the_edges) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kNothing = std::numeric_limits<float>::quiet_NaN();
  for (const float value :
       {0.0f,        1e-7f,         4.9e-7f,       5e-7f,          5.1e-7f,    0.0000005f,  0.0000015f, 0.9999995f,
        0.99999994f, 9.9999995f,    0.5f,          1.5f,           0.0078125f, 0.0234375f,  1e-4f,      1e-5f,
        123456.0f,   1234567.0f,    999999.5f,     1e6f,           1e9f,       8.99999e9f,  9e9f,       9.00001e9f,
        1e10f,       4294967296.0f, 3.4028235e38f, 1.1754944e-38f, 1e-45f,     16777216.0f, kInfinity,  kNothing}) {
    expectPrintedAsPrintf(value);
    expectPrintedAsPrintf(-value);
    expectPrintedAsPrintf(static_cast<double>(value));
    expectPrintedAsPrintf(-static_cast<double>(value));
  }
  expectPrintedAsPrintf(std::nextafter(9e9f, 0.0f));
  expectPrintedAsPrintf(std::numeric_limits<double>::max());
  expectPrintedAsPrintf(std::numeric_limits<double>::lowest());
  expectPrintedAsPrintf(std::numeric_limits<double>::denorm_min());
}

TEST(print, writes_integers_as_printf) {
  Random random(5);
  for (const std::int32_t value :
       {0, -1, 9, 10, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()})
    EXPECT_EQ(printed<std::int32_t>(printD, value), formatted("%d", value));
  for (int i = 0; i < 1000; ++i) {
    const auto value = static_cast<std::int32_t>(random());
    ASSERT_EQ(printed<std::int32_t>(printD, value), formatted("%d", value));
  }
}

TEST(print, writes_no_more_digits_than_reading_back_takes) {
  EXPECT_EQ(printed<float>(printShortest, 0.1f), "0.1");
  EXPECT_EQ(printed<float>(printShortest, 16777216.0f), "16777216");
  EXPECT_EQ(printed<float>(printShortest, -0.0f), "-0");
  EXPECT_EQ(printed<float>(printShortest, 1e20f), "1e+20");
  EXPECT_EQ(printed<double>(printShortest, 0.1), "0.1");
  EXPECT_EQ(printed<double>(printShortest, 1234567.891), "1234567.891");
}

TEST(scanFloats, reads_as_sscanf_does) {
  const std::string_view alphabet = "0123456789..--++ee  ,E\t\n";
  Random random(6);
  for (std::uint64_t i = scaled(100000); i > 0; --i) {
    std::string text(random() % 12, ' ');
    for (char& c : text) c = alphabet[random() % alphabet.size()];
    float values[3] = {-7, -8, -9}, expected[3] = {-7, -8, -9};
    int expectedCount = std::sscanf(text.c_str(), "%f %f %f", &expected[0], &expected[1], &expected[2]);
    if (expectedCount < 0) expectedCount = 0;
    ASSERT_EQ(scanFloats(text.c_str(), values, 3), expectedCount) << "'" << text << "'";
    for (std::size_t k = 0; k < 3; ++k) {
      if (std::isinf(expected[k])) expected[k] = std::copysign(std::numeric_limits<float>::max(), expected[k]);
      ASSERT_EQ(bits(values[k]), bits(expected[k])) << "'" << text << "'";
    }
  }
}

TEST(scanFloats, reads_the_other_forms_of_numbers) {
  const struct {
    const char* text;
    int count;
    float first, second;  // -9 where nothing is read
  } rows[] = {{"0x1.8p1 2", 2, 3, 2},
              {"0X1F -0x10", 2, 31, -16},
              {"0x 2", 0, -9, -9},
              {"0x1p 2", 2, 1, 2},
              {"inf -INFINITY", 2, std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()},
              {"+1 +2", 2, 1, 2},
              {"0x1p1p 2", 1, 2, -9},
              {"1e39 -1e39", 2, std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest()},
              {"0x1p999 0x1p-999", 2, std::numeric_limits<float>::max(), 0},
              {"\v\f\r\n1 2", 2, 1, 2},
              {"in 1", 0, -9, -9},
              {"+-1 2", 0, -9, -9},
              {"- 1", 0, -9, -9},
              {"1", 1, 1, -9},
              {"", 0, -9, -9},
              {"1 two", 1, 1, -9},
              {"1 2 3", 2, 1, 2}};
  for (const auto& row : rows) {
    float values[2] = {-9, -9};
    EXPECT_EQ(scanFloats(row.text, values, 2), row.count) << row.text;
    EXPECT_EQ(values[0], row.first) << row.text;
    EXPECT_EQ(values[1], row.second) << row.text;
  }
  float value = -9;
  EXPECT_EQ(scanFloats("nan", &value, 1), 1);
  EXPECT_TRUE(std::isnan(value));
  EXPECT_EQ(scanFloats(nullptr, &value, 1), 0);
}

TEST(scan, converts_single_numbers_as_the_c_functions_do) {
  for (const char* text :
       {"1.5", "  -2e3xyz", "+7", "abc", "", "-", ".", "0x10", "1e-300", "3.", "-.25e1", "+-1", "1e", " \t12"}) {
    EXPECT_EQ(scanDouble(text), std::atof(text)) << text;
    EXPECT_EQ(scanFloat(text), static_cast<float>(std::atof(text))) << text;
  }
  for (const char* text :
       {"15", "  -2e3", "+7", "abc", "", "-", "0x10", "3.9", "+-1", "-+1", "- 1", "+ 1", " \t12", "007"})
    EXPECT_EQ(scanInt32(text), std::atoi(text)) << text;
  EXPECT_EQ(scanInt32("99999999999"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(scanInt32("-99999999999"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(scanInt32(nullptr), 0);
  EXPECT_EQ(scanDouble(nullptr), 0.0);
}

}  // namespace
}  // namespace vrml
