#pragma once

// A whole file in one buffer. The scanner runs over it with plain pointers, so the text is followed by zero bytes that
// end every run of characters and make reading a few bytes past the end harmless.

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace vrml {

/// Zero bytes behind every text that the scanner is given.
inline constexpr std::size_t kScanPadding = 16;

/// Move-only: copying a file's text is never wanted.
class FileText {
 public:
  FileText() = default;

  /// Reads the file to its end, whatever its size is said to be, so that pipes work. False when it cannot be opened or
  /// read; a folder is a file that cannot be opened. The text is empty then.
  [[nodiscard]] bool read(const std::string& path);

  /// The text, `kScanPadding` zero bytes behind it. Valid until the next `read` and as long as this object.
  [[nodiscard]] std::string_view text() const noexcept { return {m_buffer.get(), m_size}; }

 private:
  struct Free {
    void operator()(char* block) const noexcept { std::free(block); }
  };
  void makeRoom(std::size_t size);

  std::unique_ptr<char, Free> m_buffer;  // from malloc: a big block grows by remapping
  std::size_t m_size = 0;
  std::size_t m_capacity = 0;
};

/// Says on standard error that a file cannot be opened: "Cannot open data file %s\n".
void reportUnopenable(const std::string& path);

}  // namespace vrml
