#include "embedded/pages/Base64.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace embedded {
namespace {

std::string base64Of(std::string_view bytes) {
  std::ostringstream out;
  writeBase64(bytes, out);
  return out.str();
}

TEST(Base64, has_four_letters_for_three_bytes) {
  const struct {
    std::string bytes;
    const char* text;
  } kRows[] = {
      {"", ""},
      {"f", "Zg=="},
      {"fo", "Zm8="},
      {"foo", "Zm9v"},
      {"foob", "Zm9vYg=="},
      {std::string("\0\0\0", 3), "AAAA"},
      {"\xFF\xFF\xFF", "////"},
      {"\xFB\xEF\xBE", "++++"},
  };
  for (const auto& row : kRows) EXPECT_EQ(base64Of(row.bytes), row.text);
}

TEST(Base64, goes_on_behind_a_block) {
  const std::string bytes = std::string(100'000, 'a') + 'b';
  const std::string text = base64Of(bytes);
  EXPECT_EQ(text.size(), 133'336U);
  for (std::size_t at = 0; at + 8 < text.size(); at += 4) ASSERT_EQ(text.substr(at, 4), "YWFh");
  EXPECT_EQ(text.substr(text.size() - 8), "YWFhYWI=");
}

}  // namespace
}  // namespace embedded
