#pragma once

// The subcommands and their arguments as data, for what is written about them: the manual page and the scripts that
// complete arguments in a shell.

#include <span>
#include <string>
#include <vector>

#include "tools/wrl/Command.h"

namespace wrl {

/// What a value is, as far as a shell can complete it.
enum class ValueKind {
  none,    // a flag: no value
  text,    // nothing that could be guessed
  file,    // a path of a file or folder
  folder,  // a path of a folder
  choice,  // one of a few words
};

/// One option or positional argument.
struct ArgumentUsage {
  std::string shortName;             // "o", "" without one
  std::string longName;              // "output"; of a positional argument its name, "FILE"
  std::string valueName;             // "OUT", "" for flags and positional arguments
  std::string description;           // a phrase without a full stop
  std::string group;                 // the heading it stands under in the help
  bool isRequired = false;           // it must be given
  bool mayRepeat = false;            // it may be given again
  ValueKind kind = ValueKind::none;  // of its value
  std::vector<std::string> choices;  // the words, for a choice
};

/// One subcommand.
struct CommandUsage {
  std::string name;
  std::string description;                 // one sentence
  std::vector<ArgumentUsage> positionals;  // in order
  std::vector<ArgumentUsage> options;      // in the order of the help
  std::span<const CommandExample> examples;
};

/// All subcommands, in the order of the help. The examples hold to the end of the process.
[[nodiscard]] std::vector<CommandUsage> describeCommands();

}  // namespace wrl
