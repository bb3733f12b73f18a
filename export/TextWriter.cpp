// The buffer between the export and its stream. A stream whose error indicator is set takes nothing more, so that a
// file on a full disk ends where the disk did, without gaps.

#include "export/TextWriter.h"

#include <cerrno>

namespace exporter {

TextWriter::TextWriter(std::FILE* file)
    : m_file(file),
      m_buffer(std::make_unique_for_overwrite<char[]>(kBufferBytes)),
      m_next(m_buffer.get()),
      m_end(m_next + kBufferBytes) {
  static_assert(kMaxRoom <= kBufferBytes && kMaxDoubleChars <= kMaxRoom);
  if (std::ferror(file) != 0) m_error = EIO;
}

TextWriter::~TextWriter() { flush(); }

void TextWriter::flush() {
  const auto bytes = static_cast<std::size_t>(m_next - m_buffer.get());
  m_next = m_buffer.get();
  if (bytes == 0 || m_error != 0) return;
  const int before = errno;
  errno = 0;
  const bool whole = std::fwrite(m_buffer.get(), 1, bytes, m_file) == bytes;
  if (!whole) m_error = errno != 0 ? errno : EIO;
  errno = whole ? before : m_error;
}

void TextWriter::putLong(std::string_view text) {
  while (!text.empty()) {
    flush();
    const std::size_t bytes = text.copy(m_next, kBufferBytes);
    m_next += bytes;
    text.remove_prefix(bytes);
  }
}

}  // namespace exporter
