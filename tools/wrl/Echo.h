#pragma once

// Sends what the reading front end echoes, characters that no rule of the scanner matches, to standard error.

namespace wrl {

/// While an object of this class lives, the echo of the front end that is linked into this program goes to standard
/// error, byte by byte, in blocks, or nowhere where `isDropped`. One at a time.
class EchoToStandardError {
 public:
  explicit EchoToStandardError(bool isDropped = false);
  ~EchoToStandardError();
  EchoToStandardError(const EchoToStandardError&) = delete;
  EchoToStandardError& operator=(const EchoToStandardError&) = delete;
};

}  // namespace wrl
