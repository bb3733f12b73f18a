// Looking nodes up by their DEF names, while the tree changes.

#include "vrml/reader/NameIndex.h"

#include <gtest/gtest.h>

#include <memory>

#include "ReaderTesting.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
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
}

}  // namespace
}  // namespace vrml
