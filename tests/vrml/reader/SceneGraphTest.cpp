// The scene: references resolved into instances, saving, and the bound nodes.

#include "vrml/reader/SceneGraph.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "ReaderTesting.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/nodes/TransformNode.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::kHeader;
using readertest::loaded;
using readertest::loadText;
using readertest::notesOf;
using readertest::TemporaryFolder;
using readertest::verdict;
using readertest::written;

// The types and names of a tree in document order: "Group(a)[Shape Sphere]".
std::string outline(const Node* parent) {
  std::string text;
  for (const Node* node = parent->getChildNodes(); node; node = node->next()) {
    if (!text.empty()) text += ' ';
    text += node->getTypeName();
    if (node->getReferenceNode()) text += '*';
    if (node->hasName()) text += "(" + node->getName() + ")";
    if (node->getChildNodes()) text += "[" + outline(node) + "]";
  }
  return text;
}

std::string resolvedOutline(std::string_view text) {
  SceneGraph scene;
  loadText(scene, text);
  return scene.succeeded() ? outline(scene.getRoot()) : verdict(scene);
}

TEST(SceneGraph, puts_a_reference_into_the_tree_while_parsing) {
  SceneGraph scene;
  loadText(scene, "DEF a Transform { } USE a", false);
  EXPECT_EQ(scene.getNodeCount(), 2);
  Node* const reference = scene.getRoot()->getChild(1);
  EXPECT_TRUE(reference->isInstanceNode());
  EXPECT_EQ(reference->getReferenceNode(), scene.getRoot()->getChild(0));
  EXPECT_EQ(reference->getName(), "a");
}

TEST(SceneGraph, resolves_references_in_their_places) {
  struct Row {
    const char* name;
    const char* text;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"at the top", "DEF a Shape { } USE a Group { }", "Shape(a) Shape*(a) Group"},
           {"among siblings", "DEF a Shape { } Switch { choice [ USE a Group { } USE a ] }",
            "Shape(a) Switch[Shape*(a) Group Shape*(a)]"},
           {"with children", "DEF a Group { children [ DEF b Shape { geometry Sphere { } } ] } USE a",
            "Group(a)[Shape(b)[Sphere]] Group*(a)[Shape*(b)[Sphere*]]"},
           {"of references", "DEF a Group { children [ DEF b Shape { } USE b ] } DEF c Group { children USE a } USE c",
            "Group(a)[Shape(b) Shape*(b)] Group(c)[Group*(a)[Shape*(b) Shape*(b)]] Group*(c)[Group*(a)[Shape*(b) "
            "Shape*(b)]]"},
           {"of a reference itself", "DEF a Shape { } USE a USE a", "Shape(a) Shape*(a) Shape*(a)"},
           {"inside itself", "DEF a Switch { choice [ Shape { } USE a ] }", "Switch(a)[Shape Switch*(a)[Shape*]]"},
           {"inside itself, in front", "DEF a Switch { choice [ USE a Shape { } ] }",
            "Switch(a)[Switch*(a)[Shape*] Shape]"},
           {"twice inside itself", "DEF a Switch { choice [ Shape { } USE a USE a ] }",
            "Switch(a)[Shape Switch*(a)[Shape*] Switch*(a)[Shape* Switch*(a)[Shape*]]]"},
           {"of the first of two bearers", "DEF a Shape { } DEF a Group { } USE a", "Shape(a) Group(a) Shape*(a)"},
           {"as a member", "Shape { geometry DEF g Sphere { } } Shape { geometry USE g }",
            "Shape[Sphere(g)] Shape[Sphere*(g)]"},
           {"not of a Box", "Shape { geometry DEF b Box { } } Shape { geometry USE b }",
            "Shape[Box(b)] Shape[DEF*(b)]"},
           {"without a Box", "DEF s Shape { geometry Box { } } USE s", "Shape(s)[Box] Shape*(s)"},
           {"of a script", "DEF s Script { field SFFloat x 1 } USE s", "Script(s) Script*(s)"},
       })
    EXPECT_EQ(resolvedOutline(row.text), row.expected) << row.name;
}

TEST(SceneGraph, resolves_references_in_a_proxy) {
  SceneGraph scene;
  loadText(scene, "DEF a Shape { } Collision { proxy Group { children [ USE a DEF b Shape { } ] } children USE b }");
  const Node* const collision = scene.getRoot()->getChild(1);
  EXPECT_EQ(outline(collision), "Shape*(b)");
  EXPECT_EQ(
      written(scene),
      loaded("DEF a Shape { } Collision { proxy Group { children [ USE a DEF b Shape { } ] } children USE b }", false));
  const Node* const proxy = collision->getFirstChildInRole(fieldKey("proxy"));
  ASSERT_NE(proxy, nullptr);
  EXPECT_EQ(outline(proxy), "Shape*(a) Shape(b)");
}

TEST(SceneGraph, answers_for_an_instance_with_the_values_of_its_source) {
  SceneGraph scene;
  loadText(scene, "DEF t Transform { translation 1 2 3 } USE t");
  auto* const source = static_cast<TransformNode*>(scene.getRoot()->getChild(0));
  auto* const instance = static_cast<TransformNode*>(scene.getRoot()->getChild(1));
  ASSERT_TRUE(instance->isType("Transform"));
  EXPECT_EQ(instance->getTranslation().x(), 1);
  source->setTranslation(7, 8, 9);
  EXPECT_EQ(instance->getTranslation().x(), 7);
}

TEST(SceneGraph, writes_references_back_as_they_were) {
  for (const char* const text :
       {"DEF s Shape {\n}\nUSE s\n", "DEF a Switch {\n\twhichChoice -1\n\tchoice [\n\t\tUSE a\n\t]\n}\n"}) {
    EXPECT_EQ(loaded(text, true), text);
    EXPECT_EQ(loaded(text, false), text);
  }
}

TEST(SceneGraph, keeps_a_reference_whose_source_cannot_be_found) {
  SceneGraph scene;
  Node* const source = createNode("Shape");
  source->setName("gone");
  scene.addNode(createReference(*source));
  delete source;
  EXPECT_TRUE(scene.resolve());
  EXPECT_EQ(outline(scene.getRoot()), "DEF(gone)");
}

TEST(SceneGraph, makes_instances_anew_in_a_later_pass) {
  SceneGraph scene;
  loadText(scene, "DEF a Group { children [ Shape { } ] } USE a DEF b Switch { choice [ Shape { } USE b ] }");
  const std::string before = outline(scene.getRoot());
  EXPECT_TRUE(scene.resolve());
  EXPECT_EQ(outline(scene.getRoot()), before);
  scene.getRoot()->getChild(0)->addChildNode(createNode("Group"));
  EXPECT_TRUE(scene.resolve());
  EXPECT_EQ(outline(scene.getRoot()),
            "Group(a)[Shape Group] Group*(a)[Shape* Group*] Switch(b)[Shape Switch*(b)[Shape*]]");
}

TEST(SceneGraph, reports_the_nodes_of_its_pass) {
  SceneGraph scene;
  loadText(scene, "DEF a Shape { } Group { children USE a }", false);
  std::vector<int> counts;
  scene.resolve([](int count, void* data) { static_cast<std::vector<int>*>(data)->push_back(count); }, &counts);
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 3}));
}

// What is wanted of references is asked for ahead of the walk; these are gone when it comes near.
TEST(SceneGraph, lets_a_callback_take_away_what_was_read) {
  std::string text = "DEF a Group { }\nGroup { children [\n";
  for (int i = 0; i < 20; ++i) text += "USE a\n";
  text += "] }\n";
  for (int i = 0; i < 20; ++i) text += "USE a\n";
  SceneGraph scene;
  const auto takeSecond = [](int, void* data) {
    Node* const second = static_cast<SceneGraph*>(data)->getRoot()->getChild(1);
    if (second && second->getNumChildNodes() == 20) delete second;
  };
  const TemporaryFolder folder;
  scene.load(folder.write("a.wrl", kHeader + text), true, takeSecond, &scene);
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.getNodeCount(), 21);
  for (Node* node = scene.getRoot()->getChild(1); node; node = node->next()) EXPECT_TRUE(node->isType("Group"));
}

TEST(SceneGraph, clears_itself_before_a_load) {
  SceneGraph scene;
  loadText(scene, "DEF a TouchSensor { }\nDEF b TouchSensor { }\nROUTE a.isActive TO b.enabled\nViewpoint { }\n");
  EXPECT_NE(scene.getFirstRoute(), nullptr);
  loadText(scene, "Shape { }");
  EXPECT_EQ(scene.getNodeCount(), 1);
  EXPECT_EQ(scene.getFirstRoute(), nullptr);
  EXPECT_EQ(scene.findNodeByName("a"), nullptr);
  EXPECT_TRUE(scene.boundNodes(BindStack::viewpoint).empty());
}

TEST(SceneGraph, saves_what_it_writes) {
  const TemporaryFolder folder;
  SceneGraph scene;
  loadText(scene,
           "DEF a Shape { } USE a\nDEF t TouchSensor { }\nDEF u TouchSensor { }\nROUTE t.isActive TO u.enabled\n");
  std::ostringstream out;
  scene.write(out);
  std::vector<int> counts;
  ASSERT_TRUE(scene.save(
      folder.path("out.wrl"), [](int count, void* data) { static_cast<std::vector<int>*>(data)->push_back(count); },
      &counts));
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 3, 4, 1, 2, 3, 4}));
  std::ifstream file(folder.path("out.wrl"), std::ios::binary);
  std::stringstream saved;
  saved << file.rdbuf();
  EXPECT_EQ(saved.str(), out.str());
  EXPECT_EQ(saved.str(), std::string(kHeader) +
                             "DEF a Shape {\n}\nUSE a\nDEF t TouchSensor {\n\tenabled TRUE\n}\n"
                             "DEF u TouchSensor {\n\tenabled TRUE\n}\nROUTE t.isActive TO u.enabled\n");
}

TEST(SceneGraph, saves_an_empty_scene_as_the_header_line) {
  const TemporaryFolder folder;
  SceneGraph scene;
  ASSERT_TRUE(scene.save(folder.path("out.wrl")));
  SceneGraph again;
  again.load(folder.path("out.wrl"), true);
  EXPECT_TRUE(again.succeeded());
  EXPECT_EQ(written(again), "");
}

TEST(SceneGraph, replaces_the_file_that_it_saves_to) {
  const TemporaryFolder folder;
  const std::string path = folder.write("out.wrl", std::string(1000, 'x'));
  SceneGraph scene;
  ASSERT_TRUE(scene.save(path));
  EXPECT_EQ(std::filesystem::file_size(path), std::string(kHeader).size());
}

TEST(SceneGraph, saves_nowhere_that_cannot_be_opened) {
  const TemporaryFolder folder;
  SceneGraph scene;
  EXPECT_FALSE(scene.save(folder.path("no/folder/out.wrl")));
  EXPECT_FALSE(scene.save(folder.path("")));
}

TEST(SceneGraph, binds_the_first_node_of_each_kind) {
  SceneGraph scene;
  loadText(scene,
           "Group { children [ Viewpoint { description \"1\" } ] } Viewpoint { } Fog { } NavigationInfo { } Background "
           "{ } Fog { }");
  const Node* const root = scene.getRoot();
  ASSERT_EQ(scene.boundNodes(BindStack::viewpoint).size(), 1u);
  EXPECT_EQ(scene.boundNodes(BindStack::viewpoint)[0], root->getChild(0)->getChildNodes());
  EXPECT_EQ(scene.boundNodes(BindStack::fog), std::vector<Node*>{root->getFirstChild("Fog")});
  EXPECT_EQ(scene.boundNodes(BindStack::navigationInfo), std::vector<Node*>{root->getFirstChild("NavigationInfo")});
  EXPECT_EQ(scene.boundNodes(BindStack::background), std::vector<Node*>{root->getFirstChild("Background")});
}

TEST(SceneGraph, binds_and_unbinds) {
  SceneGraph scene;
  loadText(scene, "Viewpoint { } Viewpoint { } Viewpoint { }");
  Node* const first = scene.getRoot()->getChild(0);
  Node* const second = scene.getRoot()->getChild(1);
  Node* const third = scene.getRoot()->getChild(2);
  scene.bind(BindStack::viewpoint, second, true);
  scene.bind(BindStack::viewpoint, third, true);
  EXPECT_EQ(scene.boundNodes(BindStack::viewpoint), (std::vector<Node*>{third, second, first}));
  scene.bind(BindStack::viewpoint, first, true);
  EXPECT_EQ(scene.boundNodes(BindStack::viewpoint), (std::vector<Node*>{first, third, second}));
  scene.bind(BindStack::viewpoint, third, false);
  EXPECT_EQ(scene.boundNodes(BindStack::viewpoint), (std::vector<Node*>{first, second}));
  scene.bind(BindStack::viewpoint, nullptr, true);
  EXPECT_EQ(scene.boundNodes(BindStack::viewpoint).size(), 2u);
  first->remove();
  EXPECT_EQ(scene.boundNodes(BindStack::viewpoint), std::vector<Node*>{second})
      << "a node that leaves the tree is unbound";
  delete first;
  delete second;
  EXPECT_TRUE(scene.boundNodes(BindStack::viewpoint).empty());
}

TEST(SceneGraph, writes_the_same_bytes_from_what_it_wrote) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, readertest::everyConstruct(), true, false);
  ASSERT_EQ(verdict(scene), "ok");
  const std::string first = written(scene);
  EXPECT_EQ(loaded(first), first);
  EXPECT_EQ(loaded(first, false), first);
}

TEST(SceneGraph, ends_with_instances_before_their_sources) {
  SceneGraph scene;
  loadText(scene, "DEF a Group { children Shape { } } USE a");
  delete scene.getRoot()->getChild(0);
  EXPECT_EQ(outline(scene.getRoot()), "Group(a)[Shape]");
  std::ostringstream out;
  scene.write(out);
  EXPECT_NE(out.str().find("DEF a Group"), std::string::npos) << "it stands for itself now";
}

}  // namespace
}  // namespace vrml
