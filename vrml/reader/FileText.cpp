#include "vrml/reader/FileText.h"

// The size that the file system reports is taken as a hint for the first block only; reading goes on until nothing more
// comes. Unbuffered, so that the bytes go straight from the system into the block.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include "vrml/reader/ScannerFailure.h"
#include "vrml/reader/Unpacker.h"

namespace vrml {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// 0 when the size is not known.
std::size_t sizeHint(std::FILE* file) {
  if (std::fseek(file, 0, SEEK_END) != 0) {
    std::clearerr(file);
    return 0;
  }
  const long size = std::ftell(file);
  std::rewind(file);
  // A folder and some devices report the largest number there is; the block grows if such a file really is that long.
  constexpr long kLargestHint = 1L << 32;
  return size > 0 && size <= kLargestHint ? static_cast<std::size_t>(size) : 0;
}

constexpr std::size_t kFirstBlock = std::size_t{1} << 16;

constexpr std::string_view kGzipMark = "\x1F\x8B";
Unpacker g_unpacker = nullptr;

}  // namespace

Unpacker setUnpacker(Unpacker unpacker) noexcept { return std::exchange(g_unpacker, unpacker); }

void FileText::makeRoom(std::size_t size) {
  if (size <= m_capacity) return;
  char* const block = static_cast<char*>(std::realloc(m_buffer.get(), size));
  if (!block) failScanner(ScannerFailure::createBuffer);
  static_cast<void>(m_buffer.release());
  m_buffer.reset(block);
  m_capacity = size;
}

bool FileText::read(const std::string& path) {
  m_size = 0;
  const File file(std::fopen(path.c_str(), "rb"));
  if (!file) return false;
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  // One byte more than the file holds, so that one read finds its end.
  makeRoom(std::max(kFirstBlock, sizeHint(file.get()) + 1 + kScanPadding));
  for (;;) {
    const std::size_t room = m_capacity - kScanPadding - m_size;
    const std::size_t got = std::fread(m_buffer.get() + m_size, 1, room, file.get());
    m_size += got;
    if (got < room) break;
    makeRoom(m_capacity * 2);
  }
  const bool failed = std::ferror(file.get()) != 0;
  if (failed) m_size = 0;
  std::string plain;
  if (text().starts_with(kGzipMark) && g_unpacker && g_unpacker(text(), plain)) {
    makeRoom(plain.size() + kScanPadding);
    std::memcpy(m_buffer.get(), plain.data(), plain.size());
    m_size = plain.size();
  }
  std::memset(m_buffer.get() + m_size, 0, kScanPadding);
  return !failed;
}

void reportUnopenable(const std::string& path) {
  const std::string message = "Cannot open data file " + path + "\n";
  std::fwrite(message.data(), 1, message.size(), stderr);
}

}  // namespace vrml
