// Opening a module, calling it, and saying why that failed.

#include "embedded/ModuleLoader.h"

#include <VekSG/sglTransform.h>
#include <gtest/gtest.h>

#include "embedded/MessageSink.h"

namespace {

TEST(ModuleLoader, LoadsByThePlainNameAndSharesTheHostsTypes) {
  embedded::ModuleLoader module;
  ASSERT_TRUE(module.open(TEST_MODULE)) << module.errorText();
  const embedded::MessageRecorder recorder(false);
  const std::unique_ptr<CVekDBRoot> scene = module.loadModel("some file.wrl", 3);
  ASSERT_NE(scene, nullptr);
  const auto* root = dynamic_cast<const sglTransform<float>*>(scene->GetSglRoot());
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->getName(), "some file.wrl");
  ASSERT_EQ(recorder.messages().size(), 1U);
  EXPECT_EQ(recorder.messages()[0].text, "flags 3");
}

TEST(ModuleLoader, WritesWhenTheModuleCan) {
  embedded::ModuleLoader module;
  CVekStager stager;
  EXPECT_FALSE(module.writeModel("a", &stager));
  ASSERT_TRUE(module.open(TEST_MODULE));
  ASSERT_TRUE(module.canWrite());
  EXPECT_TRUE(module.writeModel("out.wrl", &stager));
  ASSERT_NE(stager.GetSceneManager()->GetAssyRoot(), nullptr);
  EXPECT_EQ(stager.GetSceneManager()->GetAssyRoot()->GetName(), "out.wrl");
}

TEST(ModuleLoader, AMissingFileIsNamed) {
  embedded::ModuleLoader module;
  EXPECT_FALSE(module.open("/no/such/module.so"));
  EXPECT_NE(module.errorText().find("/no/such/module.so"), std::string::npos);
  EXPECT_EQ(module.loadModel("a"), nullptr);
  EXPECT_FALSE(module.canWrite());
}

TEST(ModuleLoader, ALibraryWithoutTheFunctionIsNoModule) {
  embedded::ModuleLoader module;
  EXPECT_FALSE(module.open(HOST_LIBRARY));
  EXPECT_NE(module.errorText().find("loadModelWRL"), std::string::npos);
}

TEST(ModuleLoader, TheModuleStandsBesideTheHostLibrary) {
  const std::string host = HOST_LIBRARY;
  EXPECT_EQ(embedded::ModuleLoader::pathBesideHost(), host.substr(0, host.rfind('/') + 1) + "modelwrl.so");
}

}  // namespace
