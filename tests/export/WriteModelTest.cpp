// The whole export: whole files byte for byte, and the access bracket around everything.

#include "export/WriteModel.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "embedded/LoaderSettings.h"
#include "embedded/StageDocument.h"
#include "tests/TempFolder.h"
#include "tests/export/CommaLocale.h"
#include "tests/export/Scene.h"

namespace {

using exporter_test::geoSet;
using exporter_test::mesh;
using fixtures::contentOf;
using fixtures::TempFolder;

/// A root that keeps the calls of its bracket and whether the file was there.
class WatchedRoot : public CVekAssyRoot {
 public:
  void BeginAccess(bool deep) override { calls.push_back(deep ? "begin deep" : "begin"); }
  void EndAccess(bool deep) override { calls.push_back(deep ? "end deep" : "end"); }

  std::vector<std::string> calls;
};

const std::vector<std::string> kBracket = {"begin deep", "end deep"};

/// A stager with a watched root, and a viewport with camera and colours.
class WriteModel : public testing::Test {
 protected:
  WriteModel() {
    auto watched = std::make_unique<WatchedRoot>();
    root = watched.get();
    stager.GetSceneManager()->SetAssyRoot(std::move(watched));
    auto viewport = std::make_unique<CVekViewport>();
    auto camera = std::make_unique<CVekCamera>();
    camera->SetMatLocalToParent({{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 10, 1}});
    viewport->GetNavigator()->SetCamera(std::move(camera));
    viewport->GetRenderer()->SetBkColor({255, 255, 255});
    stager.GetViewportManager()->SetViewportSelected(std::move(viewport));
  }

  ~WriteModel() override { embedded::resetLoaderSettings(); }

  TempFolder folder;
  CVekStager stager;
  WatchedRoot* root;
};

const std::string kTail =
    "Group {\nchildren [Viewpoint { \ndescription\"Zentra Stager Main Camera\"\nfieldOfView 0.785398 \norientation "
    "1.000000 0.000000 0.000000 0.000000 \nposition 0.000000 0.000000 10.000000 \n}\n] \n}DEF browns Background { "
    "skyAngle [0, 3.1416] skyColor [1.000000 1.000000 1.000000, 0.500000 0.500000 0.500000, 0.000000 0.000000 "
    "0.000000] }";

TEST_F(WriteModel, AnEmptyRootGivesFrameViewpointAndBackground) {
  exporter::writeModel(folder.path("out.wrl"), &stager);
  EXPECT_EQ(errno, 0);
  EXPECT_EQ(contentOf(folder.path("out.wrl")), exporter_test::kHead + std::string("]}\n") + kTail);
  EXPECT_EQ(root->calls, kBracket);
}

TEST_F(WriteModel, TexturesStandBesideTheFile) {
  fixtures::writeFile(folder.path("wood.jpg"), "picture");
  CVekActorMesh* const actor = mesh({geoSet().release()}).release();
  exporter_test::setMapPath(*actor, folder.path("wood.jpg"));
  root->AddChild(actor);
  std::filesystem::create_directory(folder.path("out"));
  exporter::writeModel(folder.path("out/scene.wrl"), &stager);
  EXPECT_EQ(contentOf(folder.path("out/Textures/wood.jpg")), "picture");
  const std::string text = contentOf(folder.path("out/scene.wrl"));
  EXPECT_NE(text.find("url [ \"Textures\\wood.jpg\"]repeatS FALSE repeatT FALSE }\nmaterial"), std::string::npos);
}

TEST_F(WriteModel, WritingTwiceGivesTheSameBytes) {
  root->AddChild(
      exporter_test::group<CVekKAssyGroup>("part", {mesh({geoSet<sglTriangleSet>().release()}).release()}).release());
  exporter::writeModel(folder.path("a.wrl"), &stager);
  exporter::writeModel(folder.path("b.wrl"), &stager);
  EXPECT_EQ(contentOf(folder.path("a.wrl")), contentOf(folder.path("b.wrl")));
  EXPECT_NE(contentOf(folder.path("a.wrl")).find(exporter_test::kTriangleShape), std::string::npos);
}

/// A tree with a geometry of each kind, texture coordinates, a texture matrix and an image; and a view.
void fill(CVekAssyRoot& root, CVekStager& stager, const TempFolder& folder) {
  fixtures::writeFile(folder.path("wood.jpg"), "picture");
  exporter_test::Lists lists{
      .normals = {0, 0, 1, 0, 0, 1, 0, 0, 1}, .texCoords = {0, 0, 1.5F, 0, 0, 1}, .lengths = {3}};
  CVekActorMesh* const actor =
      mesh({geoSet<sglTriangleSet>(lists).release(), geoSet<sglIndexedTriangleSet>(lists).release(),
            geoSet<sglIndexedTriangleStripSet>(lists).release(),
            geoSet<sglMonoIndexedTriangleStripSet>(lists).release()})
          .release();
  actor->SetTexture(0, exporter_test::texture({{0.5F, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.25F, 0, 0, 1}}));
  exporter_test::setMapPath(*actor, folder.path("wood.jpg"));
  auto part = exporter_test::group<CVekKAssyGroup>("3D part", {actor, nullptr});
  part->SetMatLocalToParent({{-2.5F, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1.25F, 0, 0, 1}});
  root.AddChild(part.release());
  auto view = std::make_unique<CVekView>();
  view->SetName("100%d");
  view->SetNavigatorProperties(std::make_unique<CVekPropertySet>());
  stager.GetViewportManager()->AddView(std::move(view));
}

TEST_F(WriteModel, TheHostIsLeftAsItWas) {
  fill(*root, stager, folder);
  std::ostringstream before;
  embedded::writeStageDocument(before, stager);
  exporter::writeModel(folder.path("out.wrl"), &stager);
  std::ostringstream after;
  embedded::writeStageDocument(after, stager);
  EXPECT_EQ(after.str(), before.str());
  EXPECT_NE(contentOf(folder.path("out.wrl")).find("DEF _D_part Transform"), std::string::npos);
  EXPECT_EQ(contentOf(folder.path("wood.jpg")), "picture");
}

TEST_F(WriteModel, TheLocaleDoesNotMatter) {
  fill(*root, stager, folder);
  exporter::writeModel(folder.path("a.wrl"), &stager);
  const exporter_test::CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  exporter::writeModel(folder.path("b.wrl"), &stager);
  EXPECT_EQ(contentOf(folder.path("b.wrl")), contentOf(folder.path("a.wrl")));
  EXPECT_NE(contentOf(folder.path("b.wrl")).find("1.000000 0.000000,"), std::string::npos) << "0.5 * 1.5 + 0.25";
}

TEST_F(WriteModel, WithoutAnAssemblyThereIsNoFile) {
  stager.GetSceneManager()->SetAssyRoot(nullptr);
  exporter::writeModel(folder.path("out.wrl"), &stager);
  EXPECT_NE(errno, 0);
  exporter::writeModel(folder.path("out.wrl"), nullptr);
  EXPECT_NE(errno, 0);
  EXPECT_FALSE(std::filesystem::exists(folder.path("out.wrl")));
}

TEST_F(WriteModel, TheBracketIsClosedWhenTheFileCannotBeOpened) {
  exporter::writeModel(folder.path("nosuch/out.wrl"), &stager);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(root->calls, kBracket);
}

TEST_F(WriteModel, TheBracketIsClosedWhenTheHostThrows) {
  root->AddChild(mesh({geoSet().release()}).release());
  embedded::loaderSettings().progress = [](float, const char*) { throw std::runtime_error("host"); };
  exporter::writeModel(folder.path("out.wrl"), &stager);
  EXPECT_NE(errno, 0);
  EXPECT_EQ(root->calls, kBracket);
}

TEST_F(WriteModel, TheBracketIsOpenWhileTheTreeIsLookedAt) {
  static WatchedRoot* watched = nullptr;
  static std::vector<std::size_t> callsSoFar;
  watched = root;
  callsSoFar.clear();
  root->AddChild(mesh({geoSet().release()}).release());
  embedded::loaderSettings().progress = [](float, const char*) { callsSoFar.push_back(watched->calls.size()); };
  exporter::writeModel(folder.path("out.wrl"), &stager);
  EXPECT_EQ(callsSoFar, (std::vector<std::size_t>{1, 1, 1}));
  EXPECT_EQ(root->calls, kBracket);
}

TEST_F(WriteModel, AFullDiskIsReported) {
  exporter::writeModel("/dev/full", &stager);
  EXPECT_EQ(errno, ENOSPC);
  EXPECT_EQ(root->calls, kBracket);
}

}  // namespace
