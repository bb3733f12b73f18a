#pragma once

// What the scanner hands to the grammar.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "vrml/nodes/Names.h"

namespace vrml {

enum class TokenKind : std::uint8_t {
  end,           // end of the input
  integer,       // decimal or hexadecimal integer, TRUE, FALSE
  real,          // a number with a point or an exponent, or one without any digit
  string,        // text in double quotes
  identifier,    // a name that is no keyword
  null,          // NULL
  node,          // a node type
  field,         // a field name
  script,        // a word of a Script's interface
  use,           // USE
  comma,         // ,
  openBrace,     // {
  closeBrace,    // }
  openBracket,   // [
  closeBracket,  // ]
  openQuote,     // a double quote that nothing closes; it has been echoed, and the grammar takes it nowhere
  unfinished,    // no token of the text: the input ends inside the instance of a PROTO
  limit,         // no token of the text: a limit was passed in producing the next one
};

inline constexpr std::size_t kTokenKindCount = static_cast<std::size_t>(TokenKind::limit) + 1;

/// Valid until the next token is taken: what it views is the text being scanned or the scanner's own buffer.
struct Token {
  TokenKind kind = TokenKind::end;
  std::uint8_t word = 0xff;  // number of the node type, field name or script word
  union {
    std::int32_t integer = 0;  // of an integer
    float real;                // of a real number
  };
  std::string_view text;   // the token as it stands in the text, a string with its quotes; "" at the end
  std::string_view value;  // of a string: what stands between the quotes

  [[nodiscard]] NodeType nodeType() const noexcept { return static_cast<NodeType>(word); }
  [[nodiscard]] FieldKey fieldKey() const noexcept { return static_cast<FieldKey>(word); }
  [[nodiscard]] ScriptWord scriptWord() const noexcept { return static_cast<ScriptWord>(word); }

  /// Whether it can stand for a number. A lone exponent mark is a name too, and as a number it is 0.
  [[nodiscard]] bool isNumber() const noexcept {
    return kind == TokenKind::integer || kind == TokenKind::real || isLoneExponent();
  }
  [[nodiscard]] bool isLoneExponent() const noexcept {
    return kind == TokenKind::identifier && text.size() == 1 && (text[0] == 'e' || text[0] == 'E');
  }

  /// The number as a float. An integer that 32 bits do not hold counts with all its digits here, and "-0" keeps its
  /// sign.
  [[nodiscard]] float asFloat() const noexcept {
    if (kind == TokenKind::real) return real;
    if (kind != TokenKind::integer) return 0.0f;
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    const bool isWhole = integer > -kLargest && integer < kLargest;
    return isWhole && (integer != 0 || text[0] != '-') ? static_cast<float>(integer) : integerAsFloat();
  }

 private:
  [[nodiscard]] float integerAsFloat() const noexcept;
};

}  // namespace vrml
