// The assembly tree and the application around it.

#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekStager.h>
#include <gtest/gtest.h>

#include "tests/embedded/SceneFixtures.h"

namespace {

TEST(Assembly, ChildrenAreOrderedByCreationWhateverTheOrderOfAdding) {
  CVekAssyRoot root;
  auto* first = new CVekActorMesh;
  auto* second = new CVekKAssyGroup;
  auto* third = new CVekActor;
  EXPECT_LT(root.GetIdentity(), first->GetIdentity());
  root.AddChild(third);
  root.AddChild(first);
  root.AddChild(second);
  root.AddChild(nullptr);
  root.AddChild(nullptr);
  root.AddChild(first);
  root.AddChild(&root);
  const std::vector<CVekAssyNode*> children(root.GetChilds().begin(), root.GetChilds().end());
  EXPECT_EQ(children, (std::vector<CVekAssyNode*>{nullptr, first, second, third}));
}

TEST(Assembly, AVeryDeepTreeIsDestroyedOnAnOrdinaryStack) {
  auto root = std::make_unique<CVekAssyRoot>();
  CVekAssyGroup* at = root.get();
  for (int i = 0; i < 500'000; ++i) {
    auto* group = new CVekKAssyGroup;
    at->AddChild(group);
    at = group;
  }
  root.reset();
}

TEST(Assembly, KindsAreToldApartByRunTimeType) {
  const std::unique_ptr<CVekAssyNode> root = std::make_unique<CVekAssyRoot>();
  EXPECT_NE(dynamic_cast<CVekKAssyGroup*>(root.get()), nullptr);
  const std::unique_ptr<CVekAssyNode> plain = std::make_unique<CVekAssyGroup>();
  EXPECT_EQ(dynamic_cast<CVekKAssyGroup*>(plain.get()), nullptr);
  const std::unique_ptr<CVekAssyNode> mesh = std::make_unique<CVekActorMesh>();
  EXPECT_NE(dynamic_cast<CVekDraw*>(mesh.get()), nullptr);
}

TEST(Assembly, AnActorOwnsItsPresentableAndItsTextures) {
  CVekActorMesh actor;
  EXPECT_EQ(actor.GetPresentable(), nullptr);
  EXPECT_TRUE(actor.IsDisplayed());
  EXPECT_FALSE(actor.HasTexture());
  actor.SetPresentable(fixtures::triangleGeode().release());
  actor.SetPresentable(actor.GetPresentable());
  actor.SetPresentable(new sglGeode);
  actor.SetTexture(1, std::make_unique<CVekTexture>());
  EXPECT_EQ(actor.GetTexture(0), nullptr);
  EXPECT_NE(actor.GetTexture(1), nullptr);
  EXPECT_TRUE(actor.HasTexture());
  actor.SetTexture(1, nullptr);
  actor.SetTexture(4'000'000'000U, std::make_unique<CVekTexture>());
  EXPECT_FALSE(actor.HasTexture());
  actor.SetDisplayed(false);
  EXPECT_FALSE(actor.IsDisplayed());
}

TEST(Assembly, NamesPropertiesAndTheAccessBracket) {
  CVekAssyRoot root;
  root.SetName("Motor");
  EXPECT_EQ(root.GetName(), "Motor");
  const CVekPropID id = GetPropIDServer().GetID("Texture.Map.Path");
  root.GetProperties()->SetProperty(id, std::make_unique<CVekPropPath>("a.png"));
  EXPECT_NE(root.GetProperties()->GetProperty(id), nullptr);
  root.BeginAccess(true);
  root.BeginAccess(true);
  root.EndAccess(true);
  root.EndAccess(true);
}

TEST(Stager, BeginsWithBothManagersAndNothingInThem) {
  CVekStager stager;
  EXPECT_EQ(stager.GetSceneManager()->GetAssyRoot(), nullptr);
  EXPECT_EQ(stager.GetViewportManager()->GetViewportSelected(), nullptr);
  ASSERT_NE(stager.GetViewportManager()->GetViews(), nullptr);
  EXPECT_EQ(stager.GetViewportManager()->GetViews()->GetCount(), 0U);
}

TEST(Stager, OwnsWhatItIsGiven) {
  CVekStager stager;
  stager.GetSceneManager()->SetAssyRoot(std::make_unique<CVekAssyRoot>());
  auto viewport = std::make_unique<CVekViewport>();
  EXPECT_EQ(viewport->GetNavigator()->GetCamera(), nullptr);
  viewport->GetNavigator()->SetCamera(std::make_unique<CVekCamera>());
  EXPECT_TRUE(viewport->GetNavigator()->GetCamera()->IsPerspective());
  EXPECT_NEAR(viewport->GetNavigator()->GetCamera()->GetFOVPaper(), 0.785398, 1e-6);
  CVekViewportManager& manager = *stager.GetViewportManager();
  manager.SetViewportSelected(std::move(viewport));
  manager.AddView(std::make_unique<CVekView>());
  manager.AddView(nullptr);
  EXPECT_EQ(manager.GetViews()->GetCount(), 2U);
  manager.RemoveViewList();
  EXPECT_EQ(manager.GetViews(), nullptr);
  manager.RemoveViewList();
  manager.AddView(std::make_unique<CVekView>());
  EXPECT_EQ((*manager.GetViews()->begin())->GetNavigatorProperties(), nullptr);
}

}  // namespace
