// Both jobs work on the descriptors themselves, below C's and C++'s streams, since a module opened at run time shares
// the process's `stdout` with this program. C's buffer is flushed at both changes: what it holds belongs to the side on
// which it was written.

#include "tools/wrl/Descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace wrl {

namespace {

bool isOpen(int descriptor) { return ::fcntl(descriptor, F_GETFD) != -1; }

void flushStandardOutput() {
  // What cannot be delivered to standard error is lost by nature; it must not be taken for a failure of the result.
  if (std::fflush(stdout) != 0) std::clearerr(stdout);
}

}  // namespace

void openMissingStandardDescriptors() {
  // Descriptor 1 is opened for reading, so that writing a result to it fails and is reported. open() answers with the
  // lowest free number, so that going upwards fills exactly the gaps.
  constexpr int kModes[] = {O_RDONLY, O_RDONLY, O_WRONLY};
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    if (!isOpen(descriptor)) ::open("/dev/null", kModes[descriptor]);
  }
}

StandardOutputAside::StandardOutputAside(bool isDropped) {
  flushStandardOutput();
  m_saved = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (m_saved == -1) return;
  const int nowhere = isDropped ? ::open("/dev/null", O_WRONLY | O_CLOEXEC) : -1;
  ::dup2(nowhere == -1 ? STDERR_FILENO : nowhere, STDOUT_FILENO);
  if (nowhere != -1) ::close(nowhere);
}

StandardOutputAside::~StandardOutputAside() {
  flushStandardOutput();
  if (m_saved == -1) return;
  ::dup2(m_saved, STDOUT_FILENO);
  ::close(m_saved);
}

}  // namespace wrl
