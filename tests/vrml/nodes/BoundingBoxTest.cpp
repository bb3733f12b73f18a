// Boxes as such, the boxes of geometries, and the union that groups make of them.

#include "vrml/nodes/BoundingBox.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/BoxNode.h"
#include "vrml/nodes/ConeNode.h"
#include "vrml/nodes/CoordinateNode.h"
#include "vrml/nodes/CylinderNode.h"
#include "vrml/nodes/ElevationGridNode.h"
#include "vrml/nodes/ExtrusionNode.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"
#include "vrml/nodes/IndexedLineSetNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/PointSetNode.h"
#include "vrml/nodes/SphereNode.h"
#include "vrml/nodes/TransformNode.h"

namespace vrml {
namespace {

using Triple = std::array<float, 3>;

void expectBox(const BoundingBox& box, Triple min, Triple max) {
  ASSERT_FALSE(box.isEmpty());
  EXPECT_EQ(box.min(), min);
  EXPECT_EQ(box.max(), max);
}

TEST(BoundingBox, StartsEmptyAndGrows) {
  BoundingBox box;
  EXPECT_TRUE(box.isEmpty());
  EXPECT_EQ(box.center(), Triple());
  EXPECT_EQ(box.halfExtents(), Triple());
  box.add(1, 2, 3);
  expectBox(box, {1, 2, 3}, {1, 2, 3});
  box.add(-1, 4, 3);
  expectBox(box, {-1, 2, 3}, {1, 4, 3});
  EXPECT_EQ(box.center(), (Triple{0, 3, 3}));
  EXPECT_EQ(box.halfExtents(), (Triple{1, 1, 0}));
  box.add(BoundingBox());
  expectBox(box, {-1, 2, 3}, {1, 4, 3});
  box.add(std::nanf(""), 100, 100);
  expectBox(box, {-1, 2, 3}, {1, 4, 3});
}

TEST(BoundingBox, TurnsWithAMatrix) {
  const double quarterAboutZ[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1};
  expectBox(BoundingBox::centered(1, 2, 3).transformed(quarterAboutZ), {8, -1, -3}, {12, 1, 3});
  EXPECT_TRUE(BoundingBox().transformed(quarterAboutZ).isEmpty());
  const double huge[16] = {1e300, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  EXPECT_EQ(BoundingBox::centered(1, 1, 1).transformed(huge).max()[0], std::numeric_limits<float>::max());
}

TEST(BoundingBox, HugeBoxesHaveACentre) {
  const float huge = std::numeric_limits<float>::max();
  const BoundingBox box = BoundingBox::centered(huge, 1, 1);
  EXPECT_EQ(box.center()[0], 0.0f);
  EXPECT_EQ(box.halfExtents()[0], huge);
}

// ---- geometries

TEST(GeometryBox, OfPrimitives) {
  BoxNode box;
  box.setSize(2, 4, 6);
  box.recomputeBoundingBox();
  EXPECT_EQ(box.getBoundingBox().center(), Triple());
  EXPECT_EQ(box.getBoundingBox().halfExtents(), (Triple{1, 2, 3}));
  EXPECT_TRUE(static_cast<SFVec3f*>(box.getFifthField("bboxSize"))->equals(2, 4, 6));
  EXPECT_TRUE(static_cast<SFVec3f*>(box.getFifthField("bboxCenter"))->equals(0, 0, 0));

  ConeNode cone;
  expectBox(cone.computeBox(), {-1, -1, -1}, {1, 1, 1});
  CylinderNode cylinder;
  cylinder.setRadius(3);
  expectBox(cylinder.computeBox(), {-3, -1, -3}, {3, 1, 3});
  SphereNode sphere;
  sphere.setRadius(5);
  expectBox(sphere.computeBox(), {-5, -5, -5}, {5, 5, 5});
}

template <class N>
void expectBoxOfPoints() {
  N geometry;
  EXPECT_TRUE(geometry.computeBox().isEmpty());
  auto* const coordinate = new CoordinateNode;
  coordinate->editPoint().addValue(1, 2, 3);
  coordinate->editPoint().addValue(-4, 5, -6);
  geometry.addChildNode(coordinate);
  expectBox(geometry.computeBox(), {-4, 2, -6}, {1, 5, 3});
}

TEST(GeometryBox, OfPoints) {
  expectBoxOfPoints<IndexedFaceSetNode>();
  expectBoxOfPoints<IndexedLineSetNode>();
  expectBoxOfPoints<PointSetNode>();
}

TEST(GeometryBox, OfAGrid) {
  ElevationGridNode grid;
  EXPECT_TRUE(grid.computeBox().isEmpty());
  for (const float height : {1.0f, -2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 99.0f}) grid.editHeight().addValue(height);
  EXPECT_TRUE(grid.computeBox().isEmpty());
  grid.setXDimension(3);
  grid.setZDimension(2);
  grid.setXSpacing(2);
  grid.setZSpacing(10);
  expectBox(grid.computeBox(), {0, -2, 0}, {4, 6, 10});  // the seventh height is beyond the grid
  grid.setZDimension(2000000000);
  grid.setXDimension(2000000000);
  EXPECT_FALSE(grid.computeBox().isEmpty());
}

TEST(GeometryBox, OfAnExtrusion) {
  ExtrusionNode extrusion;
  EXPECT_TRUE(extrusion.computeBox().isEmpty());
  extrusion.editSpine().addValue(0, 0, 0);
  extrusion.editSpine().addValue(0, 10, 0);
  extrusion.editCrossSection().addValue(3, 4);
  expectBox(extrusion.computeBox(), {-5, -5, -5}, {5, 15, 5});
  extrusion.editScale().addValue(1, -2);
  expectBox(extrusion.computeBox(), {-10, -10, -10}, {10, 20, 10});
}

TEST(GeometryBox, OfATextIsEmpty) {
  const std::unique_ptr<Node> text(createNode("Text"));
  text->recomputeBoundingBox();
  EXPECT_TRUE(static_cast<GeometryNode&>(*text).getBoundingBox().isEmpty());
  EXPECT_TRUE(static_cast<SFVec3f*>(text->getFifthField("bboxSize"))->equals(-1, -1, -1));
}

// ---- groups

Node& add(Node& parent, const char* typeName) {
  Node* const node = createNode(typeName);
  parent.addChildNode(node);
  return *node;
}

BoundingBox boxOf(Node& group) {
  group.recomputeBoundingBox();
  return static_cast<GroupingNode&>(group).getBoundingBox();
}

TEST(GroupBox, IsTheUnionOfItsChildren) {
  const std::unique_ptr<Node> group(createNode("Group"));
  EXPECT_TRUE(static_cast<GroupingNode&>(*group).getBoundingBox().isEmpty());
  EXPECT_TRUE(boxOf(*group).isEmpty());
  static_cast<BoxNode&>(add(add(*group, "Shape"), "Box")).setSize(2, 2, 20);
  static_cast<SphereNode&>(add(add(add(*group, "Anchor"), "Shape"), "Sphere")).setRadius(3);
  add(add(*group, "Shape"), "Appearance");
  expectBox(boxOf(*group), {-3, -3, -10}, {3, 3, 10});
}

TEST(GroupBox, SeesAChildAsItsTransformPutsIt) {
  const std::unique_ptr<Node> group(createNode("Group"));
  auto& outer = static_cast<TransformNode&>(add(*group, "Transform"));
  auto& inner = static_cast<TransformNode&>(add(outer, "Transform"));
  add(add(inner, "Shape"), "Box");
  outer.setTranslation(100, 0, 0);
  inner.setScale(1, 5, 1);
  expectBox(boxOf(*group), {99, -5, -1}, {101, 5, 1});
  expectBox(boxOf(outer), {-1, -5, -1}, {1, 5, 1});
  expectBox(boxOf(inner), {-1, -1, -1}, {1, 1, 1});
}

TEST(GroupBox, StaysApartFromTheFieldsOfTheFile) {
  const std::unique_ptr<Node> node(createNode("Group"));
  auto& group = static_cast<GroupingNode&>(*node);
  add(add(group, "Shape"), "Box");
  group.prepare();
  EXPECT_FALSE(group.getBoundingBox().isEmpty());
  EXPECT_FALSE(group.hasBboxSize());
  group.setBboxSize(9, 9, 9);
  group.prepare();
  EXPECT_TRUE(group.getBboxSize().equals(9, 9, 9));
  EXPECT_EQ(group.getBoundingBox().halfExtents(), (Triple{1, 1, 1}));
}

TEST(GroupBox, HoldsAnInlinesContentAndNotAProxy) {
  const std::unique_ptr<Node> group(createNode("Group"));
  Node& inlined = add(*group, "Inline");
  const std::unique_ptr<Node> root(createNode("Root"));
  add(add(*root, "Shape"), "Sphere");
  static_cast<InlineNode&>(inlined).takeContent(*root);
  Node& collision = add(*group, "Collision");
  Node* const proxy = createNode("Shape");
  static_cast<BoxNode&>(add(*proxy, "Box")).setSize(50, 50, 50);
  collision.addChildNode(proxy, fieldKey("proxy"));
  expectBox(boxOf(*group), {-1, -1, -1}, {1, 1, 1});
}

TEST(GroupBox, OfAnInstance) {
  const std::unique_ptr<Node> group(createNode("Transform"));
  add(add(*group, "Shape"), "Sphere");
  const std::unique_ptr<Node> instance(copyNode(group.get()));
  expectBox(boxOf(*instance), {-1, -1, -1}, {1, 1, 1});
}

}  // namespace
}  // namespace vrml
