// The walk visits in order, with world matrices, at any depth.

#include "embedded/SceneWalk.h"

#include <VekSG/sglLOD.h>
#include <VekSG/sglSwitch.h>
#include <gtest/gtest.h>

#include "tests/embedded/SceneFixtures.h"

namespace {

using embedded::SceneChoice;

// Writes down what it sees.
class Scribe : public embedded::SceneVisitor {
 public:
  bool enter(const sglNode& node, const glm::dmat4& world) override {
    text += "<" + node.getName();
    if (world[3].x != 0.0) text += "@" + std::to_string(static_cast<int>(world[3].x));
    const bool enters = node.getName() != "stop";
    if (!enters) text += "|";
    return enters;
  }
  void leave(const sglNode&) override { text += ">"; }

  std::string text;
};

std::unique_ptr<sglNode> named(std::unique_ptr<sglNode> node, const std::string& name) {
  node->setName(name);
  return node;
}

template <class Group>
std::unique_ptr<Group> three() {
  auto group = std::make_unique<Group>();
  for (const char* name : {"a", "b", "c"}) group->addChild(named(std::make_unique<sglGroup>(), name).release(), true);
  return group;
}

std::string walked(const sglNode* scene, SceneChoice choice) {
  Scribe scribe;
  embedded::walkScene(scene, choice, scribe);
  return scribe.text;
}

TEST(SceneWalk, ChildrenComeInOrderAndNullIsNoScene) {
  EXPECT_EQ(walked(three<sglGroup>().get(), SceneChoice::Everything), "<<a><b><c>>");
  EXPECT_EQ(walked(nullptr, SceneChoice::Everything), "");
}

TEST(SceneWalk, WhatShowsIsTheFirstLevelAndTheSelectedChoice) {
  EXPECT_EQ(walked(three<sglLOD>().get(), SceneChoice::Shown), "<<a>>");
  EXPECT_EQ(walked(three<sglLOD>().get(), SceneChoice::Everything), "<<a><b><c>>");
  const auto selector = three<sglSwitch>();
  EXPECT_EQ(walked(selector.get(), SceneChoice::Shown), "<<a><b><c>>");
  selector->setSelectedChild(1);
  EXPECT_EQ(walked(selector.get(), SceneChoice::Shown), "<<b>>");
  EXPECT_EQ(walked(selector.get(), SceneChoice::Everything), "<<a><b><c>>");
  for (const int none : {-2, 3, -100}) {
    selector->setSelectedChild(none);
    EXPECT_EQ(walked(selector.get(), SceneChoice::Shown), "<>") << none;
  }
  EXPECT_EQ(walked(std::make_unique<sglLOD>().get(), SceneChoice::Shown), "<>");
}

TEST(SceneWalk, MatricesAddUpAndAreTakenBack) {
  auto group = std::make_unique<sglGroup>();
  auto inner = fixtures::placed(fixtures::translation(2, 0, 0), named(std::make_unique<sglGroup>(), "x"));
  auto stop = fixtures::placed(fixtures::translation(7, 0, 0), named(std::make_unique<sglGroup>(), "never"));
  stop->setName("stop");
  group->addChild(fixtures::placed(fixtures::translation(1, 0, 0), std::move(inner)).release(), true);
  group->addChild(stop.release(), true);
  group->addChild(named(std::make_unique<sglGroup>(), "y").release(), true);
  EXPECT_EQ(walked(group.get(), SceneChoice::Everything), "<<@1<@3<x@3>>><stop@7|<y>>");
}

TEST(SceneWalk, TheInnerMatrixActsFirst) {
  auto inner = fixtures::placed(fixtures::translation(1, 0, 0), named(std::make_unique<sglGroup>(), "x"));
  const auto outer = fixtures::placed(fixtures::scale(10, 1, 1), std::move(inner));
  EXPECT_EQ(walked(outer.get(), SceneChoice::Everything), "<<@10<x@10>>>");
}

TEST(SceneWalk, AVeryDeepSceneIsWalkedOnAnOrdinaryStack) {
  const auto scene = fixtures::deepScene(500'000);
  EXPECT_EQ(walked(scene.get(), SceneChoice::Shown).size(), 1'000'002U);
}

}  // namespace
