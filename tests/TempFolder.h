#pragma once

// A fresh folder for one test, gone with the object, and the few file operations that tests need.

#include <stdlib.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace fixtures {

/// The bytes of a file, "" when it cannot be read.
[[nodiscard]] inline std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void writeFile(const std::string& path, std::string_view content) {
  std::ofstream(path, std::ios::binary) << content;
}

class TempFolder {
 public:
  TempFolder() {
    m_path = (std::filesystem::temp_directory_path() / "wrl-test-XXXXXX").string();
    if (::mkdtemp(m_path.data()) == nullptr) throw std::runtime_error("no folder for the test");
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  [[nodiscard]] const std::string& path() const { return m_path; }

  /// The path of an entry; `name` may lead through folders.
  [[nodiscard]] std::string path(const std::string& name) const { return m_path + "/" + name; }

  /// Writes a file and makes the folders that its name leads through. Returns its path.
  std::string write(const std::string& name, std::string_view content) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    writeFile(path(name), content);
    return path(name);
  }

  [[nodiscard]] std::string read(const std::string& name) const { return contentOf(path(name)); }

  /// Number of entries in the folder, hidden ones included.
  [[nodiscard]] std::ptrdiff_t entryCount() const {
    return std::distance(std::filesystem::directory_iterator(m_path), {});
  }

 private:
  std::string m_path;
};

}  // namespace fixtures
