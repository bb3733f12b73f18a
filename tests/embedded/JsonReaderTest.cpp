// JSON taken piece by piece: what is accepted, what is refused and where.

#include "embedded/JsonReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "embedded/Utf8.h"

namespace {

using embedded::JsonError;
using embedded::JsonReader;

// Takes whatever comes, and writes it down in one line.
std::string dump(JsonReader& json) {
  std::string text;
  std::string open;  // the brackets that are still to be closed
  std::string key;
  for (;;) {
    if (!open.empty()) {
      const bool isObject = open.back() == '}';
      if (!(isObject ? json.nextKey(key) : json.nextItem())) {
        text += open.back();
        open.pop_back();
        if (open.empty()) break;
        continue;
      }
      if (isObject) text += key + ":";
    }
    switch (json.kind()) {
      case JsonReader::Kind::Object:
        json.enterObject();
        open += '}';
        text += '{';
        continue;
      case JsonReader::Kind::List:
        json.enterList();
        open += ']';
        text += '[';
        continue;
      case JsonReader::Kind::Text:
        text += "\"" + json.takeText() + "\" ";
        break;
      case JsonReader::Kind::Number:
        text += std::to_string(json.takeFloat()) + " ";
        break;
      case JsonReader::Kind::Boolean:
        text += json.takeBoolean() ? "true " : "false ";
        break;
      case JsonReader::Kind::Null:
        json.takeNull();
        text += "null ";
        break;
    }
    if (open.empty()) break;
  }
  json.finish();
  return text;
}

std::string dumped(std::string_view text) {
  JsonReader json(text);
  return dump(json);
}

TEST(JsonReader, TakesEveryKindOfValue) {
  EXPECT_EQ(dumped(R"( {"a": [1, -2.5e1, true], "b":{"c":null},"d":"x" ,"e":[] } )"),
            "{a:[1.000000 -25.000000 true ]b:{c:null }d:\"x\" e:[]}");
  EXPECT_EQ(dumped("\xEF\xBB\xBF[false]"), "[false ]");
  EXPECT_EQ(dumped("0"), "0.000000 ");
}

TEST(JsonReader, TextIsUnescaped) {
  EXPECT_EQ(dumped(R"("\"\\\/\b\f\n\r\t")"), "\"\"\\/\b\f\n\r\t\" ");
  EXPECT_EQ(dumped(R"("\u0041\u00e4\u65e5\ud83d\ude00")"), "\"A\xC3\xA4\xE6\x97\xA5\xF0\x9F\x98\x80\" ");
  EXPECT_EQ(dumped("\"\xC3\xA4\"").size(), 5U);
}

TEST(JsonReader, WhatIsNoJsonIsRefused) {
  const std::string_view rows[] = {
      "",
      " ",
      "{",
      "[",
      "[1,",
      "[1 2]",
      "[1,]",
      "{\"a\"}",
      "{\"a\":}",
      "{a:1}",
      "{\"a\":1,}",
      "{\"a\" 1}",
      "{,}",
      "[,]",
      "nul",
      "truE",
      "01",
      "-",
      "1.",
      ".5",
      "+1",
      "1e",
      "1e+",
      "0x1",
      "\"",
      "\"\\x\"",
      "\"\\u12\"",
      "\"\\u12G4\"",
      "\"\n\"",
      "\"\xFF\"",
      "\"\\ud800\"",
      "\"\\udc00\"",
      "[1]]",
      "1 2",
      "{\"a\":1]",
      "[1}",
      "\"\\ud800\\u0041\"",
      "'a'",
      "NaN",
      "Infinity",
      "\"a",
      "\"\\",
      "\"\\u",
      "{\"a\":1",
      "{\"a",
  };
  for (const std::string_view row : rows) EXPECT_THROW(static_cast<void>(dumped(row)), JsonError) << row;
}

TEST(JsonReader, ErrorsNameLineAndPlace) {
  JsonReader json("{\n \"a\": [0,\n {\"b\": x}]}");
  try {
    static_cast<void>(dump(json));
    FAIL();
  } catch (const JsonError& error) {
    EXPECT_EQ(error.line(), 3U);
    EXPECT_STREQ(error.what(), "/a/1/b: a value is expected");
  }
  JsonReader wrong("[\"a\"]");
  wrong.enterList();
  EXPECT_TRUE(wrong.nextItem());
  try {
    static_cast<void>(wrong.takeFloat());
    FAIL();
  } catch (const JsonError& error) {
    EXPECT_STREQ(error.what(), "/0: a number is expected, not a text");
  }
}

TEST(JsonReader, NumbersAreTheNearestFloats) {
  struct Row {
    const char* text;
    float value;
  };
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const Row rows[] = {
      {"0.1", 0.1F},          {"-0", -0.0F},   {"16777217", 16777216.0F}, {"3.4e38", 3.4e38F}, {"1e39", kInfinity},
      {"-1e999", -kInfinity}, {"1e-60", 0.0F}, {"0.1e999", kInfinity},    {"1E2", 100.0F},     {"100.000e-2", 1.0F},
  };
  for (const Row& row : rows) {
    JsonReader json(row.text);
    EXPECT_EQ(json.takeFloat(), row.value) << row.text;
  }
  JsonReader nothing("null");
  EXPECT_TRUE(std::isnan(nothing.takeFloat()));
  JsonReader wide("0.7853981633974483");
  EXPECT_EQ(wide.takeDouble(), 0.7853981633974483);
}

TEST(JsonReader, WholeNumbersStayWithinTheirBounds) {
  struct Row {
    const char* text;
    long long value;  // -1 where it is refused
  };
  const Row rows[] = {{"0", 0},
                      {"4294967295", 4294967295},
                      {"4294967296", -1},
                      {"-1", -1},
                      {"1.5", -1},
                      {"3.0", 3},
                      {"1e2", 100},
                      {"1e99", -1},
                      {"99999999999999999999", -1},
                      {"\"1\"", -1},
                      {"null", -1}};
  for (const Row& row : rows) {
    JsonReader json(row.text);
    if (row.value < 0) {
      EXPECT_THROW(static_cast<void>(json.takeInteger(0, 4294967295)), JsonError) << row.text;
    } else {
      EXPECT_EQ(json.takeInteger(0, 4294967295), row.value) << row.text;
    }
  }
}

TEST(JsonReader, DeepNestingCostsNoStack) {
  const std::size_t depth = 1'000'000;
  const std::string text = std::string(depth, '[') + std::string(depth, ']');
  EXPECT_EQ(dumped(text), text);
  EXPECT_THROW(static_cast<void>(dumped(text.substr(0, depth + 5))), JsonError);
}

TEST(Utf8, SequencesAreMeasuredAndMade) {
  EXPECT_EQ(embedded::utf8SequenceLength("", 0), 0U);
  EXPECT_EQ(embedded::utf8SequenceLength(std::string_view("\0", 1), 0), 1U);
  for (const unsigned codePoint : {0x41U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xFFFDU, 0x10000U, 0x10FFFFU}) {
    std::string text;
    embedded::appendUtf8(text, codePoint);
    EXPECT_EQ(embedded::utf8SequenceLength(text, 0), text.size()) << codePoint;
  }
}

}  // namespace
