#pragma once

// A fresh folder for one test, removed at its end, and the few file operations that the tests of the command need.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <stdlib.h>

namespace wrl {

class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "wrl-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    m_path = name;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] std::string path(const std::string& name) const { return (m_path / name).string(); }

  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(m_path / name, std::ios::binary) << text;
    return path(name);
  }

  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream in(m_path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  /// Number of entries in the folder, hidden ones included.
  [[nodiscard]] std::ptrdiff_t entryCount() const {
    return std::distance(std::filesystem::directory_iterator(m_path), {});
  }

 private:
  std::filesystem::path m_path;
};

}  // namespace wrl
