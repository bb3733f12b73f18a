// Loads, loads that fail, and exports after one another in one process: each gives what it gives in a process of its
// own, and nothing grows.

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "tests/attacks/Attack.h"

namespace {

using fixtures::liveBlocks;

class Repetition : public attack::Attack {
 protected:
  // What a load gives in a process that has done nothing else.
  [[nodiscard]] std::string loadInFreshProcess(const std::string& file) const {
    const std::string result = path("fresh");
    const pid_t child = fork();
    if (child == 0) {
      std::ofstream(result, std::ios::binary) << load(file).document();
      _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    return fixtures::contentOf(result);
  }
};

TEST_F(Repetition, gives_what_fresh_processes_give) {
  const std::string rich = writeRichWorld();
  const std::string broken = writeWorld("broken.wrl", "DEF a Group { children [ DEF P PROTO P [ ] { P { } } P { } \"");
  const std::string freshRich = loadInFreshProcess(rich);
  const std::string freshBroken = loadInFreshProcess(broken);
  EXPECT_NE(freshBroken.find("Error loading"), std::string::npos);
  const auto stager = richStage();
  std::string exported;
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(load(rich).document(), freshRich) << round;
    EXPECT_EQ(load(broken).document(), freshBroken) << round;
    EXPECT_EQ(load(path("nowhere.wrl")).hasScene(), false);
    EXPECT_EQ(exportTo(path("out.wrl"), *stager), 0);
    const std::string text = fixtures::contentOf(path("out.wrl"));
    EXPECT_TRUE(round == 0 || text == exported) << round;
    exported = text;
    EXPECT_EQ(load(rich).document(), freshRich) << round;
    EXPECT_TRUE(load(path("out.wrl")).hasScene());
  }
}

TEST_F(Repetition, leaves_nothing_behind) {
  const std::string rich = writeRichWorld();
  const std::string broken = writeWorld("broken.wrl", "DEF a Group { children [ PROTO P [ ] { P { } } P { } \"");
  const auto stager = richStage();
  const auto round = [&] {
    static_cast<void>(load(rich));
    static_cast<void>(load(broken));
    exportTo(path("out.wrl"), *stager);
    static_cast<void>(load(rich));
  };
  for (int i = 0; i < 3; ++i) round();
  const long before = liveBlocks();
  for (long i = 0; i < attack::steps(100, 1000); ++i) round();
  EXPECT_EQ(liveBlocks(), before);
}

}  // namespace
