// Prepares the process and runs the command line. A closed pipe is to be an error that a write reports, not a signal.

#include <csignal>

#include "tools/wrl/Descriptors.h"
#include "tools/wrl/Tool.h"

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  wrl::openMissingStandardDescriptors();
  return static_cast<int>(wrl::runTool(argc, argv));
}
