#pragma once

// What stands for standard input on the command line, and how it is read like a file.

#include <optional>
#include <string>

namespace wrl {

/// True for the argument that means standard input, "-".
[[nodiscard]] bool isStandardInput(const std::string& file);

/// An argument as a path that can be opened, or the reason why there is none.
struct InputPath {
  std::string path;
  std::string error;  // "" when all is well, otherwise one line without its end, "NAME: error: REASON"
};

/// The path under which the reader opens an argument: the argument exactly as given, or for "-" a path of standard
/// input. Standard input can be opened there any number of times, from the same byte each time: unless it is a regular
/// file at its beginning, what is left of it is first copied into a temporary file.
[[nodiscard]] InputPath inputPath(const std::string& file);

/// The same for a command that can do nothing without it: nothing, with the reason on standard error.
[[nodiscard]] std::optional<std::string> inputPathOrReport(const std::string& file);

}  // namespace wrl
