#include "tools/wrl/ColorText.h"

#include <gtest/gtest.h>

namespace wrl {
namespace {

using Color = std::array<std::uint8_t, 3>;

TEST(ColorText, reads_names_and_hexadecimal_numbers) {
  const struct {
    const char* text;
    std::optional<Color> expected;
  } kRows[] = {
      {"white", Color{255, 255, 255}}, {"Navy", Color{0, 0, 128}}, {"#0a10FF", Color{10, 16, 255}},
      {"#000000", Color{0, 0, 0}},     {"", std::nullopt},         {"#", std::nullopt},
      {"#12345", std::nullopt},        {"#1234567", std::nullopt}, {"#12345g", std::nullopt},
      {"#-12345", std::nullopt},       {"123456", std::nullopt},   {"whit", std::nullopt},
      {"whites", std::nullopt},
  };
  for (const auto& row : kRows) EXPECT_EQ(readColor(row.text), row.expected) << row.text;
}

TEST(ColorText, lists_names_that_can_be_read) {
  std::string names = colorNames() + ", ";
  int count = 0;
  for (std::size_t end = names.find(", "); end != std::string::npos; end = names.find(", "), ++count) {
    EXPECT_TRUE(readColor(names.substr(0, end)).has_value()) << names.substr(0, end);
    names.erase(0, end + 2);
  }
  EXPECT_EQ(count, 16);
}

}  // namespace
}  // namespace wrl
