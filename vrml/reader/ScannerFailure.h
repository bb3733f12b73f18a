#pragma once

// The end of the process for what must never happen in the scanner. No content of a file leads here: the checks guard
// against running out of memory and against mistakes of our own.

#include <cstdint>

namespace vrml {

enum class ScannerFailure : std::uint8_t {
  noAction,      // a character class without a rule
  bufferEnd,     // scanning went past the end of its text
  pushBack,      // more texts put back than the limits allow
  createBuffer,  // no memory for a file's text
  scanBuffer,    // no memory for a text that is scanned for values
  scanBytes,     // no memory for a text that is put back
};

/// The failure's message, a static text.
[[nodiscard]] const char* failureText(ScannerFailure failure) noexcept;

/// Prints the failure's message and a line end on standard error and ends the process with status 2.
[[noreturn]] void failScanner(ScannerFailure failure) noexcept;

}  // namespace vrml
