// Loads during which one allocation fails, each in turn. Nothing may crash or leak, and a database comes of every load.

#include <cstdlib>
#include <new>

#include "embedded/MessageSink.h"
#include "tests/import/ImportTest.h"

namespace {

/// Counts down to the allocation that fails; 0 fails none.
long countdown = 0;

void* allocate(std::size_t size) {
  if (countdown > 0 && --countdown == 0) throw std::bad_alloc();
  if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

}  // namespace

// The whole process allocates here, the host library included.
void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { std::free(block); }

namespace {

using importtest::faceSet;
using importtest::OpenLoader;
using importtest::shape;

class OutOfMemory : public importtest::ImportTest {};

TEST_F(OutOfMemory, ends_a_load_like_a_file_that_cannot_be_parsed) {
  const std::string path =
      writeWorld("DEF aNameThatIsTooLongForAnyStringToKeepInItself Group { children [ Transform { children [ " +
                 faceSet("coordIndex [ 0 1 2 3 -1 ] normal Normal { vector [ 0 0 1 ] } color Color { color [ 1 0 0 ] }"
                         "texCoord TextureCoordinate { point [ 0 0 ] }",
                         "material Material { } texture PixelTexture { image 1 1 4 5 }") +
                 shape("texture ImageTexture { url \"missing.gif\" }", "Box { }") + " ] } " +
                 "LOD { range [ 1 2 ] level Billboard { } } Switch { } Anchor { children " + shape("", "Sphere { }") +
                 " } ] } " + "DEF b Transform { } USE b");
  bool failed = true;
  std::size_t scenes = 0;
  std::size_t withoutDatabase = 0;
  for (long number = 1; failed; ++number) {
    std::unique_ptr<CVekDBRoot> database;
    embedded::setMessageSink([](unsigned, std::string_view) {});
    countdown = number;
    try {
      OpenLoader loader;
      database.reset(loader.loadFile(path, 0));
    } catch (const std::bad_alloc&) {
    }
    failed = countdown == 0;
    countdown = 0;
    embedded::setMessageSink({});
    if (failed && !database) ++withoutDatabase;
    if (failed && database && database->GetSglRoot() != nullptr) ++scenes;
    if (!failed) {
      EXPECT_NE(database->GetSglRoot(), nullptr);
    }
    ASSERT_LT(number, 100000);
  }
  EXPECT_LE(withoutDatabase, 2U) << "only the loader itself and the database must have memory";
  EXPECT_LE(scenes, 100U) << "messages may be lost, nodes must not";
}

}  // namespace
