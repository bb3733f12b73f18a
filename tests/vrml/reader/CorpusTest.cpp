// Real files: each loads but for the few that the rules refuse, and what is written reads back and is written the same.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::verdict;
using readertest::written;

std::vector<std::string> worldsBelow(const std::string& folder) {
  std::vector<std::string> worlds;
  const std::filesystem::path root = std::filesystem::path(WRL_CORPUS_FOLDER) / folder;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
    if (entry.path().extension() == ".wrl") worlds.push_back(entry.path().lexically_relative(root).string());
  std::sort(worlds.begin(), worlds.end());
  return worlds;
}

std::string corpusPath(const std::string& folder, const std::string& world) {
  return (std::filesystem::path(WRL_CORPUS_FOLDER) / folder / world).string();
}

// The file name of a world that is refused, and where: a field that its node does not have.
const std::map<std::string, std::string> kRefused = {
    {"MovieTextureAuthoringOptions.wrl", "59:description"},
    {"PositionOrientationInterpolatorsExampleTraced.wrl", "43:centerOfRotation"},
    {"SpotLightVisualization.wrl", "35:centerOfRotation"},
};

TEST(Corpus, loads) {
  const EchoCapture echo;
  int count = 0;
  for (const std::string& world : worldsBelow("worlds")) {
    SceneGraph scene;
    scene.load(corpusPath("worlds", world), true);
    const auto refused = kRefused.find(std::filesystem::path(world).filename().string());
    if (refused == kRefused.end()) {
      EXPECT_EQ(verdict(scene), "ok") << world;
    } else {
      EXPECT_EQ(std::to_string(scene.getErrorLine()) + ":" + scene.getErrorToken(), refused->second) << world;
    }
    ++count;
  }
  EXPECT_GT(count, 50);
}

TEST(Corpus, is_written_as_text_that_reads_back_the_same) {
  const EchoCapture echo;
  for (const std::string folder : {"worlds", "odd"})
    for (const std::string& world : worldsBelow(folder)) {
      SceneGraph scene;
      scene.load(corpusPath(folder, world), true);
      if (!scene.succeeded()) continue;
      const std::string first = written(scene);
      // Beside the original, so that it finds the same Inline files.
      SceneGraph again;
      readertest::loadText(again, first);
      EXPECT_EQ(verdict(again), "ok") << world;
      EXPECT_TRUE(written(again) == first) << world;
    }
}

}  // namespace
}  // namespace vrml
