// The module and the reader take paths, so standard input has to have one. "/dev/stdin" is opened afresh by each
// reader; a pipe would give its bytes to the first of them only, and a socket cannot be opened at all, so both are
// copied into an unnamed file that takes their place as descriptor 0.

#include "tools/wrl/Input.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <memory>
#include <system_error>
#include <utility>

namespace wrl {

namespace {

constexpr const char* kStandardInputPath = "/dev/stdin";

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

bool isRegularFileAtItsStart(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && ::lseek(descriptor, 0, SEEK_CUR) == 0;
}

// Copies what is left of standard input; 0, or the number of the error that stopped it.
int copyStandardInput(std::FILE* copy) {
  std::array<char, 65536> block;
  for (;;) {
    const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
    // Rewinding flushes too; whoever asks again finds a regular file at its start.
    if (count == 0) return std::fseek(copy, 0, SEEK_SET) == 0 ? 0 : errno;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    const auto bytes = static_cast<std::size_t>(count);
    if (std::fwrite(block.data(), 1, bytes, copy) != bytes) return errno;
  }
}

int makeStandardInputRegular() {
  if (isRegularFileAtItsStart(STDIN_FILENO)) return 0;
  const std::unique_ptr<std::FILE, FileCloser> copy(std::tmpfile());
  if (!copy) return errno;
  const int error = copyStandardInput(copy.get());
  if (::dup2(::fileno(copy.get()), STDIN_FILENO) == -1) return errno;
  return error;
}

}  // namespace

bool isStandardInput(const std::string& file) { return file == "-"; }

InputPath inputPath(const std::string& file) {
  if (!isStandardInput(file)) return {file, ""};
  const int error = makeStandardInputRegular();
  if (error == 0) return {kStandardInputPath, ""};
  return {"", "standard input: error: " + std::generic_category().message(error)};
}

std::optional<std::string> inputPathOrReport(const std::string& file) {
  InputPath input = inputPath(file);
  if (input.error.empty()) return std::move(input.path);
  std::cerr << input.error << '\n';
  return std::nullopt;
}

}  // namespace wrl
