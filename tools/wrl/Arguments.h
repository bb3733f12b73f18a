#pragma once

// The arguments that several subcommands share, so that they look and act alike everywhere. All texts are taken over
// exactly as they stand on the command line.

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace wrl {

/// The words of a command line, in which the parser finds nothing to take apart. Only words that passed through here
/// are to be parsed; the functions below give them back as they were.
[[nodiscard]] std::vector<std::string> protectWords(int count, const char* const* words);

/// Declares the one FILE of a subcommand, required; "-" is standard input.
void addFile(CLI::App& app, std::string& file);

/// Declares a path under another name.
CLI::Option* addPath(CLI::App& app, const std::string& name, std::string& path, const std::string& description);

/// Declares one or more FILEs, folders among them.
void addFiles(CLI::App& app, std::vector<std::string>& files);

/// Declares further paths, any number of them, behind the positional arguments that have a name each.
void addMore(CLI::App& app, const std::string& name, std::vector<std::string>& paths, const std::string& description);

/// Declares `-o OUT`; without it `path` stays empty, which means standard output.
void addOutput(CLI::App& app, std::string& path);

/// Declares an option that takes one text and may be given again.
CLI::Option* addRepeatable(CLI::App& app, const std::string& name, std::vector<std::string>& values,
                           const std::string& description);

}  // namespace wrl
