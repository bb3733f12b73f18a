// Merging a scene into one object.

#include <VekKernel/CVekOptimizer.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglSwitch.h>
#include <gtest/gtest.h>

#include "embedded/SceneMeasure.h"
#include "tests/embedded/SceneFixtures.h"

namespace {

using fixtures::floatsOf;
using fixtures::unsignedsOf;

std::unique_ptr<sglGroup> merged(std::unique_ptr<sglNode> scene) {
  return std::unique_ptr<sglGroup>(CVekOptimizer().FactorizeGraph(scene.release(), "merged"));
}

const sglGeode& geodeOf(const sglGroup& group) { return dynamic_cast<const sglGeode&>(*group.getChild(0)); }

const sglIndexedTriangleSet& setOf(const sglGroup& group, unsigned index) {
  return dynamic_cast<const sglIndexedTriangleSet&>(*geodeOf(group).getGeometry(index));
}

TEST(Optimizer, NullGivesNull) { EXPECT_EQ(CVekOptimizer().FactorizeGraph(nullptr, ""), nullptr); }

TEST(Optimizer, ASceneBecomesOneNamedGroupWithOneGeode) {
  auto scene = std::make_unique<sglGroup>();
  scene->addChild(fixtures::triangleGeode().release(), true);
  scene->addChild(fixtures::placed(fixtures::translation(5, 0, 0), fixtures::triangleGeode()).release(), true);
  const auto group = merged(std::move(scene));
  EXPECT_EQ(group->getName(), "merged");
  ASSERT_EQ(group->getNumChildren(), 1U);
  ASSERT_EQ(geodeOf(*group).getNumGeometries(), 2U);
  EXPECT_EQ(floatsOf(setOf(*group, 0).getCoordList()), (std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0}));
  EXPECT_EQ(floatsOf(setOf(*group, 1).getCoordList()), (std::vector<float>{5, 0, 0, 6, 0, 0, 5, 1, 0}));
}

TEST(Optimizer, AnEmptyGraphKeepsAnEmptyGeode) {
  const auto group = merged(std::make_unique<sglGroup>());
  EXPECT_EQ(geodeOf(*group).getNumGeometries(), 0U);
}

TEST(Optimizer, NestedPlacementsActFromTheInside) {
  auto inner = fixtures::placed(fixtures::scale(2, 2, 2), fixtures::triangleGeode());
  const auto group = merged(fixtures::placed(fixtures::translation(1, 0, 0), std::move(inner)));
  EXPECT_EQ(floatsOf(setOf(*group, 0).getCoordList()), (std::vector<float>{1, 0, 0, 3, 0, 0, 1, 2, 0}));
}

TEST(Optimizer, NormalsStayPerpendicularAndKeepTheirLength) {
  auto set = fixtures::triangle();
  set->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, 1, 0, -1, 0, 1, 0}));
  set->setNormalList(new sglDataPtr(std::vector<float>{1, 0, 1, 1, 0, 1, 1, 0, 1}), sglGeoSet::BIND_PER_VERTEX);
  const auto group = merged(fixtures::placed(fixtures::scale(3, 1, 1), fixtures::geodeOf(std::move(set))));
  const std::vector<float> normals = floatsOf(setOf(*group, 0).getNormalList());
  EXPECT_NEAR(normals[0] * 3 + normals[2] * -1, 0.0F, 1e-6F);
  EXPECT_GT(normals[2], 0.0F);
  EXPECT_NEAR(normals[0] * normals[0] + normals[2] * normals[2], 2.0F, 1e-5F);
}

TEST(Optimizer, AMirrorTurnsTheCornersBackAndTheNormalsWithTheFaces) {
  const auto group = merged(fixtures::placed(fixtures::scale(-1, 1, 1), fixtures::triangleGeode()));
  EXPECT_EQ(unsignedsOf(setOf(*group, 0).getCoordIndexList()), (std::vector<std::uint32_t>{0, 2, 1}));
  EXPECT_EQ(unsignedsOf(setOf(*group, 0).getNormalIndexList()), (std::vector<std::uint32_t>{0, 2, 1}));
  EXPECT_EQ(floatsOf(setOf(*group, 0).getNormalList())[2], 1.0F);
}

TEST(Optimizer, OnlyWhatShowsIsKept) {
  auto lod = std::make_unique<sglLOD>();
  lod->addChild(fixtures::triangleGeode().release(), true);
  lod->addChild(fixtures::triangleGeode().release(), true);
  EXPECT_EQ(geodeOf(*merged(std::move(lod))).getNumGeometries(), 1U);
  const std::pair<int, unsigned> rows[] = {{-2, 0}, {-1, 3}, {0, 1}, {2, 1}, {3, 0}, {-5, 0}};
  for (const auto& [selected, drawables] : rows) {
    auto selector = std::make_unique<sglSwitch>();
    for (int i = 0; i < 3; ++i) selector->addChild(fixtures::triangleGeode().release(), true);
    selector->setSelectedChild(selected);
    EXPECT_EQ(geodeOf(*merged(std::move(selector))).getNumGeometries(), drawables) << selected;
  }
}

TEST(Optimizer, StatesDisplayListAndNamesStay) {
  auto set = fixtures::triangle();
  const sglRef<sglMaterial> material(new sglMaterial);
  set->setState(0, {sglRef<sglStatelet>(material)});
  set->setName("plate");
  const auto group = merged(fixtures::geodeOf(std::move(set)));
  ASSERT_NE(setOf(*group, 0).getState(0), nullptr);
  EXPECT_EQ(setOf(*group, 0).getState(0)->getStatelets()[0].get(), material.get());
  EXPECT_EQ(material->getRefCount(), 2U);
  EXPECT_TRUE(setOf(*group, 0).isDisplayListEnabled());
  EXPECT_EQ(setOf(*group, 0).getName(), "plate");
}

TEST(Optimizer, PrimitivesBecomeTrianglesAndKeepTheirOverallColour) {
  auto cube = std::make_unique<sglCube>(1.0F, 2.0F, 3.0F);
  cube->setColorList(new sglDataPtr(std::vector<float>{1, 0, 0, 1}), sglGeoSet::BIND_OVERALL);
  const auto group =
      merged(fixtures::placed(fixtures::translation(-0.5F, -1, -1.5F), fixtures::geodeOf(std::move(cube))));
  EXPECT_EQ(setOf(*group, 0).getNumPrims(), 12U);
  EXPECT_EQ(floatsOf(setOf(*group, 0).getColorList()), (std::vector<float>{1, 0, 0, 1}));
  EXPECT_EQ(setOf(*group, 0).getColorBinding(), sglGeoSet::BIND_OVERALL);
  const CVekBBox box = embedded::sceneBounds(group.get(), embedded::SceneChoice::Shown);
  EXPECT_EQ(box.getMin(), (sglVec3<float>{-0.5F, -1, -1.5F}));
  EXPECT_EQ(box.getMax(), (sglVec3<float>{0.5F, 1, 1.5F}));
}

TEST(Optimizer, ListsThatDrawablesShareAreMovedOnce) {
  auto geode = std::make_unique<sglGeode>();
  auto first = fixtures::triangle();
  auto second = fixtures::triangle();
  second->setCoordList(first->getCoordList());
  geode->addGeometry(first.release());
  geode->addGeometry(second.release());
  const auto group = merged(fixtures::placed(fixtures::translation(1, 0, 0), std::move(geode)));
  EXPECT_EQ(setOf(*group, 0).getCoordList(), setOf(*group, 1).getCoordList());
  EXPECT_NE(setOf(*group, 0).getNormalList(), setOf(*group, 1).getNormalList());
}

TEST(Optimizer, ADeepSceneIsMergedAndDestroyed) {
  EXPECT_EQ(geodeOf(*merged(fixtures::deepScene(300'000))).getNumGeometries(), 1U);
}

}  // namespace
