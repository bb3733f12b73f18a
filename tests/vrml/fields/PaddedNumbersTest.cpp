// The plain numbers that are read eight characters at a time, held against the general way.

#include "vrml/fields/PaddedNumbers.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "NumberTexts.h"

namespace vrml {
namespace {

// A text in a block of its own that ends with the promised padding, so that a read beyond it is found.
class Padded {
 public:
  Padded(std::string_view text, char filler) : m_block(std::make_unique<char[]>(text.size() + kNumberPadding)) {
    std::copy(text.begin(), text.end(), m_block.get());
    std::fill_n(m_block.get() + text.size(), kNumberPadding, filler);
  }
  [[nodiscard]] const char* begin() const { return m_block.get(); }

 private:
  std::unique_ptr<char[]> m_block;
};

// Reads the text in front of the filler, and says whether the plain way took it, as the general way reads it.
bool takenAndRight(const std::string& text, char filler) {
  const Padded padded(text, filler);
  float value = -9.0f;
  const char* const end = readPaddedFloat(padded.begin(), value);
  if (!end) {
    EXPECT_EQ(value, -9.0f) << text;
    return false;
  }
  const float expected = parseFloat(padded.begin(), end);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(value), std::bit_cast<std::uint32_t>(expected)) << text;
  EXPECT_EQ(end - padded.begin(), static_cast<std::ptrdiff_t>(text.size())) << text;
  return true;
}

TEST(readPaddedFloat, reads_random_texts_as_the_general_way) {
  numbers::Random random(7);
  for (const numbers::Generator& generator : numbers::decimalGenerators())
    for (std::uint64_t i = numbers::scaled(generator.count / 8); i > 0; --i) {
      takenAndRight(generator.make(random), " ,]\n}#-\""[random() % 8]);
      if (HasFailure()) FAIL() << generator.name;
    }
}

TEST(readPaddedFloat, takes_what_files_are_full_of) {
  for (const char* text : {"0", "1", "-1", "0.5", ".5", "-.5", "12.", "1234567", "-1234567.123456", "0.123456789012",
                           "3.14159", "-0", "-0.0", "100.000000", "0.00000001"})
    for (const char filler : {' ', '\n', ',', ']', '\t', '}', '\0', 'a', '-'})
      EXPECT_TRUE(takenAndRight(text, filler)) << text;
}

TEST(readPaddedFloat, leaves_the_rest_to_the_general_way) {
  for (const char* text : {"", "-", ".", "-.", "e5", "1e5", "1E5", "1.5e3", "0x10", "12345678", "123456789.5",
                           "0.1234567890123", "16777217.0", "+1", "--1", "a", "1x"})
    EXPECT_FALSE(takenAndRight(text, ' ')) << text;
}

TEST(readPaddedInt32, takes_short_integers_alone) {
  const struct {
    const char* text;
    std::int32_t value;
    std::ptrdiff_t length;  // 0 when it is left to the general way
  } rows[] = {{"0", 0, 1},
              {"-1", -1, 2},
              {"1234567", 1234567, 7},
              {"-1234567,", -1234567, 8},
              {"007 ", 7, 3},
              {"12-3", 12, 2},
              {"12a", 12, 2},
              {"-0", 0, 2},
              {"12345678", 0, 0},
              {"1.", 0, 0},
              {"1.5", 0, 0},
              {"1e5", 0, 0},
              {"1E", 0, 0},
              {"0x1", 0, 0},
              {"", 0, 0},
              {"-", 0, 0},
              {"+1", 0, 0},
              {"TRUE", 0, 0},
              {"123456789012345", 0, 0}};
  for (const auto& row : rows) {
    const Padded padded(row.text, ' ');
    std::int32_t value = -9;
    const char* const end = readPaddedInt32(padded.begin(), value);
    EXPECT_EQ(end ? end - padded.begin() : 0, row.length) << row.text;
    EXPECT_EQ(value, row.length ? row.value : -9) << row.text;
  }
}

TEST(readDigitRun, ends_at_every_character_that_is_no_digit) {
  for (int c = 0; c < 256; ++c)
    for (std::uint32_t length = 0; length <= 8; ++length) {
      std::string text = std::string("12345678").substr(0, length) + std::string(8, static_cast<char>(c));
      if (c >= '0' && c <= '9') continue;
      const DigitRun run = readDigitRun(text.data());
      ASSERT_EQ(run.length, length) << c;
      ASSERT_EQ(run.value, length == 0 ? 0u : static_cast<std::uint32_t>(std::stoul(text.substr(0, length)))) << c;
    }
}

}  // namespace
}  // namespace vrml
