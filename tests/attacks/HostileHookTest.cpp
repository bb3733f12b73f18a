// Hooks that refuse anything at any time, and hooks that take apart what they are shown.

#include <VekSG/sglGroup.h>

#include <random>

#include "embedded/LoaderSettings.h"
#include "tests/attacks/Attack.h"

namespace {

class HostileHook : public attack::Attack {
 protected:
  void setHook(sglModelLoader::CallbackFn function, void* data) {
    embedded::loaderSettings().hooks["wrl"] = {function, data};
  }
};

TEST_F(HostileHook, may_refuse_everything) {
  const std::string file = writeRichWorld();
  setHook([](sglNode*, void*, const std::string&, void*) { return false; }, nullptr);
  EXPECT_FALSE(load(file).hasScene());
  setHook([](sglNode* node, void*, const std::string&, void*) { return node == nullptr; }, nullptr);
  const attack::Loaded loaded = load(file);
  EXPECT_FALSE(loaded.hasScene());
  EXPECT_FALSE(loaded.isReported());
}

TEST_F(HostileHook, may_refuse_anything) {
  const std::string file = writeRichWorld();
  std::mt19937 random;
  const auto coin = [](sglNode*, void*, const std::string&, void* data) {
    return (*static_cast<std::mt19937*>(data))() % 4 != 0;
  };
  for (long seed = 0; seed < attack::steps(100, 10'000); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    setHook(coin, &random);
    const attack::Loaded loaded = load(file);
    EXPECT_NE(loaded.database, nullptr);
    EXPECT_FALSE(loaded.isReported()) << seed;
    EXPECT_FALSE(loaded.document().empty());
  }
}

// A host may do with a group that is complete what it likes, its children included.
TEST_F(HostileHook, may_empty_every_group) {
  const std::string file = writeRichWorld();
  const auto empty = [](sglNode* node, void*, const std::string&, void* data) {
    auto* const group = dynamic_cast<sglGroup*>(node);
    while (group != nullptr && group->getNumChildren() > 0) delete group->getChild(0);
    return (*static_cast<std::mt19937*>(data))() % 2 == 0;
  };
  std::mt19937 random;
  for (unsigned seed = 0; seed < 50; ++seed) {
    random.seed(seed);
    setHook(empty, &random);
    EXPECT_FALSE(load(file).isReported()) << seed;
  }
}

}  // namespace
