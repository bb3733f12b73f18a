// The rules of the scanner, through the token listing, which shows exactly what a load sees.

#include "vrml/reader/Lexer.h"

#include <gtest/gtest.h>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::kHeader;
using readertest::listing;
using readertest::tokens;

struct Row {
  const char* name;
  const char* input;
  const char* expected;
};

void expectTokens(const std::vector<Row>& rows, bool wide = false) {
  for (const Row& row : rows) EXPECT_EQ(tokens(row.input, wide), row.expected) << row.name << ": " << row.input;
}

TEST(Lexer, scans_numbers) {
  expectTokens({
      {"integers and commas", "1,2,3", "integer 1 | punct , | integer 2 | punct , | integer 3"},
      {"negative", "-5 -0", "integer -5 | integer 0"},
      {"leading zeros", "007 -010", "integer 7 | integer -10"},
      {"real forms", "1.5 12. .5 -.5 1e5 5e-3 1E+2",
       "float 1.5 | float 12 | float 0.5 | float -0.5 | float 100000 | "
       "float 0.005 | float 100"},
      {"empty digit runs", ". - -. -.e e5 -e5 .e3",
       "float 0 | float 0 | float 0 | float 0 | float 0 | float 0 | float 0"},
      {"exponent marks without digits", "1e 1e+ 2E- 10em", "float 1 | float 1 | float 2 | float 10 | identifier m"},
      {"the longest match wins", "--5 .. 1..2 1.5.2",
       "float 0 | integer -5 | float 0 | float 0 | float 1 | float 0.2 | "
       "float 1.5 | float 0.2"},
      {"hexadecimal", "0x1F 0xff 0XAB 0x10z 0x",
       "integer 31 | integer 255 | integer 0 | identifier XAB | integer 16 | "
       "identifier z | integer 0 | identifier x"},
      {"no sign before 0x", "-0x10", "integer 0 | identifier x10"},
      {"hexadecimal is a pattern", "0xFFFFFFFF 0x80000000 0x123456789",
       "integer -1 | integer -2147483648 | integer "
       "591751049"},
      {"integers saturate", "2147483647 2147483648 -2147483648 -2147483649 99999999999999999999",
       "integer 2147483647 | integer 2147483647 | integer -2147483648 | integer -2147483648 | integer 2147483647"},
      {"nearest float of the whole text", "2.4089149236679077148437499 3.6745949983596801757812501 16777217.0",
       "float 2.40891 | float 3.6746 | float 1.67772e+07"},
      {"too small and too large", "1e-60 1e60 -1e60", "float 0 | float 3.40282e+38 | float -3.40282e+38"},
      {"a number ends at a letter", "12abc 1.5x", "integer 12 | identifier abc | float 1.5 | identifier x"},
  });
}

TEST(Lexer, scans_words) {
  expectTokens({
      {"names", "a+b-c _x1 a1", "identifier a+b-c | identifier _x1 | identifier a1"},
      {"keywords are whole words in their case", "Transform Transforms transform Box1 size sizes",
       "node Transform | identifier Transforms | identifier transform | identifier Box1 | field size | identifier "
       "sizes"},
      {"truth values", "TRUE FALSE true TRUE1", "integer 1 | integer 0 | identifier true | identifier TRUE1"},
      {"NULL", "NULL NULLs null", "null NULL | identifier NULLs | identifier null"},
      {"names that begin like an exponent", "e e1x e+ E5 emissiveColor edge",
       "identifier e | identifier e1x | float 0 | "
       "float 0 | field emissiveColor | identifier edge"},
      {"interface words are names", "field eventIn SFBool IS TO EXTERNPROTO directOutput",
       "identifier field | identifier eventIn | identifier SFBool | identifier IS | identifier TO | identifier "
       "EXTERNPROTO | identifier directOutput"},
      {"the one event among the fields", "value_changed set_fraction", "field value_changed | identifier set_fraction"},
      {"whichChild is a keyword", "whichChoice whichChild", "field whichChoice | field whichChild"},
  });
}

TEST(Lexer, scans_strings) {
  expectTokens({
      {"empty", "\"\"", "string \"\""},
      {"a backslash is a character", "\"a\\\"b\" \"c", "string \"a\\\" | identifier b | string \" \" | identifier c"},
      {"what would be special elsewhere", "\"# { } [ ] , DEF\"", "string \"# { } [ ] , DEF\""},
      {"without an end it is passed over", "1 \"abc 2", "integer 1 | identifier abc | integer 2"},
  });
  expectTokens(
      {
          {"an escaped quote", "\"a\\\"b\" c", "string \"a\"b\" | identifier c"},
          {"an escaped backslash", "\"a\\\\\" b", "string \"a\\\" | identifier b"},
          {"other backslashes stay", "\"c\\d\\n\"", "string \"c\\d\\n\""},
          {"a backslash before the end", "\"a\\", "identifier a"},
      },
      true);
}

TEST(Lexer, changes_its_words_in_a_script) {
  expectTokens({
      {"interface words", "Script { field SFFloat size 1.5 eventIn MFVec3f Transform eventOut SFNode x }",
       "node Script | punct { | script field | script SFFloat | identifier size | float 1.5 | script eventIn | script "
       "MFVec3f | identifier Transform | script eventOut | script SFNode | identifier x | punct }"},
      {"the script's own fields", "Script { directOutput TRUE mustEvaluate FALSE url NULL }",
       "node Script | punct { | script directOutput | integer 1 | script mustEvaluate | integer 0 | script url | null "
       "NULL | punct }"},
      {"words that are none", "Script { exposedField SFImage DEF PROTO ROUTE }",
       "node Script | punct { | identifier exposedField | identifier SFImage | identifier DEF | identifier PROTO | "
       "identifier ROUTE | punct }"},
      {"USE reads no name", "Script { USE b }", "node Script | punct { | use USE | identifier b | punct }"},
      {"the first closing brace ends it", "Script { { field } field Group }",
       "node Script | punct { | punct { | script field | punct } | identifier field | node Group | punct }"},
      {"it begins with the word", "Script field", "node Script | script field"},
  });
  expectTokens(
      {{"by the wide rules its own brace ends it", "Script { { field } field } field",
        "node Script | punct { | punct { | script field | punct } | script field | punct } | identifier field"}},
      true);
}

TEST(Lexer, knows_every_type_word_of_a_script) {
  for (const char* const type : {"SFBool",     "SFFloat", "SFInt32", "SFTime",  "SFRotation", "SFNode",  "SFColor",
                                 "SFString",   "SFVec2f", "SFVec3f", "MFBool",  "MFFloat",    "MFInt32", "MFTime",
                                 "MFRotation", "MFNode",  "MFColor", "MFImage", "MFString",   "MFVec2f", "MFVec3f"})
    EXPECT_EQ(tokens("Script " + std::string(type)), "node Script | script " + std::string(type));
}

TEST(Lexer, echoes_what_no_rule_matches) {
  struct EchoRow {
    const char* input;
    const char* tokens;
    const char* echoed;
  };
  for (const EchoRow& row : std::vector<EchoRow>{
           {"+3", "1\tinteger\t3\n1\tend\t\n", "+"},
           {"1 ; (2) \x80\xff", "1\tinteger\t1\n1\tinteger\t2\n1\tend\t\n", ";()\x80\xff"},
           {"a\r\nb # c\r\n\"d\re\"\r\n", "1\tidentifier\ta\n2\tidentifier\tb\n3\tstring\t\"d\re\"\n4\tend\t\n",
            "\r\r"},
           {"1 \" 2", "1\tinteger\t1\n1\tinteger\t2\n1\tend\t\n", "\""},
           {"# + comment", "1\tend\t\n", ""},
       }) {
    const EchoCapture echo;
    EXPECT_EQ(listing(row.input), row.tokens) << row.input;
    EXPECT_EQ(echo.text(), row.echoed) << row.input;
  }
}

TEST(Lexer, echoes_zero_bytes) {
  const EchoCapture echo;
  EXPECT_EQ(listing(std::string("1\0\0 2\0", 6)), "1\tinteger\t1\n1\tinteger\t2\n1\tend\t\n");
  EXPECT_EQ(echo.text(), std::string(3, '\0'));
}

TEST(Lexer, counts_lines) {
  struct LineRow {
    const char* name;
    const char* input;
    const char* expected;
  };
  for (const LineRow& row : std::vector<LineRow>{
           {"line ends", "a\n\n b\n", "1\tidentifier\ta\n3\tidentifier\tb\n4\tend\t\n"},
           {"comments", "a # b c\n\n#\n#d\n\tx\n", "1\tidentifier\ta\n5\tidentifier\tx\n6\tend\t\n"},
           {"a comment at the end counts none", "a # b", "1\tidentifier\ta\n1\tend\t\n"},
           {"those in strings do not count", "\"a\nb\"\nx", "1\tstring\t\"a\nb\"\n2\tidentifier\tx\n2\tend\t\n"},
           {"those of a DEF header do", "DEF\na\nGroup\n{ }", "4\tnode\tGroup\n4\tpunct\t{\n4\tpunct\t}\n4\tend\t\n"},
           {"that in front of a USE's name does", "USE\na b", "2\tuse\tUSE\n2\tidentifier\tb\n2\tend\t\n"},
           {"that of a ROUTE does", "ROUTE a.b TO c.d\nx", "2\tidentifier\tx\n2\tend\t\n"},
           {"a ROUTE at the end counts none", "ROUTE a.b TO c.d", "1\tend\t\n"},
           {"all those of a PROTO do", "PROTO\nP\n[\n]\n{\nGroup\n{\n}\n}\nx", "10\tidentifier\tx\n10\tend\t\n"},
           {"and those of comments in it", "PROTO P [ # ]\n] # {\n{ # }\n Group { # }\n } # }\n } x",
            "6\tidentifier\tx\n6\tend\t\n"},
           {"those of an instance do, and those of its expansion not", "PROTO P [] {\nGroup\n{\n}\n}\nP\n{\n}\nx",
            "8\tnode\tGroup\n8\tpunct\t{\n8\tpunct\t}\n9\tidentifier\tx\n9\tend\t\n"},
           {"carriage returns alone in a file without line feeds", "a\r# b\rc\r\"\r\"d",
            "1\tidentifier\ta\n3\tidentifier\tc\n4\tstring\t\"\r\"\n4\tidentifier\td\n4\tend\t\n"},
       }) {
    const EchoCapture echo;
    EXPECT_EQ(listing(row.input), row.expected) << row.name;
  }
}

TEST(Lexer, reads_DEF_headers) {
  expectTokens({
      {"the type and the brace come back", "DEF a Group { } DEF b Group\t{ }",
       "node Group | punct { | punct } | node Group | punct { | punct }"},
      {"the brace may touch the type", "DEF a Group{} DEF b\tBox{}",
       "node Group | punct { | punct } | node Box | punct { | "
       "punct }"},
      {"over several lines", "DEF\n a\n\n Group\n{ }", "node Group | punct { | punct }"},
      {"any characters in the name", "DEF \"a#{ Group { }", "punct { | node Group | punct { | punct }"},
      {"further words are dropped", "DEF a Group b c { }", "node Group | punct { | punct }"},
      {"one word", "DEF a { }", "punct { | punct }"},
      {"no word", "DEF { }", "punct { | punct }"},
      {"no brace", "DEF a Group", "node Group"},
      {"nothing", "DEF", ""},
      {"a string that the header opens", "DEF a \"x { y\" z", "string \"x { y\" | identifier z"},
      {"a comment that the header opens", "DEF a #x { y\nz", "identifier z"},
      {"a longer word is none", "DEFINE DEF1", "identifier DEFINE | identifier DEF1"},
  });
}

TEST(Lexer, cuts_the_words_of_a_DEF_header) {
  const std::string longName(300, 'n');
  const std::string longType(300, 'T');
  EXPECT_EQ(tokens("DEF " + longName + " " + longType + " { }"),
            "identifier " + std::string(255, 'T') + " | punct { | punct }");
}

TEST(Lexer, reads_the_name_of_a_USE) {
  expectTokens({
      {"name characters", "USE a+b-c_1.d", "use USE | float 0 | identifier d"},
      {"blanks and tabs before it", "USE \t a b", "use USE | identifier b"},
      {"one line end, and then at once", "USE\na b USE\n b", "use USE | identifier b | use USE | identifier b"},
      {"no name", "USE { USE", "use USE | punct { | use USE"},
      {"a longer word is none", "USED", "identifier USED"},
  });
  expectTokens({{"by the wide rules up to what ends it", "USE a.b:c, USE d] USE e} USE f\"g\" USE h#i",
                 "use USE | punct , | use USE | punct ] | use USE | punct } | use USE | string \"g\" | use USE"}},
               true);
}

TEST(Lexer, reads_routes) {
  expectTokens({
      {"nothing is left of the line", "ROUTE a.x TO b.y }\nz", "identifier z"},
      {"the second line of one is not read", "ROUTE a.x\nTO b.y",
       "identifier TO | identifier b | float 0 | identifier y"},
      {"a longer word is none", "ROUTES", "identifier ROUTES"},
  });
  expectTokens(
      {
          {"four words, then on", "ROUTE a.x TO b.y } z", "punct } | identifier z"},
          {"up to what ends the fourth", "ROUTE a.x TO b.y}z", "punct } | identifier z"},
          {"a comment behind it", "ROUTE a.x TO b.y # c\nz", "identifier z"},
          {"on to the next line behind TO", "ROUTE a.x TO\n b.y z", "identifier z"},
          {"and only there", "ROUTE a.x\nTO b.y", "identifier TO | identifier b | float 0 | identifier y"},
          {"without TO the whole line goes", "ROUTE a.b.x TO b.y z\nw", "identifier w"},
      },
      true);
}

TEST(Lexer, joins_routes_that_two_lines_hold_by_the_wide_rules) {
  EXPECT_EQ(listing("ROUTE a.x TO\nb.y z", true), "2\tidentifier\tz\n2\tend\t\n");
}

TEST(Lexer, keeps_long_tokens_whole) {
  const std::string text(70'000, 'n');
  EXPECT_EQ(tokens(text), "identifier " + text);
  EXPECT_EQ(tokens("\"" + text + "\""), "string \"" + text + "\"");
  EXPECT_EQ(tokens("0." + std::string(70'000, '0') + "1 " + std::string(70'000, '1')), "float 0 | integer 2147483647");
}

TEST(Lexer, hands_the_line_to_the_error_report) {
  struct LineTextRow {
    const char* text;
    std::size_t offset;
    const char* expected;
  };
  for (const LineTextRow& row : std::vector<LineTextRow>{{"abc\ndef\n", 0, "abc"},
                                                         {"abc\ndef\n", 4, "def"},
                                                         {"abc\ndef", 4, "def"},
                                                         {"abc\n", 4, ""},
                                                         {"abc\r\ndef\r\n", 5, "def"},
                                                         {"abc\rdef\r", 4, "def"},
                                                         {"a\rc\ndef\n", 0, "a\rc"}})
    EXPECT_EQ(lineTextAt(row.text, row.offset), row.expected) << row.text;
  EXPECT_EQ(lineTextAt(std::string(70'000, 'x'), 0).size(), 65'535u);
}

TEST(yylex, takes_tokens_of_the_active_scanner) {
  EXPECT_EQ(yylex(), 0) << "without a scanner there is nothing";
  Parser parser;
  const std::string text = std::string("Group {") + std::string(kScanPadding, '\0');
  Lexer lexer({text.data(), 7}, Rules::exact(), parser, 0);
  EXPECT_EQ(yyrestart(&lexer), nullptr);
  EXPECT_EQ(yylex(), static_cast<int>(TokenKind::node));
  EXPECT_EQ(yylex(), static_cast<int>(TokenKind::openBrace));
  EXPECT_EQ(yylex(), 0);
  EXPECT_EQ(yylex(), 0);
  EXPECT_EQ(yyrestart(nullptr), &lexer);
  EXPECT_EQ(activeLexer(), nullptr);
}

TEST(Lexer, scans_texts_that_were_put_back_first) {
  Parser parser;
  const std::string text = std::string("c") + std::string(kScanPadding, '\0');
  Lexer lexer({text.data(), 1}, Rules::exact(), parser, 0);
  lexer.pushBack("b", 0);
  lexer.pushBack("a \n ", 0);
  std::string all;
  while (lexer.next().kind != TokenKind::end) all += lexer.token().text;
  EXPECT_EQ(all, "abc");
  EXPECT_EQ(lexer.line(), 1) << "line ends that are not the file's count none";
}

TEST(Lexer, finds_strings_that_close_nothing_once) {
  const EchoCapture echo;
  EXPECT_EQ(listing(readertest::repeated("\\\"", 300'000), true), "1\tend\t\n");
  EXPECT_EQ(echo.text().size(), 600'000u);
}

}  // namespace
}  // namespace vrml
