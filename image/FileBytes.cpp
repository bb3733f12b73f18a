// The size that the file system knows decides how much is asked for at first, one byte more than that so that a read
// which falls short shows the end; a file that has more to say is read on in growing steps.

#include "image/FileBytes.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

namespace image {

namespace {

constexpr std::size_t kUnknownSize = 65536;  // asked for first when nobody knows

struct CloseFile {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::size_t firstRoom(const std::string& path, std::size_t limit) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(path, unknown);
  return unknown ? std::min(limit, kUnknownSize)
                 : static_cast<std::size_t>(std::min<std::uintmax_t>(limit - 1, size)) + 1;
}

std::vector<std::uint8_t> readAll(std::FILE* file, std::size_t room, std::size_t limit) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t count = 0;; room = std::min(limit, 2 * room)) {
    bytes.resize(room);
    count += std::fread(bytes.data() + count, 1, room - count, file);
    if (count < room || room == limit) {
      bytes.resize(count);
      return bytes;
    }
  }
}

}  // namespace

std::vector<std::uint8_t> readFileBytes(const std::string& path, std::size_t limit) noexcept {
  try {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (file && limit > 0) return readAll(file.get(), firstRoom(path, limit), limit);
  } catch (const std::bad_alloc&) {
  }
  return {};
}

}  // namespace image
