// Calls of the entry points during which memory runs out for good, at each allocation in turn: nothing is thrown at the
// host, and nothing leaks.

#include <VekKernel/CVekStager.h>
#include <VekSGdb/CVekDBRoot.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <memory>
#include <string>

#include "embedded/AssemblyBuilder.h"
#include "embedded/MessageSink.h"
#include "entry/loadModelWRL.h"
#include "entry/writeModelWRL.h"
#include "tests/FailingMemory.h"
#include "tests/TempFolder.h"

namespace {

constexpr const char* kWorld =
    "#VRML V2.0 utf8\nDEF aNameThatIsTooLongForAnyStringToKeepInItself Group { children Transform { children [ Shape { "
    "appearance Appearance { material Material { } } geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 "
    "0, 0 1 0 ] } coordIndex [ 0 1 2 -1 ] } } LOD { } Shape { geometry Box { } } ] } }\n";

class OutOfMemory : public testing::Test {
 protected:
  OutOfMemory() {
    std::ofstream(m_path, std::ios::binary) << kWorld;
    embedded::setMessageSink([](unsigned, std::string_view) {});
  }
  ~OutOfMemory() override { embedded::setMessageSink({}); }

  void SetUp() override {
    void* const module = dlopen(MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    m_load = reinterpret_cast<decltype(m_load)>(dlsym(module, "loadModelWRL"));
    m_write = reinterpret_cast<decltype(m_write)>(dlsym(module, "writeModelWRL"));
    ASSERT_NE(m_load, nullptr);
    ASSERT_NE(m_write, nullptr);
  }

  /// Makes the call with memory for ever more allocations, until there is enough. `look` is called after each.
  template <class Call, class Look>
  static void withEverMoreMemory(Call call, Look look) {
    bool failed = true;
    for (long number = 1; failed; ++number) {
      fixtures::failAllocation(number, fixtures::Failing::forGood);
      call();
      fixtures::endFailing();
      failed = fixtures::hasAllocationFailed();
      look(failed);
      ASSERT_LT(number, 100000);
    }
  }

  const fixtures::TempFolder m_folder;
  const std::string m_path = m_folder.path("a.wrl");
  const std::string m_output = m_folder.path("out.wrl");
  decltype(&loadModelWRL) m_load = nullptr;
  decltype(&writeModelWRL) m_write = nullptr;
};

TEST_F(OutOfMemory, gives_no_database) {
  std::unique_ptr<CVekDBRoot> database;
  std::size_t failures = 0;
  withEverMoreMemory([&] { database.reset(m_load(m_path, 0)); },
                     [&](bool failed) {
                       failures += failed ? 1 : 0;
                       EXPECT_TRUE(!database || database->GetSglRoot() != nullptr) << "no memory for an empty one";
                       EXPECT_TRUE(failed || database);
                     });
  EXPECT_GT(failures, 10U) << "the module allocates where this test counts";
}

TEST_F(OutOfMemory, is_a_file_that_is_not_whole) {
  const std::unique_ptr<CVekDBRoot> database(m_load(m_path, 0));
  const std::unique_ptr<CVekStager> stager = embedded::makeStager(embedded::buildAssembly(database->GetSglRoot(), "a"));
  int error = 0;
  std::size_t failures = 0;
  withEverMoreMemory(
      [&] {
        m_write(m_output, stager.get());
        error = errno;
      },
      [&](bool failed) {
        failures += failed ? 1 : 0;
        EXPECT_EQ(error != 0, failed);
      });
  EXPECT_GT(failures, 5U);
}

}  // namespace
