// Formats are told apart by the extension; one that is added goes into loadStage().

#include "tools/wrl/StageInput.h"

#include <fstream>
#include <iostream>
#include <iterator>

#include "embedded/AssemblyBuilder.h"
#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/SceneLoad.h"

namespace wrl {

namespace {

// The part of a file name behind its last full stop, in small letters, and the part before it.
struct FileName {
  std::string stem;
  std::string extension;
};

FileName splitName(const std::string& file) {
  const std::string_view name = embedded::fileNameOf(file);
  const std::size_t stop = name.rfind('.');
  if (stop == std::string_view::npos) return {std::string(name), ""};
  FileName parts{std::string(name.substr(0, stop)), std::string(name.substr(stop + 1))};
  for (char& letter : parts.extension) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return parts;
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

LoadedStage loadStage(const std::string& file, const HostOptions& options) {
  const FileName name = splitName(file);
  if (name.extension == "json") return readStage(file);
  const std::optional<LoadedScene> loaded = loadScene(file, options);
  if (!loaded) return {nullptr, true};
  const std::string root = isStandardInput(file) ? "" : name.stem;
  return {embedded::makeStager(embedded::buildAssembly(loaded->database->GetSglRoot(), root)), loaded->failed};
}

}  // namespace wrl
