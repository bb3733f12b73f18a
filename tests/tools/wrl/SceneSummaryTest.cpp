// The figures of a scene that is built by hand.

#include "tools/wrl/SceneSummary.h"

#include <VekSG/sglCube.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransform.h>
#include <VekSG/sglTriangleSet.h>
#include <gtest/gtest.h>

#include <memory>

namespace wrl {
namespace {

sglTriangleSet* triangle(const sglStateletList& states) {
  auto* const set = new sglTriangleSet;
  set->setNumPrims(1);
  set->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 2, 0}));
  set->setState(0, states);
  return set;
}

TEST(SceneSummary, of_no_scene_is_empty) {
  const SceneSummary summary = summarizeScene(nullptr);
  EXPECT_TRUE(summary.nodes.empty());
  EXPECT_TRUE(summary.drawables.empty());
  EXPECT_EQ(summary.triangles, 0U);
  EXPECT_TRUE(summary.box.isEmpty());
}

TEST(SceneSummary, counts_every_child_and_each_state_once) {
  const sglRef<sglStatelet> shared = new sglMaterial;
  auto* const geode = new sglGeode;
  geode->addGeometry(triangle({shared, new sglTexture2D}));
  geode->addGeometry(triangle({shared, new sglMaterial}));
  geode->addGeometry(nullptr);
  auto* const hidden = new sglGeode;
  hidden->addGeometry(new sglCube(1, 1, 1));
  auto* const choice = new sglSwitch;
  choice->setSelectedChild(sglSwitch::SELECT_NONE);
  choice->addChild(hidden, true);
  const auto root = std::make_unique<sglTransform<float>>();
  sglMat4<float> matrix;
  matrix(3, 0) = 10;
  root->setMatrix(matrix);
  root->addChild(geode, true);
  root->addChild(choice, true);

  const SceneSummary summary = summarizeScene(root.get());
  EXPECT_EQ(summary.nodes, (TypeCounts{{"sglGeode", 2}, {"sglSwitch", 1}, {"sglTransform", 1}}));
  EXPECT_EQ(summary.drawables, (TypeCounts{{"sglCube", 1}, {"sglTriangleSet", 2}}));
  EXPECT_EQ(summary.triangles, 14U);
  EXPECT_EQ(summary.materials, 2);
  EXPECT_EQ(summary.textures, 1);
  EXPECT_EQ(summary.box.getMin(), (sglVec3<float>{10, 0, 0}));
  EXPECT_EQ(summary.box.getMax(), (sglVec3<float>{11, 2, 1}));
}

}  // namespace
}  // namespace wrl
