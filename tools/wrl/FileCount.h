#pragma once

// How far a command has come that goes over several files.

#include <cstddef>
#include <string>

#include "tools/wrl/Progress.h"

namespace wrl {

/// Shows "3 of 12: FILE" while a file is worked on, and puts "3 of 12: " before what others show meanwhile.
class FileCount {
 public:
  explicit FileCount(std::size_t total, std::chrono::milliseconds patience = Progress::kPatience);
  ~FileCount();
  FileCount(const FileCount&) = delete;
  FileCount& operator=(const FileCount&) = delete;

  /// The next file begins.
  void begin(const std::string& file);

  /// Takes the line off the terminal, for something that stays.
  void wipe() { m_progress.wipe(); }

 private:
  Progress m_progress;
  std::size_t m_total;
  std::size_t m_number = 0;
};

}  // namespace wrl
