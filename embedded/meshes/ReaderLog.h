#pragma once

// What assimp says while it reads.

#include <string>
#include <vector>

namespace embedded {

// Collects assimp's errors for as long as it lives, one line each: what a file names and lacks. Its warnings are about
// itself. Only one at a time: the log is the process's.
class ReaderLog {
 public:
  ReaderLog();
  ~ReaderLog();
  ReaderLog(const ReaderLog&) = delete;
  ReaderLog& operator=(const ReaderLog&) = delete;

  std::vector<std::string> lines;
};

}  // namespace embedded
