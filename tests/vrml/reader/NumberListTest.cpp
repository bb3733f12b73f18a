// An open list of numbers is read by a loop of its own; its result is exactly that of taking token by token.

#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <string>
#include <vector>

#include "ReaderTesting.h"
#include "vrml/fields/MFInt32.h"
#include "vrml/nodes/Node.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/Parser.h"

namespace vrml {
namespace {

using readertest::EchoCapture;

// Everything that reading a list leaves behind.
struct Result {
  std::vector<std::uint32_t> numbers;  // as bits
  TokenKind stop = TokenKind::end;
  std::string stopText;
  int line = 0;
  std::size_t lineOffset = 0;
  std::vector<int> progress;
  std::string echoed;
  std::string rest;  // the kinds and texts of all tokens behind the list

  bool operator==(const Result&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Result& result) {
  out << result.numbers.size() << " numbers, stop '" << result.stopText << "', line " << result.line << " at "
      << result.lineOffset << ", " << result.progress.size() << " lines reported, echoed '" << result.echoed << "'";
  for (const std::uint32_t bits : result.numbers) out << ' ' << std::bit_cast<float>(bits) << '/' << bits;
  return out << "; rest: " << result.rest;
}

enum class Elements { floats, integers };

// Reads the numbers at the beginning of a text, `pushed` texts lying above it, with the loop or token by token.
Result readList(const std::string& text, Elements elements, bool withLoop, const std::vector<std::string>& pushed) {
  Result result;
  Parser parser;
  Parser::pushParser(parser);
  {
    const EchoCapture echo;
    {
      const std::string padded = text + std::string(kScanPadding, '\0');
      Lexer lexer({padded.data(), text.size()}, Rules::exact(), parser, 0);
      lexer.setProgress([](int line, void* data) { static_cast<Result*>(data)->progress.push_back(line); }, &result);
      for (const std::string& each : pushed) lexer.pushBack(each, 0);
      const auto addFloat = [&](float value) { result.numbers.push_back(std::bit_cast<std::uint32_t>(value)); };
      const auto addInteger = [&](std::int32_t value) { result.numbers.push_back(static_cast<std::uint32_t>(value)); };
      for (;;) {
        if (withLoop && elements == Elements::floats) lexer.scanFloats(addFloat);
        if (withLoop && elements == Elements::integers) lexer.scanIntegers(addInteger);
        const Token& token = lexer.next();
        if (token.kind == TokenKind::comma) continue;
        const bool taken = elements == Elements::floats ? token.isNumber() : token.kind == TokenKind::integer;
        if (!taken) break;
        if (elements == Elements::floats)
          addFloat(token.asFloat());
        else
          addInteger(token.integer);
      }
      result.stop = lexer.token().kind;
      result.stopText = lexer.token().text;
      result.line = lexer.line();
      result.lineOffset = lexer.lineOffset();
      for (; lexer.token().kind != TokenKind::end; lexer.next()) result.rest += std::string(lexer.token().text) + "|";
    }
    result.echoed = echo.text();
  }
  Parser::popParser();
  return result;
}

void expectSame(const std::string& text, const std::vector<std::string>& pushed = {}) {
  for (const Elements elements : {Elements::floats, Elements::integers})
    EXPECT_EQ(readList(text, elements, true, pushed), readList(text, elements, false, pushed)) << text;
}

TEST(NumberList, is_read_as_token_by_token) {
  for (const char* const text : {"",
                                 "]",
                                 "1 2 3]",
                                 "1,2,,3 ,]",
                                 "1.5 2 -3e5 .5 5. ]",
                                 "1 2 \n 3 # comment ] 4\n5\n] x",
                                 "1 # to the end",
                                 "- . -. e e5 E-3 ]",
                                 "0x10 0x 0xFFFFFFFF 0X1 ]",
                                 "TRUE FALSE 1 ]",
                                 "1 NULL 2 ]",
                                 "1 foo 2 ]",
                                 "1e 1e+ 10em 2]",
                                 "1.5.2 1-2 --3 1..2]",
                                 "2147483648 -2147483649 99999999999999999999 ]",
                                 "-0 -0.0 0 ]",
                                 "1\r\n2\r\n]\r\n",
                                 "+1 ; 2 ] 3",
                                 "1 \"a\" 2",
                                 "1 \"a 2",
                                 "1 { 2",
                                 "1 [ 2 ] 3",
                                 "1 2.5 3 ]",
                                 "1 DEF a Group { 2",
                                 "1 USE a 2 ]",
                                 "1 ROUTE a.b TO c.d\n2 ]",
                                 "1 PROTO P [ ] { Group { } } 2 ]",
                                 "1234567 12345678 123456789 1234567890 ]",
                                 "0.1234567890123456789 1.00000000000000000000001 ]",
                                 "1\t2\v3\f4]",
                                 "\n\n\n1\n",
                                 "#\n#\n1",
                                 "1 #\n# 2\n3]"})
    expectSame(text);
}

TEST(NumberList, is_read_as_token_by_token_in_a_file_of_carriage_returns) {
  for (const char* const text : {"1\r2\r3\r]", "1 # comment 2\r3 ]\r", "\r\r1]"}) expectSame(text);
}

TEST(NumberList, is_read_as_token_by_token_over_texts_that_were_put_back) {
  expectSame("4 5\n6 ]", {"1 2 ", "-1 "});
  expectSame("4 5\n6 ]", {"1\n2\n", " # a comment\n 7", " "});
  expectSame("4\n5 ]", {"1 2 # without an end"});
  expectSame("4 ]", {"1 ] 2", "3.5 0x1 e"});
  expectSame("", {"1 2", ""});
}

TEST(NumberList, is_read_as_token_by_token_with_zero_bytes) { expectSame(std::string("1 \0 2\0003 ]", 10)); }

TEST(NumberList, is_read_as_token_by_token_at_random) {
  std::mt19937 random(7);
  const std::vector<std::string> pieces = {"1", "-1",          "23",          "456.5", "-0.25", "7e3",   "0x1A", "-",
                                           ".", "e1",          "e",           "\n",    " ",     ",",     "\t",   "#c\n",
                                           "#", "\r",          "\r\n",        "]",     "x",     "\"s\"", "TRUE", "NULL",
                                           "+", "12345678901", "0.123456789", "1e40",  "{",     "-0"};
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    // Mostly numbers, so that lists get long.
    for (std::size_t n = random() % 30; n > 0; --n) {
      text += random() % 4 == 0 ? pieces[random() % pieces.size()]
                                : std::to_string(static_cast<int>(random() % 2000) - 999);
      if (random() % 3 != 0) text += " ,\n"[random() % 3];
    }
    std::vector<std::string> pushed;
    if (random() % 4 == 0)
      pushed.push_back(pieces[random() % pieces.size()] + " " + pieces[random() % pieces.size()] + " ");
    expectSame(text, pushed);
    if (::testing::Test::HasFailure()) return;
  }
}

TEST(NumberList, keeps_every_number_of_a_long_list) {
  std::string text = "Shape { geometry IndexedFaceSet { coordIndex [\n";
  for (int i = 0; i < 100'000; ++i) text += std::to_string(i % 1000) + (i % 7 == 0 ? ",\n" : " ");
  text += "] } }";
  SceneGraph scene;
  readertest::loadText(scene, text);
  ASSERT_TRUE(scene.succeeded());
  const Node* const shape = scene.findNodeByType("IndexedFaceSet");
  ASSERT_NE(shape, nullptr);
  Field* const field = const_cast<Node*>(shape)->getField("coordIndex");
  ASSERT_NE(field, nullptr);
  const auto values = static_cast<const MFInt32*>(field)->values();
  ASSERT_EQ(values.size(), 100'000u);
  for (std::size_t i = 0; i < values.size(); ++i) ASSERT_EQ(values[i], static_cast<std::int32_t>(i % 1000)) << i;
}

}  // namespace
}  // namespace vrml
