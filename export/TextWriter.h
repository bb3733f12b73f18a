#pragma once

// The one way of text into an exported file: fixed texts and numbers gathered in a buffer, handed to the stream in
// large pieces, whatever buffer the stream has of its own.

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>

#include "export/NumberText.h"

namespace exporter {

/// Gathers text for an open stream, which it neither opens nor closes. What was gathered reaches the stream at flush
/// and at the writer's end, at the place where the stream stands then: nobody else writes to the stream in between.
///
/// A write that fails is remembered here and in the stream's error indicator; text that follows it is dropped, also
/// that of later writers on the same stream. Numbers are printed as `%f`, `%d` and `%u` print them in the C locale.
class TextWriter {
 public:
  /// `file` is open for writing and not null.
  explicit TextWriter(std::FILE* file);
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  /// Flushes; `errno` says why when that failed, and is left alone otherwise.
  ~TextWriter();

  /// Writes texts and numbers in the order of the arguments.
  template <class... Pieces>
  TextWriter& print(const Pieces&... pieces) {
    (put(pieces), ...);
    return *this;
  }

  void put(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(m_end - m_next)) return putLong(text);
    m_next += text.copy(m_next, text.size());
  }
  void put(float value) { m_next = printFixed(room(kMaxFloatChars), value); }
  void put(double value) { m_next = printFixed(room(kMaxDoubleChars), value); }
  void put(std::int32_t value) { m_next = printInteger(room(kMaxIntegerChars), value); }
  void put(std::uint32_t value) { m_next = printUnsigned(room(kMaxIntegerChars), value); }

  /// The fast path of long lists: a place with room for `bytes` characters, at most kMaxRoom, which the caller fills
  /// from the front and then gives back by `advanceTo(end of what was filled)`.
  [[nodiscard]] char* room(std::size_t bytes) {
    if (bytes > static_cast<std::size_t>(m_end - m_next)) [[unlikely]]
      flush();
    return m_next;
  }
  void advanceTo(char* end) { m_next = end; }
  static constexpr std::size_t kMaxRoom = 4096;

  /// Hands what was gathered to the stream.
  void flush();

  /// 0 while every write went well, else the error number of the first that did not.
  [[nodiscard]] int error() const { return m_error; }

 private:
  static constexpr std::size_t kBufferBytes = std::size_t{256} * 1024;

  void putLong(std::string_view text);

  std::FILE* m_file;
  std::unique_ptr<char[]> m_buffer;
  char* m_next;
  char* m_end;
  int m_error = 0;
};

}  // namespace exporter
