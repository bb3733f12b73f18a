#include "fuzz/Harness.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fuzz {
namespace {

// $TMPDIR goes first, so that a caller can clear away what a crash has left.
std::filesystem::path temporaryPlace() {
  const std::filesystem::path inMemory = "/dev/shm";
  const bool isWanted = std::getenv("TMPDIR") == nullptr && access(inMemory.c_str(), W_OK) == 0;
  return isWanted ? inMemory : std::filesystem::temp_directory_path();
}

class ScratchFolder {
 public:
  ScratchFolder() : m_path((temporaryPlace() / ("wrl-fuzz-" + std::to_string(getpid()))).string()) {
    std::filesystem::create_directories(m_path);
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  [[nodiscard]] const std::string& path() const { return m_path; }

 private:
  std::string m_path;
};

void show(const char* heading, std::string_view text) {
  if (!text.empty()) std::fprintf(stderr, "---- %s\n%.*s\n", heading, static_cast<int>(text.size()), text.data());
}

}  // namespace

const std::string& scratchFolder() {
  static const ScratchFolder folder;
  return folder.path();
}

std::string writeScratch(const std::string& name, std::string_view content) {
  const std::filesystem::path path = std::filesystem::path(scratchFolder()) / name;
  if (!std::filesystem::exists(path.parent_path())) std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(content.data(), static_cast<std::streamsize>(content.size()));
  return path.string();
}

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void fail(const char* what, std::string_view first, std::string_view second) {
  std::fprintf(stderr, "%s\n", what);
  show("first", first);
  show("second", second);
  std::abort();
}

}  // namespace fuzz
