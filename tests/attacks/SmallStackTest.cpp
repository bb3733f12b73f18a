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

// What ends with a report does so on the same stack, and so does what goes to a limit and keeps it.
TEST_F(SmallStack, is_enough_at_the_limits) {
  const auto nested = [](std::size_t depth) {
    return attack::repeated("Transform{children ", depth) + "Shape{geometry Box{}}" + std::string(depth, '}');
  };
  // Each PROTO's body is an instance of the one before.
  std::string protos = "PROTO P0 [ ] { Shape { geometry Box { } } }\n";
  for (int i = 1; i < 100; ++i)
    protos += "PROTO P" + std::to_string(i) + " [ ] { Group { children P" + std::to_string(i - 1) + " { } } }\n";
  for (int i = 0; i < 20; ++i)
    writeWorld("in" + std::to_string(i) + ".wrl", "Inline { url \"in" + std::to_string(i + 1) + ".wrl\" }");
  struct Row {
    const char* name;
    std::string text;
    bool loads = true;
  };
  for (const Row& row : {Row{"4,000 nodes below each other", nested(4000)},
                         {"more than may be open", nested(4100), false},
                         {"cut off", nested(4000).substr(0, 40'000), false},
                         {"nested PROTOs", protos + "P50 { }"},
                         {"more nested PROTOs than may be", protos + "P99 { }", false},
                         {"a PROTO of itself", "PROTO P [ ] { Group { children P { } } } P { }", false},
                         {"nested Inlines", "Shape { geometry Box { } } Inline { url \"in5.wrl\" }"},
                         {"more nested Inlines than may be", "Inline { url \"in0.wrl\" }", false},
                         {"brackets", "Group { children " + std::string(100'000, '['), false},
                         {"braces of an unknown node", "Unknown " + std::string(100'000, '{'), false}}) {
    SCOPED_TRACE(row.name);
    const std::string file = writeWorld("limit.wrl", row.text);
    EXPECT_EQ(load(file).isReported(), !row.loads);
    attack::runOnStack(kMiB, [&] { passThrough(file); });
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
