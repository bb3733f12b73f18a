#pragma once

// UTF-8, byte by byte.

#include <cstddef>
#include <string>
#include <string_view>

namespace embedded {

// The length in bytes of the well-formed UTF-8 sequence that begins at `place`; 0 when none does, or at the text's end.
[[nodiscard]] std::size_t utf8SequenceLength(std::string_view text, std::size_t place);

// Appends the UTF-8 of a code point, which is no surrogate and at most 0x10FFFF.
void appendUtf8(std::string& text, unsigned codePoint);

// A text with U+FFFD in the place of each byte that is not part of a well-formed sequence.
[[nodiscard]] std::string wellFormedUtf8(std::string_view text);

}  // namespace embedded
