// Everything runs on a stack of 1 MiB, the deepest tree that is accepted included.

#include <filesystem>
#include <sstream>

#include "embedded/AssemblyBuilder.h"
#include "tests/attacks/Attack.h"

namespace {

constexpr std::size_t kMiB = std::size_t{1} << 20;

class SmallStack : public attack::Attack {
 protected:
  // The way in and out again.
  void passThrough(const std::string& file) const {
    const attack::Loaded loaded = load(file);
    ASSERT_NE(loaded.database, nullptr);
    static_cast<void>(loaded.document());
    const auto stager = embedded::makeStager(embedded::buildAssembly(loaded.database->GetSglRoot(), "model"));
    if (loaded.hasScene()) {
      EXPECT_EQ(exportTo(path("out.wrl"), *stager), 0) << file;
    }
  }
};

TEST_F(SmallStack, is_enough_for_every_world) {
  const std::string rich = writeRichWorld();
  attack::runOnStack(kMiB, [&] { passThrough(rich); });
  for (const auto& entry : std::filesystem::recursive_directory_iterator(WRL_CORPUS_FOLDER)) {
    if (entry.path().extension() != ".wrl" || entry.file_size() > 30'000) continue;
    attack::runOnStack(kMiB, [&] { passThrough(entry.path().string()); });
  }
}

// Nodes may be open 4096 deep; what a USE copies and what an Inline holds hangs below them.
TEST_F(SmallStack, is_enough_for_the_deepest_tree) {
  constexpr std::size_t kDepth = 4090;
  writeWorld("part.wrl",
             attack::repeated("Transform{children ", kDepth) + "Shape{geometry Box{}}" + std::string(kDepth, '}'));
  std::string text = "DEF n0 Transform { children Inline { url \"part.wrl\" } }\n";
  for (long i = 1; i <= attack::steps(3, 42); ++i)
    text += "DEF n" + std::to_string(i) + " " + attack::repeated("Transform{children ", kDepth) + "USE n" +
            std::to_string(i - 1) + std::string(kDepth, '}') + "\n";
  const std::string file = writeWorld("deep.wrl", text);
  attack::runOnStack(kMiB, [&] {
    const attack::Loaded loaded = load(file);
    EXPECT_TRUE(loaded.hasScene()) << loaded.messages.substr(0, 500);
    EXPECT_FALSE(loaded.document().empty());
    const auto assembly = embedded::buildAssembly(loaded.database->GetSglRoot(), "model");
    EXPECT_NE(assembly, nullptr);
  });
}

}  // namespace
