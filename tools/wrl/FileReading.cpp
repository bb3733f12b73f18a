// A thin layer over the scene's own loading.

#include "tools/wrl/FileReading.h"

#include <VekSGdb/sglDataLoader.h>

#include <charconv>
#include <iostream>

#include "tools/wrl/HostSetUp.h"
#include "tools/wrl/Progress.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

void readFile(vrml::SceneGraph& scene, const std::string& path, bool resolve) {
  Progress progress;
  progress.setFile(path);
  // Reporting each line costs time that only a terminal is worth.
  scene.load(path, resolve, progress.isShown() ? Progress::showCount : nullptr, &progress);
}

std::string readFileOrSearch(vrml::SceneGraph& scene, const std::string& path) {
  readFile(scene, path, true);
  std::string found;
  if (scene.succeeded() || !sglDataLoader::findFile(path, nullptr, found)) return path;
  readFile(scene, found, true);
  return found;
}

void readAgain(vrml::SceneGraph& scene, const std::string& path, const HostOptions& options) {
  const vrml::EchoSink before = vrml::setEchoSink([](const char*, std::size_t) {});
  const HostSetUp host(options);
  readFileOrSearch(scene, path);
  vrml::setEchoSink(before);
}

void tellReading(const std::string& path, double seconds) {
  std::cerr << "wrl: " << path << ": " << inSeconds(seconds) << " s\n";
}

std::string inSeconds(double seconds) {
  char text[400];
  const auto [end, error] = std::to_chars(text, text + sizeof text, seconds, std::chars_format::fixed, 3);
  return {text, end};
}

bool isUnopened(const vrml::SceneGraph& scene) { return !scene.succeeded() && scene.getErrorLine() == 0; }

std::string errorLine(const std::string& file, const vrml::SceneGraph& scene) {
  return file + ":" + std::to_string(scene.getErrorLine()) + ": error at or about \"" + scene.getErrorToken() +
         "\": " + scene.getErrorLineText();
}

}  // namespace wrl
