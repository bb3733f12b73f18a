#pragma once

// Keeps which files the process opens: the functions of the C library that open a file, and those that make a folder,
// are replaced for the whole process by ones that write their path down.

#include <string>
#include <vector>

namespace fuzz {

struct Opened {
  std::string path;
  bool forWriting = false;
  bool isRegular = false;  // what was opened is a regular file; a file that could not be opened is not kept
};

/// Forgets what was kept and keeps what follows.
void startOpenWatch();

/// Ends the keeping. The files and folders, in order.
[[nodiscard]] std::vector<Opened> endOpenWatch();

}  // namespace fuzz
