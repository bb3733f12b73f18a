// JSON text in one pass. Room for the longest number is made once before each number, so that to_chars writes straight
// into the buffer.

#include "embedded/JsonWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "embedded/Utf8.h"

namespace embedded {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

}  // namespace

void JsonWriter::room(std::size_t bytes) {
  if (m_buffer.size() - m_used < bytes) finish();
}

void JsonWriter::put(char c) {
  room(1);
  m_buffer[m_used++] = c;
}

void JsonWriter::put(std::string_view text) {
  while (!text.empty()) {
    room(1);
    const std::size_t bytes = std::min(text.size(), m_buffer.size() - m_used);
    std::memcpy(m_buffer.data() + m_used, text.data(), bytes);
    m_used += bytes;
    text.remove_prefix(bytes);
  }
}

void JsonWriter::separate() {
  if (m_needsComma) put(',');
  if (m_breaksLine) put('\n');
  m_needsComma = true;
  m_breaksLine = false;
}

void JsonWriter::begin(char bracket) {
  separate();
  put(bracket);
  m_needsComma = false;
}

void JsonWriter::end(char bracket) {
  put(bracket);
  m_needsComma = true;
  m_breaksLine = false;
}

void JsonWriter::word(std::string_view text) {
  separate();
  put(text);
}

void JsonWriter::key(std::string_view name) {
  separate();
  put('"');
  put(name);
  put("\":");
  m_needsComma = false;
}

void JsonWriter::text(std::string_view value) {
  constexpr std::string_view kHex = "0123456789abcdef";
  separate();
  put('"');
  for (std::size_t place = 0; place < value.size();) {
    const std::size_t length = utf8SequenceLength(value, place);
    const unsigned byte = static_cast<unsigned char>(value[place]);
    if (length == 0) {
      put(kReplacement);
    } else if (byte == '"' || byte == '\\') {
      put('\\');
      put(value[place]);
    } else if (byte == '\n') {
      put("\\n");
    } else if (byte == '\t') {
      put("\\t");
    } else if (byte == '\r') {
      put("\\r");
    } else if (byte < 0x20) {
      put("\\u00");
      put(kHex[byte >> 4]);
      put(kHex[byte & 15U]);
    } else {
      put(value.substr(place, length));
    }
    place += length == 0 ? 1 : length;
  }
  put('"');
}

void JsonWriter::integer(std::int64_t value) {
  separate();
  room(kLongestNumber);
  char* const at = m_buffer.data() + m_used;
  m_used += static_cast<std::size_t>(std::to_chars(at, at + kLongestNumber, value).ptr - at);
}

void JsonWriter::number(float value) {
  if (!std::isfinite(value)) return null();
  separate();
  room(kLongestNumber);
  char* const at = m_buffer.data() + m_used;
  m_used += static_cast<std::size_t>(std::to_chars(at, at + kLongestNumber, value).ptr - at);
}

void JsonWriter::wideNumber(double value) {
  if (!std::isfinite(value)) return null();
  separate();
  room(kLongestNumber);
  char* const at = m_buffer.data() + m_used;
  m_used += static_cast<std::size_t>(std::to_chars(at, at + kLongestNumber, value).ptr - at);
}

void JsonWriter::numbers(std::span<const float> values) {
  begin('[');
  for (const float value : values) number(value);
  end(']');
}

void JsonWriter::integers(std::span<const std::uint32_t> values) {
  begin('[');
  for (const std::uint32_t value : values) integer(value);
  end(']');
}

void JsonWriter::lineBreak() { m_breaksLine = true; }

void JsonWriter::finish() {
  m_out.write(m_buffer.data(), static_cast<std::streamsize>(m_used));
  m_used = 0;
}

}  // namespace embedded
