#pragma once

// The three standard descriptors, and keeping them apart: standard output carries a command's result and nothing else,
// so whatever a library prints there while it works has to come out on standard error instead.

namespace wrl {

/// Opens each of the descriptors 0, 1 and 2 that the caller of the process left closed, so that no file opened later
/// takes its number. Reading then finds an empty file, writing a result fails, and messages vanish.
void openMissingStandardDescriptors();

/// While an object of this class lives, everything written to descriptor 1, through C's `stdout` too, goes to
/// descriptor 2, byte by byte as it was written, or nowhere where `isDropped`. Objects nest. No pipe stands in between,
/// so that no amount of text can block the writer.
class StandardOutputAside {
 public:
  explicit StandardOutputAside(bool isDropped = false);
  ~StandardOutputAside();
  StandardOutputAside(const StandardOutputAside&) = delete;
  StandardOutputAside& operator=(const StandardOutputAside&) = delete;

 private:
  int m_saved;  // what descriptor 1 was, -1 when it could not be put aside
};

}  // namespace wrl
