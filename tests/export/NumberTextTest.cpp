// Numbers print what the C library's formatted output prints. WRL_NUMBER_TEST_VALUES sets how many floats are compared:
// they are spread evenly over all bit patterns, and 4294967296 of them are all there are.

#include "export/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/export/CommaLocale.h"

namespace {

std::uint64_t valueCount() {
  const char* text = std::getenv("WRL_NUMBER_TEST_VALUES");
  const std::uint64_t count = text != nullptr ? std::strtoull(text, nullptr, 10) : 0;
  return count != 0 ? std::min(count, std::uint64_t{1} << 32U) : 2000000;
}

template <class Value>
std::string printedFixed(Value value) {
  // Exactly as large as promised, so that a sanitizer sees a byte too many.
  std::vector<char> text(std::is_same_v<Value, float> ? exporter::kMaxFloatChars : exporter::kMaxDoubleChars);
  return {text.data(), exporter::printFixed(text.data(), value)};
}

std::string printedInteger(std::int32_t value) {
  std::vector<char> text(exporter::kMaxIntegerChars);
  return {text.data(), exporter::printInteger(text.data(), value)};
}

template <class Value>
std::string printedUnsigned(Value value) {
  std::vector<char> text(exporter::kMaxIntegerChars);
  return {text.data(), exporter::printUnsigned(text.data(), value)};
}

template <class Value>
std::string formatted(const char* format, Value value) {
  char text[400];
  return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, format, value))};
}

/// Compares without making strings, for the long runs. Returns whether the texts are equal.
bool printsAsTheLibrary(float value) {
  char ours[exporter::kMaxFloatChars];
  char theirs[64];
  const auto length = static_cast<std::size_t>(exporter::printFixed(ours, value) - ours);
  const int wanted = std::snprintf(theirs, sizeof theirs, "%f", static_cast<double>(value));
  return length == static_cast<std::size_t>(wanted) && std::memcmp(ours, theirs, length) == 0;
}

void expectAsTheLibrary(float value) {
  EXPECT_TRUE(printsAsTheLibrary(value)) << printedFixed(value) << " for "
                                         << formatted("%f", static_cast<double>(value)) << ", bits "
                                         << std::bit_cast<std::uint32_t>(value);
}

/// A value, its neighbours, and all of them negative.
void expectAround(float value) {
  for (const float sign : {1.0F, -1.0F}) {
    expectAsTheLibrary(sign * value);
    expectAsTheLibrary(sign * std::nextafter(value, 0.0F));
    expectAsTheLibrary(sign * std::nextafter(value, std::numeric_limits<float>::infinity()));
  }
}

TEST(NumberText, EdgesOfFloatsPrintAsF) {
  const float infinity = std::numeric_limits<float>::infinity();
  const float notANumber = std::numeric_limits<float>::quiet_NaN();
  for (const float value : {0.0F, infinity, notANumber, std::numeric_limits<float>::max(),
                            std::numeric_limits<float>::min(), std::numeric_limits<float>::denorm_min()}) {
    expectAround(value);
  }
  EXPECT_EQ(printedFixed(-0.0F), "-0.000000");
  EXPECT_EQ(printedFixed(-2.5e-7F), "-0.000000");
  EXPECT_EQ(printedFixed(infinity), "inf");
  EXPECT_EQ(printedFixed(-infinity), "-inf");
  EXPECT_EQ(printedFixed(notANumber), "nan");
  EXPECT_EQ(printedFixed(-notANumber), "-nan");
  EXPECT_EQ(printedFixed(-std::numeric_limits<float>::max()).size(), 47U);
}

TEST(NumberText, PowersPrintAsF) {
  for (int exponent = -149; exponent < 128; ++exponent) expectAround(std::ldexp(1.0F, exponent));
  for (int exponent = -45; exponent <= 38; ++exponent) expectAround(std::pow(10.0F, static_cast<float>(exponent)));
  for (int exponent = -12; exponent < 32; ++exponent) expectAround(std::ldexp(999999.5F, exponent));
}

TEST(NumberText, TiesGoToTheEvenDigit) {
  EXPECT_EQ(printedFixed(0.0078125F), "0.007812");
  EXPECT_EQ(printedFixed(0.0234375F), "0.023438");
  // An odd multiple of 1/128 lies half-way between two numbers of six decimals.
  for (int odd = 1; odd < 1 << 16; odd += 2) expectAround(static_cast<float>(odd) / 128.0F);
}

TEST(NumberText, NeighboursOfTiesPrintAsF) {
  for (int whole = 0; whole < 100000; ++whole) {
    expectAround(static_cast<float>((whole * 7.0 + 0.5) * 1e-6));
  }
}

TEST(NumberText, FloatsOfAllKindsPrintAsF) {
  const std::uint64_t count = valueCount();
  const std::uint64_t stride = (std::uint64_t{1} << 32U) / count;
  std::uint64_t unequal = 0;
  for (std::uint64_t i = 0; i < count; ++i) {
    // Another place within each stride, so that mantissas of all lengths come up.
    const std::uint64_t place = stride > 1 ? i * 0x9e3779b97f4a7c15ULL % stride : 0;
    const auto bits = static_cast<std::uint32_t>(i * stride + place);
    if (!printsAsTheLibrary(std::bit_cast<float>(bits)) && ++unequal < 10) {
      expectAsTheLibrary(std::bit_cast<float>(bits));
    }
  }
  EXPECT_EQ(unequal, 0U) << "of " << count;
}

TEST(NumberText, ShortDecimalsPrintAsF) {
  for (int i = -300000; i <= 300000; ++i) {
    expectAsTheLibrary(static_cast<float>(i) / 1000.0F);
    expectAsTheLibrary(static_cast<float>(i) * 0.1171F - 40.0F);
  }
}

TEST(NumberText, DoublesPrintAsF) {
  for (int exponent = -1074; exponent < 1024; ++exponent) {
    const double power = std::ldexp(1.0, exponent);
    for (const double value : {power, -power, std::nextafter(power, 0.0), power * 1.2345678901234567}) {
      EXPECT_EQ(printedFixed(value), formatted("%f", value));
    }
  }
  const double infinity = std::numeric_limits<double>::infinity();
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  for (const double value : {0.0, -0.0, infinity, -infinity, notANumber, -notANumber, -1.7976931348623157e308}) {
    EXPECT_EQ(printedFixed(value), formatted("%f", value));
  }
}

TEST(NumberText, IntegersPrintAsD) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t value : {0, -1, kLowest, kLowest + 1, kHighest, kHighest - 1}) {
    EXPECT_EQ(printedInteger(value), formatted("%d", value));
  }
  for (std::int64_t power = 1; power <= kHighest; power *= 10) {
    for (const std::int64_t value : {power - 1, power, power + 1, 9 * power, -power, 1 - power}) {
      const auto integer = static_cast<std::int32_t>(value);
      EXPECT_EQ(printedInteger(integer), formatted("%d", integer));
    }
  }
  for (std::int64_t value = kLowest; value <= kHighest; value += 12347) {
    const auto integer = static_cast<std::int32_t>(value);
    ASSERT_EQ(printedInteger(integer), formatted("%d", integer));
  }
}

TEST(NumberText, UnsignedNumbersPrintAsU) {
  for (const std::uint32_t value : {0U, 9U, 10U, 99U, 100U, 9999U, 10000U, 99999999U, 100000000U, 4294967295U}) {
    EXPECT_EQ(printedUnsigned(value), formatted("%u", value));
  }
  for (const std::uint64_t value : {std::uint64_t{0}, std::uint64_t{4294967296}, ~std::uint64_t{0}}) {
    EXPECT_EQ(printedUnsigned(value), formatted("%lu", value));
  }
}

TEST(NumberText, TheLocaleDoesNotMatter) {
  const exporter_test::CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  ASSERT_EQ(formatted("%f", 1.5), "1,500000");
  EXPECT_EQ(printedFixed(1234.5F), "1234.500000");
  EXPECT_EQ(printedFixed(1e30F), "1000000015047466219876688855040.000000");
  EXPECT_EQ(printedFixed(0.25), "0.250000");
  EXPECT_EQ(printedInteger(-1234567), "-1234567");
}

}  // namespace
