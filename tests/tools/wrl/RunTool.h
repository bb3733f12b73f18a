#pragma once

// Runs the command line inside the test, with its three standard descriptors on files of the test's.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "tests/TempFolder.h"
#include "tools/wrl/Tool.h"

namespace wrl {

/// Puts a file in the place of one standard descriptor for as long as it lives.
class Redirected {
 public:
  Redirected(int descriptor, const std::string& path, int mode = O_WRONLY | O_CREAT | O_TRUNC)
      : m_descriptor(descriptor), m_saved(::fcntl(descriptor, F_DUPFD_CLOEXEC, 3)) {
    const int file = ::open(path.c_str(), mode | O_CLOEXEC, 0600);
    ::dup2(file, descriptor);
    ::close(file);
  }
  ~Redirected() {
    ::dup2(m_saved, m_descriptor);
    ::close(m_saved);
  }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;

 private:
  int m_descriptor;
  int m_saved;
};

struct ToolResult {
  ExitStatus status;
  std::string out;
  std::string err;
};

/// Runs `wrl` with these arguments. `standardOutput` names the file for descriptor 1 when it is not to be a fresh one.
inline ToolResult runToolWith(std::vector<std::string> arguments, const std::string& input = "",
                              const std::string& standardOutput = "") {
  const fixtures::TempFolder folder;
  std::vector<const char*> words = {"wrl"};
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  ToolResult result{};
  {
    std::fflush(stdout);
    const Redirected in(STDIN_FILENO, folder.write("in", input), O_RDONLY);
    const Redirected out(STDOUT_FILENO, standardOutput.empty() ? folder.path("out") : standardOutput);
    const Redirected err(STDERR_FILENO, folder.path("err"));
    result.status = runTool(static_cast<int>(words.size()), words.data());
    std::fflush(stdout);
  }
  result.out = folder.read("out");
  result.err = folder.read("err");
  return result;
}

}  // namespace wrl
