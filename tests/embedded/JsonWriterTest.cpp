// JSON text: commas, escapes, bytes that are no text, numbers that are none.

#include "embedded/JsonWriter.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>

namespace {

using embedded::JsonWriter;

std::string textOf(std::string_view value) {
  std::ostringstream out;
  JsonWriter json(out);
  json.text(value);
  json.finish();
  return out.str();
}

TEST(JsonWriter, CommasStandBetweenValuesOnly) {
  std::ostringstream out;
  {
    JsonWriter json(out);
    json.beginObject();
    json.key("a");
    json.beginList();
    json.integer(-1);
    json.boolean(true);
    json.null();
    json.beginObject();
    json.endObject();
    json.lineBreak();
    json.beginList();
    json.endList();
    json.endList();
    json.key("b");
    json.text("x");
    json.endObject();
  }
  EXPECT_EQ(out.str(), "{\"a\":[-1,true,null,{},\n[]],\"b\":\"x\"}");
}

TEST(JsonWriter, TextIsEscaped) {
  EXPECT_EQ(textOf("a\"b\\c\n\r\t\x01\x1F\x7F/"), "\"a\\\"b\\\\c\\n\\r\\t\\u0001\\u001f\x7F/\"");
  EXPECT_EQ(textOf(std::string_view("\0", 1)), "\"\\u0000\"");
}

TEST(JsonWriter, BytesThatAreNotUtf8BecomeTheReplacementCharacter) {
  const std::string r = "\xEF\xBF\xBD";
  const std::pair<const char*, std::string> rows[] = {
      {"Gr\xC3\xB6\xC3\x9F"
       "e",
       "Gr\xC3\xB6\xC3\x9F"
       "e"},
      {"\xE6\x97\xA5\xF0\x9F\x98\x80", "\xE6\x97\xA5\xF0\x9F\x98\x80"},
      {"a\xE4z", "a" + r + "z"},
      {"\x80", r},
      {"\xC0\xAF", r + r},
      {"\xE0\x80\x80", r + r + r},
      {"\xED\xA0\x80", r + r + r},
      {"\xF4\x90\x80\x80", r + r + r + r},
      {"\xF0\x80\x80\x80", r + r + r + r},
      {"\xE6\x97", r + r},
      {"\xC3", r},
      {"\xFF\xFE", r + r},
  };
  for (const auto& [value, expected] : rows) EXPECT_EQ(textOf(value), "\"" + expected + "\"") << expected;
}

TEST(JsonWriter, NumbersHaveTheFewestDigitsThatGiveThemBack) {
  std::ostringstream out;
  {
    JsonWriter json(out);
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float values[] = {0.1F,  1.0F,      -0.0F,     16777216.0F, 1e20F,
                            1e-7F, 0.785398F, kInfinity, -kInfinity,  std::nanf("")};
    json.numbers(values);
    const std::uint32_t integers[] = {0, 4294967295U};
    json.lineBreak();
    json.integers(integers);
  }
  EXPECT_EQ(out.str(), "[0.1,1,-0,16777216,1e+20,1e-07,0.785398,null,null,null],\n[0,4294967295]");
}

TEST(JsonWriter, EveryFloatReadsBackToItself) {
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    const std::uint32_t bits = static_cast<std::uint32_t>(random());
    float value = 0.0F;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    std::ostringstream out;
    {
      JsonWriter json(out);
      json.number(value);
    }
    const std::string text = out.str();
    float back = 0.0F;
    std::from_chars(text.data(), text.data() + text.size(), back);
    ASSERT_EQ(std::memcmp(&value, &back, sizeof value), 0) << text;
  }
}

TEST(JsonWriter, MoreThanTheBufferHoldsComesOutWhole) {
  std::ostringstream out;
  {
    JsonWriter json(out);
    json.numbers(std::vector<float>(300'000, 0.125F));
  }
  EXPECT_EQ(out.str().size(), 300'000 * 6 + 1U);
  EXPECT_EQ(out.str().find("0.125", out.str().size() - 7), out.str().size() - 6);
}

}  // namespace
