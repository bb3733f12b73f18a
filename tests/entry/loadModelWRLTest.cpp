// The entry point as a host meets it: in a module that is opened at run time.

#include "entry/loadModelWRL.h"

#include <VekSG/sglGroup.h>
#include <VekSG/sglTexture2D.h>
#include <VekSGdb/CVekDBRoot.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "embedded/LoaderSettings.h"
#include "embedded/MessageSink.h"
#include "embedded/ModuleLoader.h"
#include "tests/TempFolder.h"

namespace {

static_assert(noexcept(loadModelWRL(std::string(), 0)), "the host is not built to catch anything");

class EntryPoint : public testing::Test {
 protected:
  EntryPoint() { embedded::resetLoaderSettings(); }
  ~EntryPoint() override { embedded::resetLoaderSettings(); }

  void SetUp() override { ASSERT_TRUE(m_module.open(MODULE_PATH)) << m_module.errorText(); }

  std::unique_ptr<CVekDBRoot> load(const std::string& world, unsigned flags = 0) {
    std::ofstream(m_path, std::ios::binary) << "#VRML V2.0 utf8\n" << world << "\n";
    return m_module.loadModel(m_path, flags);
  }

  const fixtures::TempFolder m_folder;
  const std::string m_path = m_folder.path("a.wrl");
  embedded::ModuleLoader m_module;
};

TEST_F(EntryPoint, loads_a_world) {
  const embedded::MessageRecorder recorder(false);
  for (const unsigned flags : {0U, 0xFFFFFFFFU}) {
    const auto database = load("DEF a Transform { } Group { }", flags);
    ASSERT_NE(database, nullptr);
    const auto* const root = dynamic_cast<const sglGroup*>(database->GetSglRoot());
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getName(), "a");
    EXPECT_EQ(root->getNumChildren(), 2U);
  }
  EXPECT_EQ(recorder.messages().size(), 24U);
}

TEST_F(EntryPoint, gives_an_empty_database_for_a_broken_world) {
  const embedded::MessageRecorder recorder(false);
  const auto database = load("nonsense");
  ASSERT_NE(database, nullptr);
  EXPECT_EQ(database->GetSglRoot(), nullptr);
  ASSERT_EQ(recorder.messages().size(), 2U);
  EXPECT_EQ(recorder.messages()[0].text, "sglLoadFile_wrl: Error loading: " + m_path + "\n");
  EXPECT_EQ(recorder.messages()[1].text, "\tLine 2, at or about \"nonsense\"\n\t>>nonsense\n");
}

TEST_F(EntryPoint, scenes_outlive_the_module) {
  const embedded::MessageRecorder recorder(false);
  std::ofstream(m_path, std::ios::binary) << "#VRML V2.0 utf8\nGroup { }\n";
  std::unique_ptr<CVekDBRoot> database;
  {
    embedded::ModuleLoader module;
    ASSERT_TRUE(module.open(MODULE_PATH)) << module.errorText();
    database = module.loadModel(m_path, 0);
  }
  EXPECT_NE(database->GetSglRoot(), nullptr);
}

/// The module is not open yet.
class ModuleFile : public EntryPoint {
 protected:
  void SetUp() override {}
};

TEST_F(ModuleFile, keeps_its_memory_from_one_opening_to_the_next) {
  const embedded::MessageRecorder recorder(false);
  static int readerCalls = 0;
  readerCalls = 0;
  embedded::loaderSettings().imageReader = [](const std::string& /*path*/, sglTexture2D* texture) {
    ++readerCalls;
    return texture->setImage(1, 1, sglTexture::FORMAT_RGB, {1, 2, 3});
  };
  // The reader takes any file for an image, the world too.
  std::ofstream(m_path, std::ios::binary) << "#VRML V2.0 utf8\nShape { appearance Appearance { texture ImageTexture { "
                                             "url \"a.wrl\" } } geometry Box { } }\nDEF v Viewpoint { }\nUSE v\n";
  for (int i = 0; i < 5; ++i) {
    // As plainly as a host can: without a wish that the module should stay.
    void* const module = dlopen(MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const auto load = reinterpret_cast<decltype(&loadModelWRL)>(dlsym(module, "loadModelWRL"));
    ASSERT_NE(load, nullptr);
    const std::unique_ptr<CVekDBRoot> database(load(m_path, 0));
    EXPECT_EQ(dlclose(module), 0);
    ASSERT_NE(database, nullptr);
    EXPECT_NE(database->GetSglRoot(), nullptr);
  }
  EXPECT_EQ(readerCalls, 1) << "the texture cache must not end before the process";
}

TEST_F(EntryPoint, lets_nothing_out_that_a_host_function_throws) {
  const embedded::MessageRecorder recorder(false);
  embedded::loaderSettings().hooks["wrl"].function = [](sglNode*, void*, const std::string&, void*) -> bool {
    throw 17;
  };
  const auto vetoed = load("Group { }");
  ASSERT_NE(vetoed, nullptr);
  EXPECT_EQ(vetoed->GetSglRoot(), nullptr);

  embedded::resetLoaderSettings();
  embedded::loaderSettings().progress = [](float, const char*) { throw std::string("no progress"); };
  const auto unheard = load("Group { }");
  ASSERT_NE(unheard, nullptr);
  EXPECT_EQ(unheard->GetSglRoot(), nullptr);
}

}  // namespace
