// A world's load and its assembly take the host's settings; a stage document is what it is.

#include "tools/wrl/StageInput.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

#include "embedded/AssemblyBuilder.h"
#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "embedded/UpAxis.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/SceneLoad.h"
#include "tools/wrl/StatisticsFilter.h"

namespace wrl {

namespace {

using embedded::UpAxis;

// A file's name without its extension.
std::string stemOf(const std::string& file) {
  const std::string_view name = embedded::fileNameOf(file);
  return std::string(name.substr(0, name.rfind('.')));
}

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::unique_ptr<CVekStager> readStandardInput(embedded::StageError& error) {
  const InputPath input = inputPath("-");
  if (!input.error.empty()) {
    error.text = input.error;
    return nullptr;
  }
  return embedded::readStageDocument(contentOf(input.path), "", error);
}

std::vector<std::string> withoutStatistics(const std::vector<embedded::Message>& messages) {
  std::vector<std::string> texts;
  StatisticsFilter filter;
  for (const embedded::Message& message : messages) {
    if (!filter.isStatistics(message.text)) texts.push_back(message.text);
  }
  return texts;
}

std::string describe(const std::string& file, const embedded::StageError& error) {
  const std::string line = error.line > 0 ? ":" + std::to_string(error.line) : "";
  return file + line + ": error: " + error.text;
}

}  // namespace

LoadedStage readStage(const std::string& file) {
  embedded::StageError error;
  LoadedStage stage;
  stage.stager = isStandardInput(file) ? readStandardInput(error) : embedded::readStageFile(file, error);
  stage.failed = stage.stager == nullptr;
  if (stage.failed) std::cerr << describe(file, error) << '\n';
  return stage;
}

LoadedStage readStageByOptions(const std::string& file, const HostOptions& /*options*/) { return readStage(file); }

LoadedStage readWorld(const std::string& file, const HostOptions& options) {
  const std::optional<LoadedScene> loaded = loadScene(file, options);
  if (!loaded) return {nullptr, true};
  const std::string root = isStandardInput(file) ? "" : stemOf(file);
  std::unique_ptr<CVekAssyRoot> assembly = embedded::turnedUpright(
      embedded::buildAssembly(loaded->database->GetSglRoot(), root), UpAxis::Y, options.up.value_or(UpAxis::Y));
  return {embedded::makeStager(std::move(assembly)), loaded->failed, nullptr, withoutStatistics(loaded->messages)};
}

LoadedStage loadStage(const std::string& file, const HostOptions& options) {
  const ReaderFormat* format = readerOf(file);
  return format != nullptr ? format->read(file, options) : readWorld(file, options);
}

}  // namespace wrl
