// Making nodes by type, and again from other nodes: instances, references, and the order in which they may end.

#include "vrml/nodes/NodeFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/TransformNode.h"

namespace vrml {
namespace {

using NodePointer = std::unique_ptr<Node>;

Node& add(Node& parent, const char* typeName, const char* name = "") {
  Node* const node = createNode(typeName);
  node->setName(name);
  EXPECT_TRUE(parent.addChildNode(node));
  return *node;
}

// The types of a subtree: "Group(Shape Shape(Box))".
std::string shapeOf(const Node& top) {
  std::string text = top.getTypeName();
  const Node* node = &top;
  for (;;) {
    if (const Node* const child = node->getChildNodes()) {
      text += "(" + std::string(child->getTypeName());
      node = child;
      continue;
    }
    while (node != &top && !node->next()) {
      text += ")";
      node = node->getParent();
    }
    if (node == &top) return text;
    node = node->next();
    text += " " + std::string(node->getTypeName());
  }
}

TEST(NodeFactory, MakesEveryTypeByNameAndByNumber) {
  for (const char* name : kNodeTypeNames) {
    const NodePointer byName(createNode(name));
    ASSERT_NE(byName, nullptr) << name;
    const NodePointer byNumber(createNode(findNodeType(name)));
    EXPECT_STREQ(byName->getTypeName(), name);
    EXPECT_STREQ(byNumber->getTypeName(), name);
    EXPECT_EQ(findNodeClass(name), &byName->getClass());
    EXPECT_EQ(findNodeClass(findNodeType(name)), &byName->getClass());
  }
  EXPECT_EQ(createNode("NoSuchNode"), nullptr);
  EXPECT_EQ(createNode(""), nullptr);
  EXPECT_EQ(createNode(NodeType::none), nullptr);
  EXPECT_EQ(findNodeClass("LODE"), nullptr);
}

TEST(NodeFactory, CopiesExactlyTheFiftyThreeTypes) {
  int copied = 0;
  for (const char* name : kNodeTypeNames) {
    const NodePointer node(createNode(name));
    const NodePointer copy(copyNode(node.get()));
    const bool hasNone = node->isType("Box") || node->isType("DEF") || node->isType("Root");
    EXPECT_EQ(copy == nullptr, hasNone) << name;
    if (!copy) continue;
    ++copied;
    EXPECT_STREQ(copy->getTypeName(), name);
    EXPECT_EQ(copy->getReferenceNode(), node.get());
  }
  EXPECT_EQ(copied, 53);
  EXPECT_EQ(copyNode(nullptr), nullptr);
}

TEST(NodeFactory, AnInstanceReadsAndChangesItsSourcesValues) {
  TransformNode source;
  source.setName("s");
  const NodePointer copy(copyNode(&source));
  auto& instance = static_cast<TransformNode&>(*copy);
  EXPECT_EQ(instance.getName(), "s");
  source.setTranslation(1, 2, 3);
  source.setCenter(4, 5, 6);
  EXPECT_EQ(instance.getTranslation().z(), 3.0f);
  EXPECT_EQ(instance.getCenter().x(), 4.0f);
  instance.setScale(7, 8, 9);
  instance.setBboxSize(1, 1, 1);
  EXPECT_EQ(source.getScale().y(), 8.0f);
  EXPECT_TRUE(source.hasBboxSize());
  EXPECT_EQ(instance.getExposedField("rotation"), source.getExposedField("rotation"));
  instance.setName("other name");
  EXPECT_EQ(source.getName(), "other_name");
  Field* const added = instance.addEventIn(FieldType::SFBool, "go");
  EXPECT_EQ(source.getEventIn("set_go"), added);
  double own[16];
  double shared[16];
  source.getMatrix(own);
  instance.getMatrix(shared);
  EXPECT_TRUE(std::equal(std::begin(own), std::end(own), std::begin(shared)));
}

TEST(NodeFactory, AnInstanceMadeBeforeTheFirstValueSeesIt) {
  MaterialNode source;
  const NodePointer copy(copyNode(&source));
  source.setShininess(0.75f);
  EXPECT_EQ(static_cast<const MaterialNode&>(*copy).getShininess(), 0.75f);
}

TEST(NodeFactory, AnInstanceOfAnInstanceRefersToTheFirstSource) {
  const NodePointer source(createNode("Group"));
  const NodePointer middle(copyNode(source.get()));
  const NodePointer last(copyNode(middle.get()));
  EXPECT_EQ(middle->getReferenceNode(), source.get());
  EXPECT_EQ(last->getReferenceNode(), source.get());
  const NodePointer reference(createReference(*middle));
  EXPECT_EQ(reference->getReferenceNode(), source.get());
  const NodePointer again(createReference(*reference));
  EXPECT_EQ(again->getReferenceNode(), source.get());
}

TEST(NodeFactory, TheChildrenAreThoseOfTheNodeThatWasCopied) {
  const NodePointer source(createNode("Group"));
  add(*source, "Shape");
  const NodePointer middle(copyNode(source.get()));
  add(*middle, "Switch");
  const NodePointer last(copyNode(middle.get()));
  EXPECT_EQ(shapeOf(*last), "Group(Shape Switch)");
  EXPECT_EQ(last->getChildNodes()->getReferenceNode(), source->getChildNodes());
}

TEST(NodeFactory, ACopyTakesTheWholeSubtreeWithItsRoles) {
  const NodePointer source(createNode("Group"));
  Node& shape = add(*source, "Shape");
  add(add(shape, "Appearance"), "Material");
  add(add(shape, "IndexedFaceSet"), "Coordinate", "c");
  Node& collision = add(*source, "Collision");
  Node* const proxy = createNode("Shape");
  collision.addChildNode(proxy, fieldKey("proxy"));
  add(collision, "LOD");
  const NodePointer copy(copyNode(source.get()));
  EXPECT_EQ(shapeOf(*copy), "Group(Shape(Appearance(Material) IndexedFaceSet(Coordinate)) Collision(LOD))");
  EXPECT_EQ(copy->countNodes(), source->countNodes());
  const Node* const coord = copy->getChild(0)->getChild(1)->getChildNodes();
  EXPECT_EQ(coord->getRole(), fieldKey("coord"));
  EXPECT_EQ(coord->getName(), "c");
  const Node* const copiedProxy = copy->getChild(1)->getFirstChildInRole(fieldKey("proxy"));
  ASSERT_NE(copiedProxy, nullptr);
  EXPECT_EQ(copiedProxy->getReferenceNode(), proxy);
  EXPECT_EQ(copy->getSceneGraph(), nullptr);
}

TEST(NodeFactory, WhatHasNoCopyIsLeftOutAndNamed) {
  const NodePointer source(createNode("Group"));
  add(add(*source, "Shape"), "Box");
  Node& last = add(*source, "Group");
  Node* const reference = createReference(*source);
  last.addChildNode(reference);
  add(last, "Shape");
  std::vector<const Node*> leftOut;
  const NodePointer copy(copyNode(source.get(), &leftOut));
  EXPECT_EQ(shapeOf(*copy), "Group(Shape Group(Shape))");
  ASSERT_EQ(leftOut.size(), 2u);
  EXPECT_TRUE(leftOut[0]->isType("Box"));
  EXPECT_EQ(leftOut[1], reference);
}

TEST(NodeFactory, AReferenceBearsItsSourcesNameAndFields) {
  TransformNode source;
  source.setName("t");
  const NodePointer reference(createReference(source));
  EXPECT_TRUE(reference->isInstanceNode());
  EXPECT_EQ(reference->getName(), "t");
  EXPECT_EQ(reference->getChildNodes(), nullptr);
  EXPECT_EQ(reference->getExposedField("set_scale"), source.getExposedField("scale"));
  EXPECT_EQ(reference->getNumExposedFields(), 5);
  source.setName("u");
  EXPECT_EQ(reference->getName(), "u");
}

// Source, instance, instance of the instance and a reference end in each of the 24 orders; those that are left answer
// with the source's values all the way.
TEST(NodeFactory, NodesThatShareValuesEndInAnyOrder) {
  std::array<std::size_t, 4> order{0, 1, 2, 3};
  do {
    auto* const source = new TransformNode;
    source->setName("s");
    source->setTranslation(1, 2, 3);
    Field* const event = source->addEventOut(FieldType::SFTime, "hit");
    add(*source, "Shape");
    std::array<NodePointer, 4> nodes;
    nodes[0].reset(source);
    nodes[1].reset(copyNode(nodes[0].get()));
    nodes[2].reset(copyNode(nodes[1].get()));
    nodes[3].reset(createReference(*nodes[0]));
    bool sourceLives = true;
    for (const std::size_t victim : order) {
      nodes[victim].reset();
      sourceLives = sourceLives && victim != 0;
      for (const NodePointer& node : nodes) {
        if (!node) continue;
        EXPECT_EQ(node->getName(), "s");
        EXPECT_EQ(node->getEventOut("hit_changed"), event);
        EXPECT_EQ(static_cast<SFVec3f*>(node->getExposedField("translation"))->y(), 2.0f);
        if (node != nodes[0]) {
          EXPECT_EQ(node->getReferenceNode(), sourceLives ? source : nullptr);
        }
      }
    }
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(NodeFactory, AnInstanceWithoutItsSourceIsCopiedFurther) {
  NodePointer source(createNode("Material"));
  static_cast<MaterialNode&>(*source).setTransparency(0.5f);
  const NodePointer instance(copyNode(source.get()));
  source.reset();
  const NodePointer copy(copyNode(instance.get()));
  EXPECT_EQ(copy->getReferenceNode(), nullptr);
  EXPECT_EQ(static_cast<const MaterialNode&>(*copy).getTransparency(), 0.5f);
}

}  // namespace
}  // namespace vrml
