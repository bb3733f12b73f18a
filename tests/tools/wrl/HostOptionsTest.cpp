// The options of the host and the shared arguments arrive as they were typed.

#include "tools/wrl/HostOptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <utility>

#include "tools/wrl/Arguments.h"

namespace wrl {
namespace {

struct Parsed {
  bool accepted = false;
  HostOptions host;
  std::vector<std::string> files;
  std::string output;
};

Parsed parse(const std::vector<std::string>& arguments, TextureDefault textures = TextureDefault::ignored) {
  Parsed parsed;
  CLI::App app;
  addFiles(app, parsed.files);
  addOutput(app, parsed.output);
  addHostOptions(app, parsed.host, textures);
  std::vector<const char*> words;
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  std::vector<std::string> reversed = protectWords(static_cast<int>(words.size()), words.data());
  std::reverse(reversed.begin(), reversed.end());
  try {
    app.parse(std::move(reversed));
    parsed.accepted = true;
  } catch (const CLI::ParseError&) {
  }
  return parsed;
}

TEST(HostOptions, are_those_of_a_fresh_host_without_arguments) {
  const Parsed parsed = parse({"a.wrl"});
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.host.refinement, 1.0F);
  EXPECT_FALSE(parsed.host.merge);
  EXPECT_TRUE(parsed.host.searchFolders.empty());
  EXPECT_FALSE(parsed.host.textures);
  EXPECT_TRUE(parsed.host.showStatistics);
  EXPECT_TRUE(parsed.host.vetoes.empty());
  EXPECT_FALSE(parsed.host.trace);
  EXPECT_EQ(parsed.output, "");
}

TEST(HostOptions, are_taken_over_in_their_order) {
  const Parsed parsed =
      parse({"--refinement", "2.5", "--merge", "--search", "x", "--search", "y z", "--textures", "--no-stats", "--veto",
             "onParse:Group", "--veto", "onCreate:sglGeode", "--trace", "-o", "out.json", "a.wrl"});
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.host.refinement, 2.5F);
  EXPECT_TRUE(parsed.host.merge);
  EXPECT_EQ(parsed.host.searchFolders, (std::vector<std::string>{"x", "y z"}));
  EXPECT_TRUE(parsed.host.textures);
  EXPECT_FALSE(parsed.host.showStatistics);
  EXPECT_EQ(parsed.host.vetoes, (std::vector<std::string>{"onParse:Group", "onCreate:sglGeode"}));
  EXPECT_TRUE(parsed.host.trace);
  EXPECT_EQ(parsed.output, "out.json");
  EXPECT_EQ(parsed.files, std::vector<std::string>{"a.wrl"});
}

TEST(HostOptions, read_textures_by_the_commands_default_unless_told) {
  const struct {
    TextureDefault byDefault;
    std::vector<std::string> arguments;
    bool expected;
  } rows[] = {
      {TextureDefault::ignored, {}, false},
      {TextureDefault::ignored, {"--textures"}, true},
      {TextureDefault::ignored, {"--no-textures"}, false},
      {TextureDefault::read, {}, true},
      {TextureDefault::read, {"--textures"}, true},
      {TextureDefault::read, {"--no-textures"}, false},
      {TextureDefault::read, {"--no-textures", "--textures"}, true},
      {TextureDefault::read, {"--textures", "--no-textures"}, false},
  };
  for (const auto& row : rows) {
    std::vector<std::string> arguments = row.arguments;
    arguments.push_back("a.wrl");
    const Parsed parsed = parse(arguments, row.byDefault);
    EXPECT_TRUE(parsed.accepted);
    EXPECT_EQ(parsed.host.textures, row.expected) << testing::PrintToString(row.arguments);
  }
}

TEST(HostOptions, leave_the_file_behind_a_repeatable_option_alone) {
  const Parsed parsed = parse({"--veto", "x", "a.wrl", "--search", "d", "b.wrl"});
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.files, (std::vector<std::string>{"a.wrl", "b.wrl"}));
  EXPECT_EQ(parsed.host.vetoes, std::vector<std::string>{"x"});
}

TEST(HostOptions, take_odd_texts_as_they_stand) {
  const std::vector<std::string> names = {"[a,b].wrl", "[a,b]", "{}", "-",       "a b", "%s",
                                          "\"q\"",     "a=b",   "[]", "[x]\x1f", "\x1f"};
  EXPECT_EQ(parse(names).files, names);
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    EXPECT_EQ(parse({name}).files, std::vector<std::string>{name});
    EXPECT_EQ(parse({"a", "-o", name}).output, name);
    EXPECT_EQ(parse({"a", "--veto", name}).host.vetoes, std::vector<std::string>{name});
    EXPECT_EQ(parse({"a", "--search", name}).host.searchFolders, std::vector<std::string>{name});
  }
}

TEST(HostOptions, read_the_refinement_whole_and_without_a_locale) {
  const char* const refused[] = {"", "x", "1,5", "1.5x", " 1", "nan", "inf", "1e99", "0x10"};
  for (const char* text : refused) EXPECT_FALSE(parse({"a.wrl", "--refinement", text}).accepted) << text;
  // Wherever a comma locale is installed it must not matter.
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  const Parsed parsed = parse({"a.wrl", "--refinement", "0.25"});
  std::setlocale(LC_ALL, "C");
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.host.refinement, 0.25F);
}

TEST(HostOptions, ask_for_a_file) { EXPECT_FALSE(parse({}).accepted); }

TEST(HostOptions, take_an_output_once) { EXPECT_FALSE(parse({"a.wrl", "-o", "x", "-o", "y"}).accepted); }

}  // namespace
}  // namespace wrl
