#pragma once

// File operations of the host that failed. The module does not look at their answers, as the application would not; a
// program that wants to know what is missing from an output asks here.

#include <string>
#include <string_view>
#include <vector>

namespace embedded {

// One file or folder that could not be read or written.
struct FileError {
  std::string path;
  bool isWriting = false;
  std::string reason;
};

// Tells the log, if there is one.
void reportFileError(std::string_view path, bool isWriting, std::string_view reason);

// Gathers what is reported for as long as it lives. Objects of this kind must end in the reverse order of their
// beginning; the innermost one hears.
class FileErrorLog {
 public:
  FileErrorLog();
  FileErrorLog(const FileErrorLog&) = delete;
  FileErrorLog& operator=(const FileErrorLog&) = delete;
  ~FileErrorLog();

  // What has failed so far, in order.
  [[nodiscard]] const std::vector<FileError>& errors() const { return m_errors; }

 private:
  friend void reportFileError(std::string_view path, bool isWriting, std::string_view reason);

  std::vector<FileError> m_errors;
  FileErrorLog* m_previous;
};

}  // namespace embedded
