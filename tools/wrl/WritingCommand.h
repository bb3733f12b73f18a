#pragma once

// What the subcommands that write a file for a file they read have in common: one call for one file, `IN OUT`, and one
// for many, `--to EXT IN...`, in which no output takes the place of another or of an input.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tools/wrl/Command.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/Listing.h"

namespace wrl {

/// A subcommand that reads a file and writes another. A subclass declares the arguments with `addWriting()`, and says
/// which files it takes and how one of them is done.
class WritingCommand : public Command {
 public:
  /// One file, or with `--to` every file that is named and every world in a folder that is. Each of many is reported on
  /// standard output, as a line of text or of JSON; one that fails does not stop the rest.
  [[nodiscard]] ExitStatus run() final;

 protected:
  /// How the help calls the two files.
  struct Names {
    const char* input;
    std::string inputText;
    const char* output;
    std::string outputText;
  };

  /// Declares both files, `--to` and the options of a list.
  void addWriting(CLI::App& app, const Names& names);

  /// Why that file, by its name alone, is none to read or to write; one line without its end, "" when it is.
  [[nodiscard]] virtual std::string inputError(const std::string& file) const = 0;
  [[nodiscard]] virtual std::string outputError(const std::string& file) const = 0;

  /// Reads the one and writes the other, either of which may be "-"; failures are told on standard error.
  [[nodiscard]] virtual ExitStatus write(const std::string& input, const std::string& output) = 0;

  /// The name whose extension says what is written: the output's own, or for standard output one with the extension of
  /// `--to`; without that, "".
  [[nodiscard]] std::string nameForFormat(const std::string& output) const;

  /// Whether `--to` is given.
  [[nodiscard]] bool writesMany() const { return m_extension.has_value(); }

  HostOptions m_options;

 private:
  ExitStatus writeOne();
  ExitStatus writeAll(const std::vector<std::string>& arguments);
  [[nodiscard]] std::string extensionError() const;
  [[nodiscard]] bool writeBeside(const std::string& file, const std::string& target);
  std::string takePlace(const std::string& file, const std::string& target);
  void report(std::ostream& out, const std::string& file, const std::string& target) const;

  std::string m_input;
  std::string m_output;
  const char* m_outputName = "";
  std::vector<std::string> m_more;
  std::optional<std::string> m_extension;
  ListingOptions m_listing;
  std::map<std::string, std::string> m_sources;  // what is to be read, by where it lies in the end
  std::map<std::string, std::string> m_targets;  // for whom a place is taken
};

}  // namespace wrl
