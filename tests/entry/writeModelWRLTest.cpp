// The export's entry point as a host meets it: in a module that is opened at run time.

#include "entry/writeModelWRL.h"

#include <VekKernel/CVekAssyRoot.h>
#include <VekKernel/CVekStager.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "embedded/LoaderSettings.h"
#include "embedded/ModuleLoader.h"
#include "tests/TempFolder.h"

namespace {

static_assert(noexcept(writeModelWRL(std::string(), nullptr)), "the host is not built to catch anything");

class ExportEntryPoint : public testing::Test {
 protected:
  ~ExportEntryPoint() override { embedded::resetLoaderSettings(); }

  void SetUp() override {
    ASSERT_TRUE(m_module.open(MODULE_PATH)) << m_module.errorText();
    ASSERT_TRUE(m_module.canWrite());
  }

  [[nodiscard]] std::string written() const {
    std::ifstream file(m_path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  const fixtures::TempFolder m_folder;
  const std::string m_path = m_folder.path("a.wrl");
  embedded::ModuleLoader m_module;
  CVekStager m_stager;
};

TEST_F(ExportEntryPoint, writes_a_world) {
  auto root = std::make_unique<CVekAssyRoot>();
  auto part = std::make_unique<CVekKAssyGroup>();
  part->SetName("part");
  root->AddChild(part.release());
  m_stager.GetSceneManager()->SetAssyRoot(std::move(root));
  m_module.writeModel(m_path, &m_stager);
  EXPECT_EQ(errno, 0);
  EXPECT_EQ(written(),
            "#VRML V2.0 utf8\nGroup{\nchildren[\nDEF part Transform {\ncenter 0.0 0.0 0.0 rotation 1.000000 0.000000 "
            "0.000000 0.000000 scale 1.000000 1.000000 1.000000 translation 0.000000 0.000000 0.000000 "
            "\nchildren[\n]}\n]}\n");
}

TEST_F(ExportEntryPoint, makes_no_file_without_an_assembly) {
  m_module.writeModel(m_path, &m_stager);
  EXPECT_NE(errno, 0);
  EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(ExportEntryPoint, says_when_the_file_is_not_whole) {
  m_stager.GetSceneManager()->SetAssyRoot(std::make_unique<CVekAssyRoot>());
  m_module.writeModel("/dev/full", &m_stager);
  EXPECT_EQ(errno, ENOSPC);
}

TEST_F(ExportEntryPoint, lets_nothing_out_that_a_host_function_throws) {
  embedded::loaderSettings().progress = [](float, const char*) { throw std::string("no progress"); };
  m_stager.GetSceneManager()->SetAssyRoot(std::make_unique<CVekAssyRoot>());
  m_module.writeModel(m_path, &m_stager);
  EXPECT_NE(errno, 0);
}

}  // namespace
