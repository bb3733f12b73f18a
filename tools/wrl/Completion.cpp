// Each shell gets its own idiom: bash a function that looks at the words so far, zsh the option texts that _arguments
// reads, fish one line an option.

#include "tools/wrl/Completion.h"

#include <string_view>

#include "tools/wrl/Tool.h"

namespace wrl {

namespace {

// The text in single quotes. bash and zsh close the quotes around one that is in it, fish takes a backslash.
std::string quoted(std::string_view text, std::string_view innerQuote) {
  std::string result = "'";
  for (const char letter : text) {
    if (letter == '\'') {
      result += innerQuote;
    } else {
      result += letter;
    }
  }
  return result + '\'';
}

std::string inPosixQuotes(std::string_view text) { return quoted(text, "'\\''"); }
std::string inFishQuotes(std::string_view text) { return quoted(text, "\\'"); }

// Every spelling of an option, with a blank between two.
std::string spellings(const ArgumentUsage& option) {
  std::string text;
  if (!option.shortName.empty()) text += '-' + option.shortName;
  if (!option.shortName.empty() && !option.longName.empty()) text += ' ';
  if (!option.longName.empty()) text += "--" + option.longName;
  return text;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::string commandNames(std::span<const CommandUsage> commands, std::string_view between) {
  std::string names;
  for (const CommandUsage& command : commands) names.append(names.empty() ? "" : between).append(command.name);
  return names;
}

// bash: the statement that completes a value of that kind.
std::string bashValue(const ArgumentUsage& argument) {
  switch (argument.kind) {
    case ValueKind::none:
      return ":";
    case ValueKind::text:
      return "compopt +o default";
    case ValueKind::file:
      return ":";  // what bash does by itself
    case ValueKind::folder:
      return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$current\")";
    case ValueKind::choice:
      return "mapfile -t COMPREPLY < <(compgen -W '" + joined(argument.choices) + "' -- \"$current\")";
  }
  return ":";
}

void writeBashValues(std::ostream& out, const CommandUsage& command) {
  for (const ArgumentUsage& option : command.options) {
    if (option.kind == ValueKind::none) continue;
    for (const std::string& name : {option.shortName.empty() ? "" : '-' + option.shortName,
                                    option.longName.empty() ? "" : "--" + option.longName}) {
      if (name.empty()) continue;
      out << "    '" << command.name << ' ' << name << "') " << bashValue(option) << "; return ;;\n";
    }
  }
}

void writeBashWords(std::ostream& out, const CommandUsage& command) {
  std::string options;
  for (const ArgumentUsage& option : command.options) options += (options.empty() ? "" : " ") + spellings(option);
  out << "    " << command.name << ") options='" << options << "'";
  for (const ArgumentUsage& argument : command.positionals) {
    if (argument.kind == ValueKind::choice) out << "; words='" << joined(argument.choices) << '\'';
  }
  out << " ;;\n";
}

// zsh: what _arguments offers for the value, which stands behind the second colon of an option's text.
std::string zshAction(const ArgumentUsage& argument) {
  switch (argument.kind) {
    case ValueKind::none:
      return "";
    case ValueKind::text:
      return " ";
    case ValueKind::file:
      return "_files";
    case ValueKind::folder:
      return "_files -/";
    case ValueKind::choice:
      return "(" + joined(argument.choices) + ")";
  }
  return "";
}

// _arguments takes brackets and colons for the borders of its pieces, unless a backslash stands before them.
std::string zshText(std::string_view text) {
  std::string result;
  for (const char letter : text) {
    if (letter == '[' || letter == ']' || letter == ':' || letter == '\\') result += '\\';
    result += letter;
  }
  return result;
}

void writeZshOption(std::ostream& out, const ArgumentUsage& option) {
  for (const std::string& name : {option.shortName.empty() ? "" : '-' + option.shortName,
                                  option.longName.empty() ? "" : "--" + option.longName}) {
    if (name.empty()) continue;
    std::string text = (option.mayRepeat ? "*" : "") + name + '[' + zshText(option.description) + ']';
    if (option.kind != ValueKind::none) text += ':' + zshText(option.valueName) + ':' + zshAction(option);
    out << " \\\n        " << inPosixQuotes(text);
  }
}

void writeZshCommand(std::ostream& out, const CommandUsage& command) {
  out << "    " << command.name << ")\n      _arguments -s";
  for (const ArgumentUsage& option : command.options) writeZshOption(out, option);
  for (const ArgumentUsage& argument : command.positionals) {
    const std::string text = (argument.mayRepeat ? "*:" : ":") + zshText(argument.longName) + ':' + zshAction(argument);
    out << " \\\n        " << inPosixQuotes(text);
  }
  out << " ;;\n";
}

void writeFishOption(std::ostream& out, const std::string& condition, const ArgumentUsage& option) {
  out << "complete -c wrl -n " << condition;
  if (!option.shortName.empty()) out << " -s " << option.shortName;
  if (!option.longName.empty()) out << " -l " << option.longName;
  if (option.kind != ValueKind::none) out << " -r";
  if (option.kind != ValueKind::none && option.kind != ValueKind::file) out << " -f";
  if (option.kind == ValueKind::file) out << " -F";
  if (option.kind == ValueKind::folder) out << " -a '(__fish_complete_directories (commandline -ct))'";
  if (option.kind == ValueKind::choice) out << " -a '" << joined(option.choices) << '\'';
  out << " -d " << inFishQuotes(option.description) << '\n';
}

}  // namespace

void writeBashCompletion(std::ostream& out, std::span<const CommandUsage> commands) {
  out << "# bash completion for " << toolVersion() << "\n"
      << "_wrl() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} command= options='-h --help --version' words= i\n"
         "  COMPREPLY=()\n"
         "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
         "    case ${COMP_WORDS[i]} in\n"
         "      "
      << commandNames(commands, "|")
      << ") command=${COMP_WORDS[i]}; break ;;\n"
         "    esac\n"
         "  done\n"
         "  case \"$command ${COMP_WORDS[COMP_CWORD - 1]}\" in\n";
  for (const CommandUsage& command : commands) writeBashValues(out, command);
  out << "  esac\n"
         "  case $command in\n"
         "    '') words='"
      << commandNames(commands, " ") << "'; compopt +o default ;;\n";
  for (const CommandUsage& command : commands) writeBashWords(out, command);
  out << "  esac\n"
         "  [[ $current == -* ]] && words=$options\n"
         "  mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
         "}\n"
         "complete -o default -F _wrl wrl\n";
}

void writeZshCompletion(std::ostream& out, std::span<const CommandUsage> commands) {
  out << "#compdef wrl\n# zsh completion for " << toolVersion()
      << "\n"
         "_wrl() {\n"
         "  local context state line\n"
         "  local -a commands=(\n";
  for (const CommandUsage& command : commands) {
    out << "    " << inPosixQuotes(command.name + ':' + command.description) << '\n';
  }
  out << "  )\n"
         "  _arguments -C '(- *)'{-h,--help}'[Print this help message and exit]' \\\n"
         "    '(- *)--version[Display program version information and exit]' '1:command:->command' "
         "'*::argument:->argument'\n"
         "  case $state in\n"
         "  command) _describe command commands ;;\n"
         "  argument)\n"
         "    case $line[1] in\n";
  for (const CommandUsage& command : commands) writeZshCommand(out, command);
  out << "    esac ;;\n"
         "  esac\n"
         "}\n"
         "if [[ $funcstack[1] == _wrl ]]; then _wrl \"$@\"; else compdef _wrl wrl; fi\n";
}

void writeFishCompletion(std::ostream& out, std::span<const CommandUsage> commands) {
  out << "# fish completion for " << toolVersion()
      << "\n"
         "complete -c wrl -n __fish_use_subcommand -s h -l help -f -d 'Print this help message and exit'\n"
         "complete -c wrl -n __fish_use_subcommand -l version -f -d 'Display program version information and exit'\n";
  for (const CommandUsage& command : commands) {
    out << "complete -c wrl -n __fish_use_subcommand -f -a " << command.name << " -d "
        << inFishQuotes(command.description) << '\n';
    const std::string condition = "'__fish_seen_subcommand_from " + command.name + '\'';
    for (const ArgumentUsage& option : command.options) writeFishOption(out, condition, option);
    for (const ArgumentUsage& argument : command.positionals) {
      if (argument.kind != ValueKind::choice) continue;
      out << "complete -c wrl -n " << condition << " -f -a '" << joined(argument.choices) << "'\n";
    }
  }
}

}  // namespace wrl
