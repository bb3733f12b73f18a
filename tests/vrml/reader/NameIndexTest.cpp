// Looking nodes up by their DEF names, while the tree changes.

#include "vrml/reader/NameIndex.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ReaderTesting.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/PointLightNode.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

Node* named(const char* name) {
  Node* const node = createNode("Group");
  node->setName(name);
  return node;
}

TEST(NameIndex, finds_the_first_bearer) {
  Parser parser;
  Node* const a = named("a");
  Node* const b = named("b");
  Node* const again = named("a");
  parser.addNode(a);
  parser.addNode(b);
  b->addChildNode(again);
  EXPECT_EQ(parser.findNodeByName("a"), a);
  EXPECT_EQ(parser.findNodeByName("b"), b);
  EXPECT_EQ(parser.findNodeByName("c"), nullptr);
  EXPECT_EQ(parser.findNodeByName(""), nullptr);
}

TEST(NameIndex, follows_nodes_as_they_come_and_go) {
  Parser parser;
  parser.addNode(named("x"));
  Node* const group = named("group");
  parser.addNode(group);
  EXPECT_EQ(parser.findNodeByName("a"), nullptr);
  Node* const late = named("a");
  parser.addNode(late);
  EXPECT_EQ(parser.findNodeByName("a"), late);
  Node* const early = named("a");
  group->addChildNode(early);
  EXPECT_EQ(parser.findNodeByName("a"), early) << "it stands in front of the other one";
  early->remove();
  EXPECT_EQ(parser.findNodeByName("a"), late);
  delete early;
  delete late;
  EXPECT_EQ(parser.findNodeByName("a"), nullptr);
}

TEST(NameIndex, follows_renaming) {
  Parser parser;
  Node* const node = named("a");
  parser.addNode(node);
  EXPECT_EQ(parser.findNodeByName("a"), node);
  node->setName("b");
  EXPECT_EQ(parser.findNodeByName("a"), nullptr);
  EXPECT_EQ(parser.findNodeByName("b"), node);
  node->setName("");
  EXPECT_EQ(parser.findNodeByName("b"), nullptr);
}

TEST(NameIndex, gives_the_source_of_a_reference) {
  Parser parser;
  Node* const source = named("a");
  parser.addNode(source);
  parser.addNode(createReference(*source));
  EXPECT_EQ(parser.findNodeByName("a"), source);
}

TEST(NameIndex, finds_an_instance_whose_source_has_gone) {
  Parser parser;
  Node* const source = named("a");
  parser.addNode(source);
  Node* const instance = copyNode(source);
  parser.addNode(instance);
  EXPECT_EQ(parser.findNodeByName("a"), source);
  delete source;
  EXPECT_EQ(parser.findNodeByName("a"), instance);
}

TEST(NameIndex, tells_apart_thousands_of_names) {
  Parser parser;
  std::vector<Node*> nodes;
  for (int i = 0; i < 5000; ++i) {
    nodes.push_back(named(("n" + std::to_string(i)).c_str()));
    parser.addNode(nodes.back());
  }
  for (int i = 0; i < 5000; ++i)
    ASSERT_EQ(parser.findNodeByName("n" + std::to_string(i)), nodes[static_cast<std::size_t>(i)]);
  EXPECT_EQ(parser.findNodeByName("n5000"), nullptr);
  EXPECT_TRUE(parser.hasManyNames()) << "hints are taken, in the tests below too";
  for (int i = 4000; i < 5000; ++i) delete nodes[static_cast<std::size_t>(i)];
  EXPECT_EQ(parser.findNodeByName("n4000"), nullptr);
  EXPECT_FALSE(parser.hasManyNames());
}

TEST(NameIndex, takes_hints_of_names_that_are_not_there) {
  NameIndex names;
  names.prefetch("a");
  EXPECT_FALSE(names.isLarge());
  Parser parser;
  parser.prefetchUse("a");
  Node* const node = named("a");
  parser.addNode(node);
  delete node;
  parser.prefetchUse("a");
  parser.prefetchUse("");
  EXPECT_EQ(parser.findNodeByName("a"), nullptr);
}

// What stands behind a USE is looked at for the name of the next one, which may be none, a wrong one, or cut off.
TEST(NameIndex, gives_every_use_among_thousands_its_own_node) {
  constexpr int kCount = 5000;
  const auto name = [](int i) { return "n" + std::to_string(i); };
  std::string text;
  for (int i = 0; i < kCount; ++i) text += "DEF " + name(i) + " PointLight { intensity " + std::to_string(i) + " }\n";
  for (int i = 0; i < kCount; ++i) {
    text += "USE " + name(i * 7 % kCount) + "\n";
    if (i % 3 == 0) text += "# USE " + name(i) + "\n";
    if (i % 5 == 0) text += "WorldInfo { title \"USE nowhere\" info \"USE \" }\n";
  }
  const std::string longName(2000, 'n');
  for (const std::string& end : {std::string(), std::string("#USE "), std::string("#USE n"), std::string("#USE"),
                                 "#USE " + longName, std::string("USE n1")}) {
    SceneGraph scene;
    readertest::loadText(scene, text + end);
    ASSERT_TRUE(scene.succeeded());
    int uses = 0;
    for (Node* node = scene.getRoot()->getFirstChild("PointLight"); node; node = node->next("PointLight")) {
      if (!node->getReferenceNode()) continue;
      const int source = end == "USE n1" && uses == kCount ? 1 : uses * 7 % kCount;
      ASSERT_EQ(node->getName(), name(source));
      ASSERT_EQ(static_cast<PointLightNode&>(*node).getIntensity(), static_cast<float>(source));
      ++uses;
    }
    EXPECT_EQ(uses, end == "USE n1" ? kCount + 1 : kCount);
  }
}

}  // namespace
}  // namespace vrml
