#pragma once

// What the scanner looks up for a character: its class, which picks the rule, and whether it continues a name.

#include <array>
#include <cstddef>
#include <cstdint>

namespace vrml {

/// What a character can begin or continue; one look-up a byte.
enum class CharClass : std::uint8_t {
  other,    // no rule begins with it
  blank,    // blank, tab
  comma,    // ,
  digit,    // 0 to 9
  minus,    // -
  point,    // .
  letter,   // a to z, A to Z, _
  lineEnd,  // line feed
  hash,     // #
  quote,    // "
  punct,    // { } [ ]
  zero,     // the zero byte: the end of the text, or other
};

namespace charclass {

consteval std::array<CharClass, 256> makeClasses() {
  std::array<CharClass, 256> table{};
  for (int c = '0'; c <= '9'; ++c) table[static_cast<std::size_t>(c)] = CharClass::digit;
  for (int c = 'a'; c <= 'z'; ++c) table[static_cast<std::size_t>(c)] = CharClass::letter;
  for (int c = 'A'; c <= 'Z'; ++c) table[static_cast<std::size_t>(c)] = CharClass::letter;
  table['_'] = CharClass::letter;
  table[' '] = table['\t'] = CharClass::blank;
  table[','] = CharClass::comma;
  table['-'] = CharClass::minus;
  table['.'] = CharClass::point;
  table['\n'] = CharClass::lineEnd;
  table['#'] = CharClass::hash;
  table['"'] = CharClass::quote;
  table['{'] = table['}'] = table['['] = table[']'] = CharClass::punct;
  table[0] = CharClass::zero;
  return table;
}

consteval std::array<bool, 256> makeNameChars() {
  std::array<bool, 256> table{};
  const auto classes = makeClasses();
  for (std::size_t c = 0; c < 256; ++c)
    table[c] = classes[c] == CharClass::letter || classes[c] == CharClass::digit || c == '+' || c == '-';
  return table;
}

inline constexpr std::array<CharClass, 256> kClasses = makeClasses();
inline constexpr std::array<bool, 256> kNameChars = makeNameChars();

}  // namespace charclass

[[nodiscard]] inline CharClass classOf(char c) noexcept { return charclass::kClasses[static_cast<unsigned char>(c)]; }
/// Whether the character continues a name: a letter, a digit, "_", "+" or "-".
[[nodiscard]] inline bool isNameChar(char c) noexcept { return charclass::kNameChars[static_cast<unsigned char>(c)]; }
[[nodiscard]] inline bool isDigit(char c) noexcept { return static_cast<unsigned char>(c - '0') < 10; }

}  // namespace vrml
