// CLI11 opens brackets ("[a,b]" is two) wherever several texts may stand, and its conversion to texts takes "{}" for
// none; file names may look like that. So a mark behind such a word hides its brackets from the parser, and the raw
// results are taken, less the mark.

#include "tools/wrl/Arguments.h"

#include <string_view>

namespace wrl {

namespace {

constexpr char kMark = '\x1f';

bool needsMark(std::string_view word) {
  return (word.starts_with('[') && word.ends_with(']')) || word.ends_with(kMark);
}

std::string unprotected(std::string word) {
  if (word.ends_with(kMark)) word.pop_back();
  return word;
}

CLI::Option* addTexts(CLI::App& app, const std::string& name, std::vector<std::string>& values,
                      const std::string& description) {
  const CLI::callback_t take = [&values](const CLI::results_t& results) {
    values.clear();
    for (const std::string& result : results) values.push_back(unprotected(result));
    return true;
  };
  return app.add_option(name, take, description);
}

CLI::Option* addText(CLI::App& app, const std::string& name, std::string& value, const std::string& description) {
  const CLI::callback_t take = [&value](const CLI::results_t& results) {
    value = unprotected(results.front());
    return true;
  };
  return app.add_option(name, take, description);
}

}  // namespace

std::vector<std::string> protectWords(int count, const char* const* words) {
  std::vector<std::string> result(words, words + count);
  for (std::string& word : result) {
    if (needsMark(word)) word.push_back(kMark);
  }
  return result;
}

CLI::Option* addPath(CLI::App& app, const std::string& name, std::string& path, const std::string& description) {
  return addText(app, name, path, description)->type_name("");
}

void addFile(CLI::App& app, std::string& file) {
  addPath(app, "FILE", file, "The file to read; - is standard input")->required();
}

void addFiles(CLI::App& app, std::vector<std::string>& files) {
  addTexts(app, "FILE", files, "The files to read, and folders to look for worlds in; - is standard input")
      ->type_name("")
      ->expected(1, CLI::detail::expected_max_vector_size)
      ->allow_extra_args()
      ->required();
}

void addMore(CLI::App& app, const std::string& name, std::vector<std::string>& paths, const std::string& description) {
  addTexts(app, name, paths, description)
      ->type_name("")
      ->expected(0, CLI::detail::expected_max_vector_size)
      ->allow_extra_args();
}

void addOutput(CLI::App& app, std::string& path) {
  addText(app, "-o,--output", path, "Write to this file instead of standard output")->type_name("OUT");
}

CLI::Option* addRepeatable(CLI::App& app, const std::string& name, std::vector<std::string>& values,
                           const std::string& description) {
  return addTexts(app, name, values, description)->take_all()->allow_extra_args(false);
}

}  // namespace wrl
