// A main function in libFuzzer's place: runs a target over files and folders, once each. So seeds and findings are
// ordinary tests of every build, whatever its compiler.
//
// usage: seeds_TARGET FILE-OR-FOLDER...

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/Harness.h"

namespace {

std::vector<std::string> filesBelow(const std::string& path) {
  if (!std::filesystem::is_directory(path)) return {path};
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
    if (entry.is_regular_file()) files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

// The input stands in a block of exactly its size, so that the address sanitizer sees a read past its end.
void runFile(const std::string& path) {
  const std::string content = fuzz::contentOf(path);
  const auto input = std::make_unique<std::uint8_t[]>(content.size());
  if (!content.empty()) std::memcpy(input.get(), content.data(), content.size());
  LLVMFuzzerTestOneInput(input.get(), content.size());
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::exists(argv[i])) continue;  // a target without findings has no folder for them
    for (const std::string& file : filesBelow(argv[i])) {
      std::fprintf(stderr, "%s\n", file.c_str());
      runFile(file);
      ++count;
    }
  }
  std::fprintf(stderr, "%d inputs\n", count);
  return count > 0 ? 0 : 1;
}
