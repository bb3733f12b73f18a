#pragma once

// What a subcommand is. Each has one source file of its own, which defines one make...Command function; it is listed in
// the table of CommandTable.cpp, and nowhere else.

#include <CLI/App.hpp>
#include <memory>
#include <span>

namespace wrl {

/// The exit status of the process.
enum class ExitStatus : int {
  done = 0,    // the result is out
  failed = 1,  // an input could not be loaded, or an output could not be written whole
  usage = 2,   // the command line asks for nothing that exists
};

/// A call that shows what a subcommand is good for.
struct CommandExample {
  const char* call;    // the whole line, "wrl info garden.wrl"
  const char* effect;  // what it does, a phrase without a full stop
};

/// One subcommand: its options, and what it does with them.
class Command {
 public:
  Command() = default;
  virtual ~Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

  /// Declares the arguments. What they are parsed into lives in this object.
  virtual void addOptions(CLI::App& app) = 0;

  /// For the help and the manual, simplest first.
  [[nodiscard]] virtual std::span<const CommandExample> examples() const { return {}; }

  /// Does the work after the arguments have been parsed.
  [[nodiscard]] virtual ExitStatus run() = 0;
};

/// A line of the table of subcommands.
struct CommandEntry {
  const char* name;
  const char* description;  // one sentence for the help
  std::unique_ptr<Command> (*make)();
};

/// All subcommands, in the order of the help.
[[nodiscard]] std::span<const CommandEntry> commandTable();

}  // namespace wrl
