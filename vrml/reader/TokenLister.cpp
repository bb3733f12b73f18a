#include "vrml/reader/TokenLister.h"

// The scanner runs over the file with a parser that holds no tree, so that PROTOs are known and everything else is read
// past as in a load.

#include <array>
#include <ostream>
#include <string_view>

#include "vrml/fields/Numbers.h"
#include "vrml/reader/FileText.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/Limits.h"
#include "vrml/reader/Parser.h"

namespace vrml {
namespace {

// In the order of TokenKind.
constexpr std::array kClassNames =
    std::to_array<std::string_view>({"end", "integer", "float", "string", "identifier", "null", "node", "field",
                                     "script", "use", "punct", "punct", "punct", "punct", "punct", "", "end", "end"});
static_assert(kClassNames.size() == kTokenKindCount);

void appendText(const Token& token, std::string& out) {
  char digits[kNumberTextSize];
  switch (token.kind) {
    case TokenKind::integer:
      out.append(digits, printD(digits, token.integer));
      break;
    case TokenKind::real:
      out.append(digits, printG(digits, token.real));
      break;
    case TokenKind::string:
      out.append("\"").append(token.value).append("\"");
      break;
    case TokenKind::end:
    case TokenKind::openQuote:
    case TokenKind::unfinished:
    case TokenKind::limit:
      break;
    case TokenKind::identifier:
    case TokenKind::null:
    case TokenKind::node:
    case TokenKind::field:
    case TokenKind::script:
    case TokenKind::use:
    case TokenKind::comma:
    case TokenKind::openBrace:
    case TokenKind::closeBrace:
    case TokenKind::openBracket:
    case TokenKind::closeBracket:
      out += token.text;
      break;
  }
}

void appendLine(int line, const Token& token, std::string& out) {
  char digits[kNumberTextSize];
  out.append(digits, printD(digits, line));
  out.append("\t").append(kClassNames[static_cast<std::size_t>(token.kind)]).append("\t");
  appendText(token, out);
  out += '\n';
}

}  // namespace

bool listTokens(const std::string& path, bool wide, std::ostream& out) {
  FileText file;
  if (!file.read(path)) {
    reportUnopenable(path);
    return false;
  }
  Parser parser;
  Parser::pushParser(parser);
  {
    Lexer lexer(file.text(), wide ? Rules::wide() : Rules::exact(), parser, kExpansionTextLimit);
    const ActiveLexer active(lexer);
    constexpr std::size_t kPiece = std::size_t{1} << 16;
    std::string lines;
    for (bool atEnd = false; !atEnd;) {
      const Token& token = lexer.next();
      if (token.kind == TokenKind::openQuote) continue;
      appendLine(lexer.line(), token, lines);
      atEnd = token.kind == TokenKind::end || token.kind == TokenKind::unfinished || token.kind == TokenKind::limit;
      if (!atEnd && lines.size() < kPiece) continue;
      out.write(lines.data(), static_cast<std::streamsize>(lines.size()));
      lines.clear();
    }
  }
  Parser::popParser();
  return true;
}

}  // namespace vrml
