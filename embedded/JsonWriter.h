#pragma once

// Writing of JSON text in one pass, with no tree behind it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string_view>

namespace embedded {

// Puts values, keys and brackets into a buffer that is handed to the stream when it is full, and at the end. Commas are
// set by the writer; brackets must be closed by the caller. Numbers do not depend on the locale. Whether all of it
// could be written is to be asked of the stream after finish().
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out) : m_out(out) {}
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;
  ~JsonWriter() { finish(); }

  void beginObject() { begin('{'); }
  void endObject() { end('}'); }
  void beginList() { begin('['); }
  void endList() { end(']'); }

  // A key of the open object. Keys are plain ASCII without quotes or backslashes.
  void key(std::string_view name);

  // A text. Bytes that are not UTF-8 become U+FFFD, one each; control characters are escaped.
  void text(std::string_view value);

  void boolean(bool value) { word(value ? "true" : "false"); }
  void null() { word("null"); }
  void integer(std::int64_t value);

  // The fewest digits that give the same float back; null for what is no finite number.
  void number(float value);

  // The fewest digits that give the same double back; null for what is no finite number.
  void wideNumber(double value);

  // Lists of numbers, floats as number() writes them.
  void numbers(std::span<const float> values);
  void integers(std::span<const std::uint32_t> values);

  // Begins a new line before the next value.
  void lineBreak();

  // Hands over what the buffer holds.
  void finish();

 private:
  static constexpr std::size_t kBufferBytes = 256 * 1024;
  static constexpr std::size_t kLongestNumber = 32;

  void begin(char bracket);
  void end(char bracket);
  void word(std::string_view text);
  void separate();
  void put(char c);
  void put(std::string_view text);
  void room(std::size_t bytes);

  std::ostream& m_out;
  std::array<char, kBufferBytes> m_buffer;
  std::size_t m_used = 0;
  bool m_needsComma = false;
  bool m_breaksLine = false;
};

}  // namespace embedded
