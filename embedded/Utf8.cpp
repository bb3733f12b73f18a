// UTF-8. Sequences that are longer than they need be, surrogates and code points past the last one are not well-formed.

#include "embedded/Utf8.h"

namespace embedded {
namespace {

unsigned byteAt(std::string_view text, std::size_t place) {
  return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
}

bool isContinuation(unsigned byte) { return (byte & 0xC0U) == 0x80U; }

}  // namespace

std::size_t utf8SequenceLength(std::string_view text, std::size_t place) {
  const unsigned first = byteAt(text, place);
  const unsigned second = byteAt(text, place + 1);
  if (first < 0x80) return place < text.size() ? 1 : 0;
  if (first >= 0xC2 && first <= 0xDF) return isContinuation(second) ? 2 : 0;
  if (!isContinuation(second) || !isContinuation(byteAt(text, place + 2))) return 0;
  if (first >= 0xE0 && first <= 0xEF) {
    const bool isOverlong = first == 0xE0 && second < 0xA0;
    const bool isSurrogate = first == 0xED && second > 0x9F;
    return isOverlong || isSurrogate ? 0 : 3;
  }
  if (first < 0xF0 || first > 0xF4 || !isContinuation(byteAt(text, place + 3))) return 0;
  const bool isOverlong = first == 0xF0 && second < 0x90;
  const bool isTooLarge = first == 0xF4 && second > 0x8F;
  return isOverlong || isTooLarge ? 0 : 4;
}

void appendUtf8(std::string& text, unsigned codePoint) {
  const auto put = [&text](unsigned byte) { text += static_cast<char>(byte); };
  if (codePoint < 0x80) return put(codePoint);
  if (codePoint < 0x800) {
    put(0xC0 | codePoint >> 6);
  } else {
    if (codePoint < 0x10000) {
      put(0xE0 | codePoint >> 12);
    } else {
      put(0xF0 | codePoint >> 18);
      put(0x80 | (codePoint >> 12 & 0x3F));
    }
    put(0x80 | (codePoint >> 6 & 0x3F));
  }
  put(0x80 | (codePoint & 0x3F));
}

std::string wellFormedUtf8(std::string_view text) {
  constexpr unsigned kReplacement = 0xFFFD;
  std::string wellFormed;
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t length = utf8SequenceLength(text, place);
    if (length == 0) appendUtf8(wellFormed, kReplacement);
    wellFormed.append(text, place, length);
    place += length == 0 ? 1 : length;
  }
  return wellFormed;
}

}  // namespace embedded
