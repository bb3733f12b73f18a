// Groups own their children, one group a node, at any depth.

#include <VekSG/sglBillboard.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglSwitch.h>
#include <gtest/gtest.h>

#include "tests/embedded/SceneFixtures.h"

namespace {

// Counts its destructions.
class Probe : public sglGroup {
 public:
  explicit Probe(int& destroyed) : m_destroyed(destroyed) {}
  ~Probe() override { ++m_destroyed; }

 private:
  int& m_destroyed;
};

TEST(Nodes, AGroupKeepsItsChildrenInOrderAndDestroysThem) {
  int destroyed = 0;
  {
    sglGroup group;
    auto* first = new Probe(destroyed);
    auto* second = new Probe(destroyed);
    group.addChild(first, true);
    group.addChild(second, true);
    EXPECT_EQ(group.getNumChildren(), 2U);
    EXPECT_EQ(group.getChild(0), first);
    EXPECT_EQ(group.getChild(1), second);
    EXPECT_EQ(group.getChild(2), nullptr);
    EXPECT_EQ(second->getParent(), &group);
  }
  EXPECT_EQ(destroyed, 2);
}

TEST(Nodes, AddingTakesAChildFromTheGroupThatHoldsIt) {
  sglGroup from;
  sglGroup to;
  auto* child = new sglGroup;
  from.addChild(child, true);
  to.addChild(child, true);
  EXPECT_EQ(from.getNumChildren(), 0U);
  EXPECT_EQ(to.getNumChildren(), 1U);
  EXPECT_FALSE(from.removeChild(child));
  EXPECT_EQ(to.getNumChildren(), 1U);
}

TEST(Nodes, NullTheGroupItselfAndAChildThatIsThereChangeNothing) {
  sglGroup group;
  auto* child = new sglGroup;
  group.addChild(child, true);
  group.addChild(child, true);
  group.addChild(nullptr, true);
  group.addChild(&group, true);
  EXPECT_EQ(group.getNumChildren(), 1U);
  EXPECT_FALSE(group.removeChild(nullptr));
  EXPECT_FALSE(group.removeChild(&group));
}

TEST(Nodes, ARemovedChildLivesOnAndBelongsToTheCaller) {
  int destroyed = 0;
  sglGroup group;
  auto* child = new Probe(destroyed);
  group.addChild(child, true);
  EXPECT_TRUE(group.removeChild(child));
  EXPECT_EQ(destroyed, 0);
  EXPECT_EQ(child->getParent(), nullptr);
  delete child;
  EXPECT_EQ(destroyed, 1);
}

TEST(Nodes, ANodeThatIsDeletedLeavesItsGroup) {
  sglGroup group;
  auto* child = new sglGroup;
  group.addChild(child, true);
  delete child;
  EXPECT_EQ(group.getNumChildren(), 0U);
}

TEST(Nodes, AVeryDeepTreeIsDestroyedOnAnOrdinaryStack) {
  int destroyed = 0;
  auto* bottom = new Probe(destroyed);
  sglNode* top = bottom;
  for (int i = 0; i < 1'000'000; ++i) {
    auto* group = new sglGroup;
    group->addChild(top, true);
    top = group;
  }
  delete top;
  EXPECT_EQ(destroyed, 1);
}

TEST(Nodes, RangesGrowWithTheHighestIndex) {
  sglLOD lod;
  EXPECT_EQ(lod.getNumRanges(), 0U);
  lod.setRange(2, 7.5F);
  lod.setRange(0, 1.0F);
  EXPECT_EQ(lod.getNumRanges(), 3U);
  EXPECT_EQ(lod.getRange(0), 1.0F);
  EXPECT_EQ(lod.getRange(1), 0.0F);
  EXPECT_EQ(lod.getRange(2), 7.5F);
  EXPECT_EQ(lod.getRange(3), 0.0F);
  lod.setRange(0xFFFFFFFFU, 1.0F);
  EXPECT_EQ(lod.getNumRanges(), 3U);
}

TEST(Nodes, SwitchesAndBillboardsKeepWhatTheyAreGiven) {
  sglSwitch selector;
  selector.setSelectedChild(-17);
  EXPECT_EQ(selector.getSelectedChild(), -17);
  sglBillboard billboard;
  billboard.setAxis({1.0, 2.0, 3.0});
  billboard.setMode(sglBillboard::AXIAL);
  EXPECT_EQ(billboard.getAxis(), (sglVec3<double>{1.0, 2.0, 3.0}));
  EXPECT_EQ(billboard.getMode(), 2U);
}

TEST(Nodes, AGeodeOwnsItsDrawablesAndKeepsThePlaceOfANullOne) {
  sglGeode geode;
  auto* drawable = fixtures::triangle().release();
  geode.addGeometry(nullptr);
  geode.addGeometry(drawable);
  EXPECT_EQ(geode.getNumGeometries(), 2U);
  EXPECT_EQ(geode.getGeometry(0), nullptr);
  EXPECT_EQ(geode.getGeometry(1), drawable);
  EXPECT_EQ(geode.getGeometry(2), nullptr);
}

}  // namespace
