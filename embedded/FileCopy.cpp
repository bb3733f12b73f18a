// In C's streams: std::filesystem's copy calls a full disk an input/output error.

#include "embedded/FileCopy.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace embedded {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

using File = std::unique_ptr<std::FILE, FileCloser>;

int errorOr(int otherwise) { return errno != 0 ? errno : otherwise; }

int copyBytes(std::FILE* from, std::FILE* to) {
  std::array<char, 65536> block;
  for (;;) {
    errno = 0;
    const std::size_t count = std::fread(block.data(), 1, block.size(), from);
    if (std::ferror(from) != 0) return errorOr(EIO);
    if (count == 0) return 0;
    if (std::fwrite(block.data(), 1, count, to) != count) return errorOr(EIO);
  }
}

}  // namespace

int copyFile(const std::string& from, const std::string& to) {
  const File source(std::fopen(from.c_str(), "rb"));
  if (source == nullptr) return errorOr(ENOENT);
  File target(std::fopen(to.c_str(), "wb"));
  if (target == nullptr) return errorOr(EIO);
  const int error = copyBytes(source.get(), target.get());
  errno = 0;
  const bool isClosed = std::fclose(target.release()) == 0;
  return error == 0 && !isClosed ? errorOr(EIO) : error;
}

}  // namespace embedded
