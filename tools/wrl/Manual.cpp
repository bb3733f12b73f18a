// What the table of subcommands says, between a few paragraphs that hold for all of them. A group of options that
// several subcommands share is told once, in a section of its own.

#include "tools/wrl/Manual.h"

#include <algorithm>
#include <string_view>

#include "tools/wrl/Tool.h"

namespace wrl {

namespace {

constexpr std::string_view kOwnGroup = "Options";

constexpr std::string_view kInputs =
    "A file is handed to the module exactly as it is named; \\- is standard input.\n"
    "Standard output carries the result and nothing else; messages of the module and its host go to standard error,\n"
    "and so does progress, on a terminal only.\n"
    ".PP\n"
    "Every command takes \\fB\\-h\\fR, \\fB\\-\\-help\\fR, which shows its options with examples,\n"
    "and \\fB\\-\\-version\\fR.\n";

constexpr std::string_view kExitStatus =
    ".TP\n0\nThe result is out.\n"
    ".TP\n1\nAn input could not be loaded, or an output could not be written whole.\n"
    ".TP\n2\nThe command line asks for nothing that exists.\n";

constexpr std::string_view kEnvironment =
    ".TP\n.B WRL_MODULE\nThe module file to open, instead of the one that stands beside the host's library.\n";

// Text in which roff finds nothing of its own: no escapes, no requests, and hyphens that can be copied.
std::string plain(std::string_view text) {
  std::string result;
  if (text.starts_with('.') || text.starts_with('\'')) result += "\\&";
  for (const char letter : text) {
    if (letter == '\\') {
      result += "\\e";
    } else if (letter == '-') {
      result += "\\-";
    } else {
      result += letter;
    }
  }
  return result;
}

std::string positionalText(const ArgumentUsage& argument) {
  std::string text = " \\fI" + plain(argument.longName) + "\\fR";
  if (argument.mayRepeat) text += "...";
  return text;
}

void writeOption(std::ostream& out, const ArgumentUsage& option) {
  out << ".TP\n";
  if (!option.shortName.empty()) out << "\\fB\\-" << plain(option.shortName) << "\\fR";
  if (!option.shortName.empty() && !option.longName.empty()) out << ", ";
  if (!option.longName.empty()) out << "\\fB\\-\\-" << plain(option.longName) << "\\fR";
  if (!option.valueName.empty()) out << " \\fI" << plain(option.valueName) << "\\fR";
  out << '\n' << plain(option.description) << ".\n";
}

bool isOwn(const ArgumentUsage& option) { return option.group == kOwnGroup; }

bool isEverywhere(const ArgumentUsage& option) { return option.longName == "help" || option.longName == "version"; }

void writeCommand(std::ostream& out, const CommandUsage& command) {
  out << ".SS \"wrl " << plain(command.name) << "\"\n\\fBwrl " << plain(command.name) << "\\fR";
  if (!command.options.empty()) out << " [\\fIoptions\\fR]";
  for (const ArgumentUsage& argument : command.positionals) out << positionalText(argument);
  out << "\n.PP\n" << plain(command.description) << '\n';
  for (const ArgumentUsage& argument : command.positionals) {
    out << ".TP\n\\fI" << plain(argument.longName) << "\\fR\n" << plain(argument.description) << ".\n";
  }
  for (const ArgumentUsage& option : command.options) {
    if (isOwn(option) && !isEverywhere(option)) writeOption(out, option);
  }
  for (const CommandExample& example : command.examples) {
    out << ".PP\n.EX\n    " << plain(example.call) << "\n.EE\n    " << plain(example.effect) << ".\n";
  }
}

// The options outside each subcommand's own group, by group, each once, with the subcommands that have them.
void writeSharedGroups(std::ostream& out, std::span<const CommandUsage> commands) {
  std::vector<std::string> done;
  for (const CommandUsage& first : commands) {
    for (const ArgumentUsage& option : first.options) {
      if (isOwn(option) || std::find(done.begin(), done.end(), option.group) != done.end()) continue;
      done.push_back(option.group);
      std::string heading = option.group;
      std::transform(heading.begin(), heading.end(), heading.begin(),
                     [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
      out << ".SH \"" << plain(heading) << "\"\nOptions of several commands.\n";
      std::vector<std::string> named;
      for (const CommandUsage& command : commands) {
        for (const ArgumentUsage& shared : command.options) {
          if (shared.group != option.group) continue;
          if (std::find(named.begin(), named.end(), shared.longName) != named.end()) continue;
          named.push_back(shared.longName);
          writeOption(out, shared);
        }
      }
    }
  }
}

}  // namespace

void writeManual(std::ostream& out, std::span<const CommandUsage> commands) {
  out << ".TH WRL 1 \"\" \"" << toolVersion() << "\" \"User Commands\"\n"
      << ".SH NAME\nwrl \\- inspect, check and convert VRML97 worlds\n"
      << ".SH SYNOPSIS\n\\fBwrl\\fR \\fIcommand\\fR [\\fIoptions\\fR] [\\fIfile\\fR...]\n"
      << ".SH DESCRIPTION\n"
      << kToolDescription << '\n'
      << kInputs << ".SH COMMANDS\n";
  for (const CommandUsage& command : commands) writeCommand(out, command);
  writeSharedGroups(out, commands);
  out << ".SH \"EXIT STATUS\"\n" << kExitStatus << ".SH ENVIRONMENT\n" << kEnvironment;
}

}  // namespace wrl
