#pragma once

// A private folder for what is needed only as long as a command runs.

#include <string>

namespace wrl {

/// Makes a folder that nobody else uses and removes it, with everything in it, at its end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The folder, without a slash at its end; "" when none could be made.
  [[nodiscard]] const std::string& path() const { return m_path; }

 private:
  std::string m_path;
};

}  // namespace wrl
