// From a scene to the assembly.

#include "embedded/AssemblyBuilder.h"

#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglBillboard.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTriangleSet.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "embedded/AssemblyWalk.h"
#include "embedded/StageProperties.h"
#include "tests/embedded/SceneFixtures.h"

namespace {

template <class Node>
std::unique_ptr<Node> named(std::unique_ptr<Node> node, const std::string& name) {
  node->setName(name);
  return node;
}

// The tree in one line: g group, m mesh, with names.
class Scribe : public embedded::AssemblyVisitor {
 public:
  bool enter(const CVekAssyNode* node, const glm::dmat4&) override {
    const bool isMesh = dynamic_cast<const CVekActorMesh*>(node) != nullptr;
    text += isMesh ? "m " : "g ";
    text += node->GetName() + "(";
    return true;
  }
  void leave(const CVekAssyNode&) override { text += ")"; }

  std::string text;
};

std::string treeOf(const sglNode& scene) {
  const auto root = embedded::buildAssembly(&scene, "model");
  Scribe scribe;
  embedded::walkAssembly(root.get(), scribe);
  return scribe.text;
}

const CVekActorMesh& onlyMesh(const CVekAssyRoot& root) {
  const CVekAssyNode* node = *root.GetChilds().begin();
  while (const auto* group = dynamic_cast<const CVekAssyGroup*>(node)) node = *group->GetChilds().begin();
  return dynamic_cast<const CVekActorMesh&>(*node);
}

const sglGeode& geodeOf(const CVekActor& actor) { return dynamic_cast<const sglGeode&>(*actor.GetPresentable()); }

TEST(AssemblyBuilder, NoSceneIsNoAssembly) { EXPECT_EQ(embedded::buildAssembly(nullptr, "x"), nullptr); }

TEST(AssemblyBuilder, GroupsTransformsAndBillboardsBecomeGroupsInOrder) {
  auto scene = named(std::make_unique<sglTransform<float>>(), "root");
  scene->addChild(named(std::make_unique<sglGroup>(), "a").release(), true);
  scene->addChild(named(fixtures::triangleGeode(), "mesh").release(), true);
  scene->addChild(named(std::make_unique<sglBillboard>(), "b").release(), true);
  scene->addChild(std::make_unique<sglGroup>().release(), true);
  EXPECT_EQ(treeOf(*scene), "g model(g root(g a()m mesh()g b()g ()))");
}

TEST(AssemblyBuilder, AMeshWithoutANameIsNamedLikeItsGroup) {
  auto group = named(std::make_unique<sglGroup>(), "plate");
  group->addChild(fixtures::triangleGeode().release(), true);
  EXPECT_EQ(treeOf(*group), "g model(g plate(m plate()))");
}

TEST(AssemblyBuilder, GeodesWithoutDrawablesVanish) {
  auto group = std::make_unique<sglGroup>();
  auto nulls = std::make_unique<sglGeode>();
  nulls->addGeometry(nullptr);
  group->addChild(std::make_unique<sglGeode>().release(), true);
  group->addChild(nulls.release(), true);
  EXPECT_EQ(treeOf(*group), "g model(g ())");
}

TEST(AssemblyBuilder, LevelsAndSwitchesStandForWhatTheyShow) {
  auto scene = named(std::make_unique<sglGroup>(), "s");
  auto lod = named(std::make_unique<sglLOD>(), "lod");
  auto selector = std::make_unique<sglSwitch>();
  for (const char* name : {"a", "b"}) {
    lod->addChild(named(std::make_unique<sglGroup>(), name).release(), true);
    selector->addChild(named(std::make_unique<sglGroup>(), name).release(), true);
  }
  selector->setSelectedChild(1);
  sglSwitch& choice = *selector;
  scene->addChild(lod.release(), true);
  scene->addChild(selector.release(), true);
  EXPECT_EQ(treeOf(*scene), "g model(g s(g a()g b()))");
  choice.setSelectedChild(-2);
  EXPECT_EQ(treeOf(*scene), "g model(g s(g a()))");
}

TEST(AssemblyBuilder, PlacementsGoToTheGroups) {
  const auto scene = fixtures::placed(fixtures::translation(1, 2, 3), fixtures::triangleGeode());
  const auto root = embedded::buildAssembly(scene.get(), "");
  EXPECT_EQ(root->GetMatLocalToParent(), sglMat4<float>());
  const auto& group = dynamic_cast<const CVekKAssyGroup&>(**root->GetChilds().begin());
  EXPECT_EQ(group.GetMatLocalToParent(), fixtures::translation(1, 2, 3));
  const CVekBBox box = embedded::assemblyBounds(root.get());
  EXPECT_EQ(box.getMin(), (sglVec3<float>{1, 2, 3}));
  EXPECT_EQ(box.getMax(), (sglVec3<float>{2, 3, 3}));
  EXPECT_EQ(embedded::assemblyTriangleCount(root.get()), 1U);
}

TEST(AssemblyBuilder, DrawablesKeepTheirKindButPrimitivesBecomeTriangles) {
  auto geode = std::make_unique<sglGeode>();
  geode->addGeometry(fixtures::triangle().release());
  geode->addGeometry(new sglIndexedTriangleStripSet);
  geode->addGeometry(new sglMonoIndexedTriangleStripSet);
  geode->addGeometry(new sglTriangleSet);
  geode->addGeometry(new sglCube(1, 1, 1));
  auto root = embedded::buildAssembly(geode.get(), "");
  geode.reset();
  const sglGeode& built = geodeOf(onlyMesh(*root));
  std::vector<unsigned> kinds;
  for (unsigned i = 0; i < built.getNumGeometries(); ++i) {
    kinds.push_back(dynamic_cast<const sglGeoSet&>(*built.getGeometry(i)).getPrimType());
  }
  EXPECT_EQ(kinds, (std::vector<unsigned>{12, 14, 23, 3, 12}));
  EXPECT_EQ(built.getGeometry(0)->getState(0)->getStatelets().size(), 1U);
}

TEST(AssemblyBuilder, ListsAreSharedWithTheScene) {
  auto set = fixtures::triangle();
  const sglRef<sglDataPtr> coords(set->getCoordList());
  const auto scene = fixtures::geodeOf(std::move(set));
  const auto root = embedded::buildAssembly(scene.get(), "");
  EXPECT_EQ(dynamic_cast<const sglGeoSet&>(*geodeOf(onlyMesh(*root)).getGeometry(0)).getCoordList(), coords.get());
}

TEST(AssemblyBuilder, AMeshHasTheImageFileOfItsDrawables) {
  const sglRef<sglTexture2D> wood(new sglTexture2D);
  wood->setFileName("maps/wood.png");
  const sglRef<sglTexture2D> stone(new sglTexture2D);
  stone->setFileName("maps/stone.png");
  const sglRef<sglTexture2D> generated(new sglTexture2D);
  struct Row {
    const char* name;
    std::vector<sglTexture2D*> textures;  // of the geode's drawables
    std::vector<const char*> meshes;      // the image file and the number of drawables of each mesh
  };
  const Row rows[] = {
      {"on all", {wood.get(), wood.get()}, {"wood.png 2"}},
      {"on one of two", {wood.get(), nullptr}, {"wood.png 1", " 1"}},
      {"on the second of two", {nullptr, wood.get()}, {" 1", "wood.png 1"}},
      {"two files in turn",
       {wood.get(), stone.get(), wood.get(), nullptr, stone.get(), wood.get()},
       {"wood.png 3", "stone.png 2", " 1"}},
      {"a file and one from none", {generated.get(), wood.get()}, {" 1", "wood.png 1"}},
      {"one from no file, and none", {generated.get(), nullptr}, {" 2"}},
      {"none", {nullptr}, {" 1"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    auto geode = named(std::make_unique<sglGeode>(), "plate");
    for (sglTexture2D* texture : row.textures) {
      auto set = fixtures::triangle();
      if (texture != nullptr) set->setState(0, {sglRef<sglStatelet>(texture)});
      geode->addGeometry(set.release());
    }
    const auto root = embedded::buildAssembly(geode.get(), "");
    std::vector<std::string> meshes;
    for (const CVekAssyNode* node : root->GetChilds()) {
      const auto& mesh = dynamic_cast<const CVekActorMesh&>(*node);
      EXPECT_EQ(mesh.GetName(), "plate");
      EXPECT_EQ(geodeOf(mesh).getName(), "plate");
      const auto* path = embedded::propertyOf<CVekPropPath>(mesh.GetProperties(), embedded::kMapPath);
      EXPECT_EQ(mesh.HasTexture(), path != nullptr);
      const std::filesystem::path file = path == nullptr ? "" : path->GetValue();
      if (path != nullptr) {
        EXPECT_EQ(file.parent_path(), std::filesystem::absolute("maps"));
      }
      meshes.push_back(file.filename().string() + " " + std::to_string(geodeOf(mesh).getNumGeometries()));
    }
    EXPECT_EQ(meshes, std::vector<std::string>(row.meshes.begin(), row.meshes.end()));
  }
}

TEST(AssemblyBuilder, ADeepSceneIsBuiltOnAnOrdinaryStack) {
  const auto scene = fixtures::deepScene(200'000);
  const auto root = embedded::buildAssembly(scene.get(), "");
  EXPECT_EQ(embedded::assemblyTriangleCount(root.get()), 1U);
}

TEST(AssemblyWalk, HiddenActorsDoNotShow) {
  auto root = std::make_unique<CVekAssyRoot>();
  auto* mesh = new CVekActorMesh;
  mesh->SetPresentable(fixtures::triangleGeode().release());
  mesh->SetMatLocalToParent(fixtures::translation(5, 0, 0));
  root->AddChild(mesh);
  root->AddChild(nullptr);
  EXPECT_EQ(embedded::assemblyBounds(root.get()).getMin(), (sglVec3<float>{5, 0, 0}));
  mesh->SetDisplayed(false);
  EXPECT_TRUE(embedded::assemblyBounds(root.get()).isEmpty());
  EXPECT_EQ(embedded::assemblyTriangleCount(root.get()), 0U);
  EXPECT_TRUE(embedded::assemblyBounds(nullptr).isEmpty());
}

TEST(Camera, SeesEveryCornerOfTheBox) {
  CVekBBox box;
  box.expandToInclude({100, 200, -50});
  box.expandToInclude({110, 260, -20});
  const auto camera = embedded::cameraForBox(box);
  EXPECT_TRUE(camera->IsPerspective());
  const double limit = std::tan(camera->GetFOVPaper() / 2);
  const CVekFrame& frame = camera->GetFrameInParent();
  const auto dot = [](const sglVec3<float>& a, const sglVec3<float>& b) {
    return double{a.x} * double{b.x} + double{a.y} * double{b.y} + double{a.z} * double{b.z};
  };
  EXPECT_NEAR(dot(frame.GetVx(), frame.GetVx()), 1.0, 1e-6);
  EXPECT_NEAR(dot(frame.GetVx(), frame.GetVy()), 0.0, 1e-6);
  EXPECT_NEAR(dot(frame.GetVy(), frame.GetVz()), 0.0, 1e-6);
  EXPECT_GT(frame.GetVy().z, 0.0F);
  for (unsigned corner = 0; corner < 8; ++corner) {
    const sglVec3<float> eye = frame.GetOrigin();
    const sglVec3<float> d{((corner & 1U) != 0 ? 110.0F : 100.0F) - eye.x,
                           ((corner & 2U) != 0 ? 260.0F : 200.0F) - eye.y,
                           ((corner & 4U) != 0 ? -20.0F : -50.0F) - eye.z};
    const double depth = -dot(d, frame.GetVz());
    EXPECT_GT(depth, 0.0);
    EXPECT_LT(std::abs(dot(d, frame.GetVx())) / depth, limit);
    EXPECT_LT(std::abs(dot(d, frame.GetVy())) / depth, limit);
  }
}

TEST(Camera, AnEmptyBoxOrOneWithoutEndIsNoTrouble) {
  EXPECT_TRUE(std::isfinite(embedded::cameraForBox(CVekBBox())->GetFrameInParent().GetOrigin().x));
  CVekBBox endless;
  endless.expandToInclude({INFINITY, 0, 0});
  endless.expandToInclude({0, 0, 0});
  EXPECT_TRUE(std::isfinite(embedded::cameraForBox(endless)->GetFrameInParent().GetOrigin().x));
}

TEST(Stager, MadeAroundAnAssemblyItHasAViewportWithACamera) {
  const auto stager = embedded::makeStager(nullptr);
  EXPECT_EQ(stager->GetSceneManager()->GetAssyRoot(), nullptr);
  const CVekViewport* viewport = stager->GetViewportManager()->GetViewportSelected();
  ASSERT_NE(viewport, nullptr);
  EXPECT_NE(viewport->GetNavigator()->GetCamera(), nullptr);
  EXPECT_EQ(int{viewport->GetRenderer()->GetBkColor()[0]}, 0);
}

}  // namespace
