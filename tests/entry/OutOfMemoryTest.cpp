// Calls of the entry points during which memory runs out for good, at each allocation in turn: nothing is thrown at the
// host, and nothing leaks.

#include <VekSGdb/CVekDBRoot.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <new>
#include <string>

#include "embedded/MessageSink.h"
#include "entry/loadModelWRL.h"

namespace {

/// Counts down to the allocation that fails with all behind it; 0 fails none.
long countdown = 0;

void* allocate(std::size_t size) {
  if (countdown > 0 && (countdown == 1 || --countdown == 0)) throw std::bad_alloc();
  if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

}  // namespace

// The whole process allocates here, the module and the host library included.
void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  try {
    return allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { std::free(block); }

namespace {

TEST(OutOfMemory, gives_an_empty_database_or_none) {
  const std::string path = testing::TempDir() + "wrl-out-of-memory.wrl";
  std::ofstream(path, std::ios::binary)
      << "#VRML V2.0 utf8\nDEF aNameThatIsTooLongForAnyStringToKeepInItself Group { children Transform { children [ "
         "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 -1 ] "
         "} } LOD { } ] } }\n";
  void* const module = dlopen(MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  const auto load = reinterpret_cast<decltype(&loadModelWRL)>(dlsym(module, "loadModelWRL"));
  ASSERT_NE(load, nullptr);
  embedded::setMessageSink([](unsigned, std::string_view) {});
  std::size_t withoutDatabase = 0;
  std::size_t emptyDatabases = 0;
  bool failed = true;
  for (long number = 1; failed; ++number) {
    countdown = number;
    const std::unique_ptr<CVekDBRoot> database(load(path, 0));
    failed = countdown == 1;
    countdown = 0;
    if (!database)
      ++withoutDatabase;
    else if (database->GetSglRoot() == nullptr)
      ++emptyDatabases;
    ASSERT_LT(number, 100000);
  }
  embedded::setMessageSink({});
  std::remove(path.c_str());
  EXPECT_GT(withoutDatabase, 10U) << "the module allocates where this test counts";
  EXPECT_EQ(emptyDatabases, 0U) << "there is no memory for one";
}

}  // namespace
