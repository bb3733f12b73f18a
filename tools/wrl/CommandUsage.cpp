// Each subcommand declares its arguments into a parser that nobody uses, and that parser is asked for them.

#include "tools/wrl/CommandUsage.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "tools/wrl/Tool.h"

namespace wrl {

namespace {

// What the names of values stand for; one that is not listed is a text.
struct ValueName {
  std::string_view name;
  ValueKind kind;
  std::string_view choices;  // with a blank between two
};

constexpr std::array kValueNames = {
    ValueName{"DIR", ValueKind::folder, ""},      ValueName{"OUT", ValueKind::file, ""},
    ValueName{"FILE", ValueKind::file, ""},       ValueName{"IN", ValueKind::file, ""},
    ValueName{"STAGE.json", ValueKind::file, ""}, ValueName{"OUT.wrl", ValueKind::file, ""},
    ValueName{"OUT.png", ValueKind::file, ""},    ValueName{"MORE", ValueKind::file, ""},
    ValueName{"AXIS", ValueKind::choice, "y z"},  ValueName{"SHELL", ValueKind::choice, "bash zsh fish"},
};

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

void findKind(ArgumentUsage& argument, std::string_view name) {
  const auto* const row =
      std::find_if(kValueNames.begin(), kValueNames.end(), [name](const ValueName& v) { return v.name == name; });
  argument.kind = row == kValueNames.end() ? ValueKind::text : row->kind;
  if (row != kValueNames.end()) argument.choices = wordsOf(row->choices);
}

ArgumentUsage describe(const CLI::Option& option) {
  ArgumentUsage argument;
  const bool isPositional = option.get_positional();
  if (!option.get_snames().empty()) argument.shortName = option.get_snames().front();
  argument.longName = isPositional                  ? option.get_name(true)
                      : option.get_lnames().empty() ? ""
                                                    : option.get_lnames().front();
  argument.description = option.get_description();
  argument.group = option.get_group();
  argument.isRequired = option.get_required();
  argument.mayRepeat =
      option.get_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  const bool takesValue = option.get_items_expected_max() > 0;
  if (takesValue && !isPositional) argument.valueName = option.get_type_name();
  if (takesValue) findKind(argument, isPositional ? argument.longName : argument.valueName);
  return argument;
}

CommandUsage describe(const CommandEntry& entry) {
  CommandUsage usage;
  usage.name = entry.name;
  usage.description = entry.description;
  CLI::App app;
  app.set_version_flag("--version", toolVersion());
  const std::unique_ptr<Command> command = entry.make();
  command->addOptions(app);
  usage.examples = command->examples();
  for (const CLI::Option* option : app.get_options()) {
    (option->get_positional() ? usage.positionals : usage.options).push_back(describe(*option));
  }
  return usage;
}

}  // namespace

std::vector<CommandUsage> describeCommands() {
  std::vector<CommandUsage> commands;
  for (const CommandEntry& entry : commandTable()) commands.push_back(describe(entry));
  return commands;
}

}  // namespace wrl
