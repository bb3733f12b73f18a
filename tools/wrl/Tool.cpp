// One parser with a sub-parser for each line of the table. Help and version texts are results, and so go the way of
// every result: a full disk is noticed there too.

#include "tools/wrl/Tool.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "embedded/Gzip.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/Output.h"
#include "vrml/reader/Unpacker.h"

namespace wrl {

namespace {

struct ParsedCommand {
  CLI::App* app;
  std::unique_ptr<Command> command;
};

// The examples as the help shows them, calls and effects in two columns.
std::string exampleText(const Command& command) {
  std::size_t width = 0;
  for (const CommandExample& example : command.examples()) width = std::max(width, std::strlen(example.call));
  std::string text;
  for (const CommandExample& example : command.examples()) {
    text += text.empty() ? "Examples:\n  " : "\n  ";
    text.append(example.call).append(width + 2 - std::strlen(example.call), ' ').append(example.effect);
  }
  return text;
}

std::vector<ParsedCommand> addCommands(CLI::App& app) {
  std::vector<ParsedCommand> commands;
  for (const CommandEntry& entry : commandTable()) {
    CLI::App* const sub = app.add_subcommand(entry.name, entry.description);
    sub->set_version_flag("--version", toolVersion());
    commands.push_back({sub, entry.make()});
    commands.back().command->addOptions(*sub);
    sub->footer(exampleText(*commands.back().command));
  }
  return commands;
}

// A word that looks like options and is a file; "" when there is none.
std::string fileLikeOptions(std::span<const char* const> words) {
  for (const std::string word : words) {
    std::error_code ignored;
    if (word.size() > 1 && word.starts_with('-') && std::filesystem::exists(word, ignored)) return word;
  }
  return "";
}

// Ends a parse that did not come to a command: help, version, or wrong usage.
ExitStatus endParse(const CLI::App& app, const CLI::ParseError& reason, std::span<const char* const> words) {
  if (reason.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(reason, std::cerr, std::cerr);
    const std::string file = fileLikeOptions(words);
    if (!file.empty()) std::cerr << "The file " << file << " can be named ./" << file << ", or behind --\n";
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
  CLI::App app(kToolDescription, "wrl");
  app.set_version_flag("--version", toolVersion());
  app.require_subcommand(1);
  app.footer("wrl COMMAND --help shows a command's options, with examples.");
  const std::vector<ParsedCommand> commands = addCommands(app);
  std::vector<std::string> words = protectWords(std::max(argumentCount, 1) - 1, arguments + 1);
  std::reverse(words.begin(), words.end());  // the parser takes them from the back
  try {
    app.parse(std::move(words));
  } catch (const CLI::ParseError& reason) {
    return endParse(app, reason, {arguments, static_cast<std::size_t>(std::max(argumentCount, 0))});
  }
  return runParsed(commands);
}

}  // namespace

const char* toolVersion() { return "wrl " WRL_VERSION; }

ExitStatus runTool(int argumentCount, const char* const* arguments) {
  // The front end that is linked into this program reads what the module reads under this host.
  vrml::setUnpacker(embedded::unpackFile);
  try {
    return parseAndRun(argumentCount, arguments);
  } catch (const std::exception& reason) {
    // Running out of memory is what can come here.
    std::cerr << "wrl: error: " << reason.what() << '\n';
    return ExitStatus::failed;
  }
}

}  // namespace wrl
