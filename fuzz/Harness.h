#pragma once

// What the fuzz targets share. A target is a file with one function, `LLVMFuzzerTestOneInput`, which libFuzzer calls
// with one input after the other; a target ends the process (`fail`, an assertion, a sanitizer) when it has found
// something.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The function of a target: returns 0, and leaves nothing behind that could change what the next input does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// The input as text, which ends with the input.
[[nodiscard]] inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// A folder of this process, in memory where the system has a place for it; removed when the process ends well. The
/// first call also sends standard output to nowhere: what the scanner echoes is of no interest.
[[nodiscard]] const std::string& scratchFolder();

/// Writes a file into that folder, folders above it included, and returns its path. The file of the same name from
/// before is gone.
std::string writeScratch(const std::string& name, std::string_view content);

/// The content of a file; "" when there is none.
[[nodiscard]] std::string contentOf(const std::string& path);

/// Ends the process: says on standard error what went against expectation, and shows two texts that tell it.
[[noreturn]] void fail(const char* what, std::string_view first = {}, std::string_view second = {});

}  // namespace fuzz
