// One parser with a sub-parser for each line of the table. Help and version texts are results, and so go the way of
// every result: a full disk is noticed there too.

#include "tools/wrl/Tool.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Output.h"

namespace wrl {

namespace {

constexpr const char* kVersion = "wrl " WRL_VERSION;

struct ParsedCommand {
  CLI::App* app;
  std::unique_ptr<Command> command;
};

std::vector<ParsedCommand> addCommands(CLI::App& app) {
  std::vector<ParsedCommand> commands;
  for (const CommandEntry& entry : commandTable()) {
    CLI::App* const sub = app.add_subcommand(entry.name, entry.description);
    sub->set_version_flag("--version", kVersion);
    commands.push_back({sub, entry.make()});
    commands.back().command->addOptions(*sub);
  }
  return commands;
}

// Ends a parse that did not come to a command: help, version, or wrong usage.
ExitStatus endParse(const CLI::App& app, const CLI::ParseError& reason) {
  if (reason.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(reason, std::cerr, std::cerr);
    return ExitStatus::usage;
  }
  Output output("");
  app.exit(reason, output.stream(), std::cerr);
  return output.finishOrReport() ? ExitStatus::done : ExitStatus::failed;
}

ExitStatus runParsed(const std::vector<ParsedCommand>& commands) {
  for (const ParsedCommand& entry : commands) {
    if (entry.app->parsed()) return entry.command->run();
  }
  return ExitStatus::usage;
}

ExitStatus parseAndRun(int argumentCount, const char* const* arguments) {
  CLI::App app("Reads VRML97 files and shows what a host application gets of them.", "wrl");
  app.set_version_flag("--version", kVersion);
  app.require_subcommand(1);
  const std::vector<ParsedCommand> commands = addCommands(app);
  std::vector<std::string> words = protectWords(std::max(argumentCount, 1) - 1, arguments + 1);
  std::reverse(words.begin(), words.end());  // the parser takes them from the back
  try {
    app.parse(std::move(words));
  } catch (const CLI::ParseError& reason) {
    return endParse(app, reason);
  }
  return runParsed(commands);
}

}  // namespace

ExitStatus runTool(int argumentCount, const char* const* arguments) {
  try {
    return parseAndRun(argumentCount, arguments);
  } catch (const std::exception& reason) {
    // Running out of memory is what can come here.
    std::cerr << "wrl: error: " << reason.what() << '\n';
    return ExitStatus::failed;
  }
}

}  // namespace wrl
