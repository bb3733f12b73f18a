// The forms of numbers, and that the plain way gives what the long way gives.

#include "vrml/reader/NumberMatch.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <string>
#include <vector>

namespace vrml {
namespace {

TEST(matchNumber, takes_the_longest_form) {
  struct Row {
    const char* text;
    std::size_t length;
    NumberForm form;
  };
  for (const Row& row : std::vector<Row>{{"12 ", 2, NumberForm::integer},  {"-12,", 3, NumberForm::integer},
                                         {"12.", 3, NumberForm::real},     {".5", 2, NumberForm::real},
                                         {"-.5-", 3, NumberForm::real},    {"-", 1, NumberForm::real},
                                         {".", 1, NumberForm::real},       {"-.", 2, NumberForm::real},
                                         {"e", 1, NumberForm::real},       {"E5x", 2, NumberForm::real},
                                         {"e-", 2, NumberForm::real},      {"1e", 2, NumberForm::real},
                                         {"1e+5+", 4, NumberForm::real},   {"1.5.5", 3, NumberForm::real},
                                         {"1-2", 1, NumberForm::integer},  {"0x1Fg", 4, NumberForm::hexadecimal},
                                         {"0x", 1, NumberForm::integer},   {"0X1", 1, NumberForm::integer},
                                         {"00x1", 2, NumberForm::integer}, {"-0x1", 2, NumberForm::integer}}) {
    const NumberMatch match = matchNumber(row.text);
    EXPECT_EQ(static_cast<std::size_t>(match.end - row.text), row.length) << row.text;
    EXPECT_EQ(match.form, row.form) << row.text;
  }
}

TEST(matchNumber, gives_values) {
  const auto integer = [](const char* text) { return integerOf(text, matchNumber(text)); };
  const auto real = [](const char* text) { return floatOf(text, matchNumber(text)); };
  EXPECT_EQ(integer("-2147483649"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(integer("0xFFFFFFFF"), -1);
  EXPECT_EQ(integer("0x1234567890"), 0x34567890);
  EXPECT_EQ(real("99999999999"), 99999999999.0f);
  EXPECT_EQ(real("0xFFFFFFFF"), -1.0f);
  EXPECT_EQ(real("-e5"), 0.0f);
  EXPECT_TRUE(std::signbit(real("-0")));
}

// What the plain functions take, they read as the long way does, and what they leave, they leave untouched.
void expectSame(const std::string& text) {
  const NumberMatch match = matchNumber(text.data());
  float real = -7;
  if (const char* const end = readPlainFloat(text.data(), real)) {
    EXPECT_EQ(end, match.end) << text;
    EXPECT_EQ(std::bit_cast<std::uint32_t>(real), std::bit_cast<std::uint32_t>(floatOf(text.data(), match))) << text;
  } else {
    EXPECT_EQ(real, -7) << text;
  }
  std::int32_t integer = -7;
  if (const char* const end = readPlainInt32(text.data(), integer)) {
    EXPECT_EQ(match.form, NumberForm::integer) << text;
    EXPECT_EQ(end, match.end) << text;
    EXPECT_EQ(integer, integerOf(text.data(), match)) << text;
  } else {
    EXPECT_EQ(integer, -7) << text;
  }
}

TEST(readPlainFloat, reads_as_the_long_way_does) {
  for (const char* const text : {"0",
                                 "-0",
                                 "1",
                                 "-1",
                                 "12345678901234567890",
                                 "1234567890123456789",
                                 "0.1",
                                 "-.5",
                                 "5.",
                                 ".",
                                 "-",
                                 "1e5",
                                 "0x10",
                                 "123456789",
                                 "1234567890",
                                 "999999999",
                                 "-999999999",
                                 "0000000000001",
                                 "1.5.2",
                                 "1-2",
                                 "16777217",
                                 "9007199254740993",
                                 "0.000000000000000001",
                                 "340282350000000000000000000000000000000",
                                 "1x",
                                 "7,",
                                 "8]"})
    expectSame(text);
  std::mt19937 random(1);
  const std::string characters = "0123456789012345678901234567890123456789.-eEx ,";
  for (int i = 0; i < 200'000; ++i) {
    std::string text(1, "0123456789-."[random() % 12]);
    for (std::size_t length = random() % 22; length > 0; --length) text += characters[random() % characters.size()];
    expectSame(text);
  }
}

TEST(readPlainInt32, takes_nine_digits_at_most) {
  std::int32_t value = 0;
  EXPECT_NE(readPlainInt32("-999999999 ", value), nullptr);
  EXPECT_EQ(value, -999'999'999);
  EXPECT_EQ(readPlainInt32("1000000000 ", value), nullptr);
}

}  // namespace
}  // namespace vrml
