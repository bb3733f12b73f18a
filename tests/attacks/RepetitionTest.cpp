// Loads, loads that fail, and exports after one another in one process: each gives what it gives in a process of its
// own, and nothing grows but the texture cache.

#include <VekSG/sglTexture2D.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "embedded/LoaderSettings.h"
#include "tests/attacks/Attack.h"

namespace {

using fixtures::liveBlocks;

class Repetition : public attack::Attack {
 protected:
  // What a function gives in a process that has done nothing else with the module.
  template <class Function>
  [[nodiscard]] std::string inFreshProcess(Function function) const {
    const std::string result = path("fresh");
    const pid_t child = fork();
    if (child == 0) {
      std::ofstream(result, std::ios::binary) << function();
      _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    return fixtures::contentOf(result);
  }

  // The text of an export.
  [[nodiscard]] std::string exported(CVekStager& stager) const {
    EXPECT_EQ(exportTo(path("out.wrl"), stager), 0);
    return fixtures::contentOf(path("out.wrl"));
  }

  // A world with a texture from a file of this name, which the host reads.
  [[nodiscard]] std::string writeTexturedWorld(const std::string& image) const {
    embedded::loaderSettings().imageReader = [](const std::string& /*path*/, sglTexture2D* texture) {
      return texture->setImage(1, 1, sglTexture::FORMAT_RGB, {1, 2, 3});
    };
    write(image, "");
    return writeWorld("textured.wrl", "Shape { geometry Box { } appearance Appearance { texture ImageTexture { url \"" +
                                          image + "\" } } }");
  }

  static std::ptrdiff_t openFiles() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }
};

TEST_F(Repetition, gives_what_fresh_processes_give) {
  const std::string rich = writeRichWorld();
  const std::string broken = writeWorld("broken.wrl", "DEF a Group { children [ DEF P PROTO P [ ] { P { } } P { } \"");
  const auto stager = richStage();
  const std::string freshRich = inFreshProcess([&] { return load(rich).document(); });
  const std::string freshBroken = inFreshProcess([&] { return load(broken).document(); });
  const std::string freshExport = inFreshProcess([&] { return exported(*stager); });
  EXPECT_NE(freshBroken.find("Error loading"), std::string::npos);
  EXPECT_NE(freshExport.find("IndexedFaceSet"), std::string::npos);
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(load(rich).document(), freshRich) << round;
    EXPECT_EQ(load(broken).document(), freshBroken) << round;
    EXPECT_EQ(load(path("nowhere.wrl")).hasScene(), false);
    EXPECT_EQ(exported(*stager), freshExport) << round;
    EXPECT_EQ(load(rich).document(), freshRich) << round;
    EXPECT_TRUE(load(path("out.wrl")).hasScene());
  }
}

TEST_F(Repetition, leaves_nothing_behind) {
  const std::string rich = writeRichWorld();
  const std::string broken = writeWorld("broken.wrl", "DEF a Group { children [ PROTO P [ ] { P { } } P { } \"");
  const std::string textured = writeTexturedWorld("same.png");
  const auto stager = richStage();
  const auto round = [&] {
    static_cast<void>(load(rich));
    static_cast<void>(load(textured));
    static_cast<void>(load(broken));
    exportTo(path("out.wrl"), *stager);
    static_cast<void>(load(rich));
  };
  for (int i = 0; i < 3; ++i) round();
  const long before = liveBlocks();
  const std::ptrdiff_t filesBefore = openFiles();
  for (long i = 0; i < attack::steps(100, 1000); ++i) round();
  EXPECT_EQ(liveBlocks(), before);
  EXPECT_EQ(openFiles(), filesBefore);
}

TEST_F(Repetition, grows_by_new_textures_alone) {
  // The blocks that this many textures cost which no load has met.
  long number = 100'000;
  const auto growth = [&](long textures) {
    const long before = liveBlocks();
    for (long i = 0; i < textures; ++i) {
      const std::string file = writeTexturedWorld(std::to_string(++number) + ".png");
      EXPECT_TRUE(load(file).hasScene());
      EXPECT_TRUE(load(file).hasScene());
    }
    return liveBlocks() - before;
  };
  static_cast<void>(growth(3));
  const long one = growth(1);
  EXPECT_GT(one, 0);
  const long many = attack::steps(50, 1000);
  EXPECT_EQ(growth(many), many * one);
}

}  // namespace
