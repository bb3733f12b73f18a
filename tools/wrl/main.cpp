// Prepares the process and runs the command line. A closed pipe and a limit on the size
// of files are to be errors that a write reports, not signals.

#include <csignal>

#include "tools/wrl/Descriptors.h"
#include "tools/wrl/Tool.h"

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  wrl::openMissingStandardDescriptors();
  return static_cast<int>(wrl::runTool(argc, argv));
}
