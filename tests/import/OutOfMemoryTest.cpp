// Loads during which memory runs out, at each allocation in turn: for that one alone, and for good. Nothing may crash
// or leak.

#include <new>

#include "embedded/LoaderSettings.h"
#include "embedded/MessageSink.h"
#include "tests/FailingMemory.h"
#include "tests/import/ImportTest.h"

namespace {

using fixtures::Failing;
using importtest::faceSet;
using importtest::OpenLoader;
using importtest::shape;

class OutOfMemory : public importtest::ImportTest {
 protected:
  OutOfMemory() {
    m_path = writeWorld(
        "DEF aNameThatIsTooLongForAnyStringToKeepInItself Group { children [ Transform { children [ " +
        faceSet("coordIndex [ 0 1 2 3 -1 ] normal Normal { vector [ 0 0 1 ] } color Color { color [ 1 0 0 ] }"
                "texCoord TextureCoordinate { point [ 0 0 ] }",
                "material Material { } texture PixelTexture { image 1 1 4 5 }") +
        shape("texture ImageTexture { url \"missing.gif\" }", "Box { }") + " ] } " +
        "LOD { range [ 1 2 ] level Billboard { } } Switch { } Anchor { children " + shape("", "Sphere { }") +
        " } ] } " + "DEF b Transform { } USE b");
  }

  /// What a load gave during which the allocation of this number failed. `hasFailed` is false when there are fewer.
  struct Outcome {
    std::unique_ptr<CVekDBRoot> database;
    bool hasFailed = false;
  };

  [[nodiscard]] Outcome loadFailingAt(long number, Failing failing) const {
    Outcome outcome;
    embedded::setMessageSink([](unsigned, std::string_view) {});
    fixtures::failAllocation(number, failing);
    try {
      OpenLoader loader;
      outcome.database.reset(loader.loadFile(m_path, 0));
    } catch (const std::bad_alloc&) {
    }
    fixtures::endFailing();
    outcome.hasFailed = fixtures::hasAllocationFailed();
    embedded::setMessageSink({});
    return outcome;
  }

  std::string m_path;
};

constexpr long kMostAllocations = 100000;

TEST_F(OutOfMemory, ends_a_load_like_a_file_that_cannot_be_parsed) {
  bool failed = true;
  std::size_t scenes = 0;
  std::size_t withoutDatabase = 0;
  for (long number = 1; failed; ++number) {
    const Outcome outcome = loadFailingAt(number, Failing::once);
    failed = outcome.hasFailed;
    if (failed && !outcome.database) ++withoutDatabase;
    if (failed && outcome.database && outcome.database->GetSglRoot() != nullptr) ++scenes;
    if (!failed) {
      EXPECT_NE(outcome.database->GetSglRoot(), nullptr);
    }
    ASSERT_LT(number, kMostAllocations);
  }
  EXPECT_LE(withoutDatabase, 2U) << "only the loader itself and the database must have memory";
  EXPECT_LE(scenes, 100U) << "messages may be lost, nodes must not";
}

TEST_F(OutOfMemory, for_good_gives_a_scene_or_none) {
  bool failed = true;
  for (long number = 1; failed; ++number) {
    const Outcome outcome = loadFailingAt(number, Failing::forGood);
    failed = outcome.hasFailed;
    ASSERT_LT(number, kMostAllocations);
  }
}

TEST_F(OutOfMemory, leaves_nothing_of_what_is_vetoed_or_merged) {
  embedded::loaderSettings().hooks["wrl"].function = [](sglNode* node, void*, const std::string& event, void*) {
    return event != "onCreate:sglTransform" || node->getName() == "b";
  };
  embedded::loaderSettings().mergeInOneActor = true;
  for (const Failing failing : {Failing::once, Failing::forGood}) {
    bool failed = true;
    std::size_t withoutDatabase = 0;
    for (long number = 1; failed; ++number) {
      const Outcome outcome = loadFailingAt(number, failing);
      failed = outcome.hasFailed;
      if (!outcome.database) ++withoutDatabase;
      ASSERT_LT(number, kMostAllocations);
    }
    if (failing == Failing::once) {
      EXPECT_LE(withoutDatabase, 2U);
    }
  }
}

}  // namespace
