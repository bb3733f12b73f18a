// The node base: names, the five lists of fields, the look-up by event name, children and their roles, the tree around
// a node, and what its container is told.

#include "vrml/nodes/Node.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/TextureNode.h"

namespace vrml {
namespace {

using NodePointer = std::unique_ptr<Node>;

NodePointer make(const char* typeName, const char* name = "") {
  NodePointer node(createNode(typeName));
  node->setName(name);
  return node;
}

// Adds a new node to a parent and returns it.
Node& add(Node& parent, const char* typeName, const char* name = "") {
  Node* const node = make(typeName, name).release();
  EXPECT_TRUE(parent.addChildNode(node));
  return *node;
}

Node& add(Node& parent, const char* typeName, FieldKey role) {
  Node* const node = make(typeName).release();
  EXPECT_TRUE(parent.addChildNode(node, role));
  return *node;
}

std::string childNames(const Node& parent) {
  std::string names;
  for (const Node* child = parent.getChildNodes(); child; child = child->next()) names += child->getName();
  return names;
}

// Writes down what it is told.
class RecordingOwner : public NodeOwner {
 public:
  void nodeAttached(Node& node) override { note("+", node); }
  void nodeDetached(Node& node) override { note("-", node); }
  void nodeRenamed(Node& node, std::string_view oldName) override {
    log += std::string(oldName) + ">" + node.getName() + " ";
  }
  std::string takeLog() { return std::exchange(log, std::string()); }

 private:
  void note(const char* sign, const Node& node) {
    log += sign + (node.hasName() ? node.getName() : std::string(node.getTypeName())) + " ";
  }
  std::string log;
};

// ---- names and types

TEST(Node, NamesHaveNoBlanksAndNoControlCharacters) {
  struct Row {
    std::string_view given;
    const char* kept;
  };
  constexpr Row kRows[] = {
      {"", ""},
      {"plain", "plain"},
      {"my node\t1", "my_node_1"},
      {"a\nb\rc", "a_b_c"},
      {std::string_view("\0\x1f \x21", 4), "___!"},
      {"\x7f\xc3\xa9", "\x7f\xc3\xa9"},
      {"part.3:a", "part.3:a"},
  };
  const NodePointer node = make("Group");
  for (const Row& row : kRows) {
    node->setName(row.given);
    EXPECT_EQ(node->getName(), row.kept);
    EXPECT_EQ(node->hasName(), row.kept[0] != '\0');
  }
  node->setName("x");
  node->setName(static_cast<const char*>(nullptr));
  EXPECT_EQ(node->getName(), "");
}

TEST(Node, TypeTestsCompareTypeNames) {
  const NodePointer lod = make("LOD");
  EXPECT_STREQ(lod->getTypeName(), "LOD");
  EXPECT_TRUE(lod->isType("LOD"));
  EXPECT_TRUE(lod->isType(nodeType("LOD")));
  EXPECT_FALSE(lod->isType("Lod"));
  EXPECT_FALSE(lod->isType(static_cast<const char*>(nullptr)));
  EXPECT_FALSE(lod->isInstanceNode());
  EXPECT_TRUE(make("DEF")->isInstanceNode());
  EXPECT_TRUE(make("Root")->isType("Root"));
}

TEST(Node, ATypeNameMayBeSet) {
  const NodePointer node = make("Group");
  const NodePointer parent = make("Group");
  node->setTypeName("Assembly");
  EXPECT_STREQ(node->getTypeName(), "Assembly");
  EXPECT_TRUE(node->isType("Assembly"));
  EXPECT_FALSE(node->isType("Group"));
  EXPECT_EQ(node->getType(), nodeType("Group"));  // what it is stays
  EXPECT_EQ(node->getNumFields(), 2);
  EXPECT_EQ(copyNode(node.get()), nullptr);
  EXPECT_STREQ(parent->getTypeName(), "Group");

  node->setTypeName(node->getTypeName() + 3);
  EXPECT_STREQ(node->getTypeName(), "embly");
  node->setTypeName("DEF");
  EXPECT_TRUE(node->isInstanceNode());
  node->setTypeName(nullptr);
  EXPECT_STREQ(node->getTypeName(), "");
  EXPECT_FALSE(node->isType(nullptr));
  node->setTypeName("Group");
  EXPECT_EQ(&node->getClass(), &parent->getClass());
  EXPECT_NE(NodePointer(copyNode(node.get())), nullptr);
}

TEST(Node, ChildrenAreFoundByASetTypeName) {
  const NodePointer parent = make("Group");
  add(*parent, "Shape");
  Node& second = add(*parent, "Group");
  Node& third = add(*parent, "Shape");
  for (Node* const child : {&second, &third}) child->setTypeName("Part");
  EXPECT_EQ(parent->getFirstChild("Part"), &second);
  EXPECT_EQ(second.next("Part"), &third);
  EXPECT_EQ(parent->getFirstChild("Group"), nullptr);
  EXPECT_EQ(parent->getFirstChild(nodeType("Group")), &second);
  const NodePointer copy(copyNode(parent.get()));
  EXPECT_EQ(copy->getNumChildNodes(), 1);  // what has no copy is left out
}

TEST(Node, AnInstanceKeepsItsTypeNameWhenItsSourceGetsAnother) {
  NodePointer source = make("Material", "m");
  const NodePointer instance(copyNode(source.get()));
  source->setTypeName("Paint");
  EXPECT_TRUE(instance->isType("Material"));
  source.reset();
  EXPECT_NE(instance->getExposedField("shininess"), nullptr);
}

// ---- fields

TEST(Node, AddedFieldsStandBehindThoseOfTheClass) {
  const NodePointer node = make("TimeSensor");
  EXPECT_EQ(node->getNumExposedFields(), 5);
  EXPECT_EQ(node->getNumEventOuts(), 4);
  EXPECT_EQ(node->getNumEventIns(), 0);

  Field* const own = node->addExposedField(std::make_unique<SFInt32>(7), "count");
  ASSERT_NE(own, nullptr);
  EXPECT_STREQ(own->getName(), "count");
  EXPECT_EQ(node->getNumExposedFields(), 6);
  EXPECT_EQ(node->getExposedField(5), own);
  EXPECT_EQ(node->getExposedField("count"), own);
  EXPECT_EQ(node->getExposedFieldIndex(own), 5);
  EXPECT_EQ(node->getEventInIndex(own), -1);
  EXPECT_EQ(node->getExposedFieldIndex(nullptr), -1);
  EXPECT_EQ(node->getExposedField(6), nullptr);
  EXPECT_EQ(node->getExposedField(-1), nullptr);
}

TEST(Node, EachListHasItsOwnOperations) {
  const NodePointer node = make("Group");
  const auto named = [](const char* name) {
    auto field = std::make_unique<SFBool>();
    field->setName(name);
    return field;
  };
  Field* const in = node->addEventIn(named("in"));
  Field* const out = node->addEventOut(named("out"));
  Field* const plain = node->addField(named("plain"));
  Field* const fifth = node->addFifthField(named("fifth"));
  EXPECT_EQ(node->getEventIn(0), in);
  EXPECT_EQ(node->getEventIn("in"), in);
  EXPECT_EQ(node->getEventInIndex(in), 0);
  EXPECT_EQ(node->getNumEventIns(), 1);
  EXPECT_EQ(node->getEventOut(0), out);
  EXPECT_EQ(node->getEventOut("out"), out);
  EXPECT_EQ(node->getEventOutIndex(out), 0);
  EXPECT_EQ(node->getNumEventOuts(), 1);
  EXPECT_EQ(node->getField(2), plain);
  EXPECT_EQ(node->getField("plain"), plain);
  EXPECT_EQ(node->getFieldIndex(plain), 2);
  EXPECT_EQ(node->getNumFields(), 3);
  EXPECT_EQ(node->getFifthField(0), fifth);
  EXPECT_EQ(node->getFifthField("fifth"), fifth);
  EXPECT_EQ(node->getFifthFieldIndex(fifth), 0);
  EXPECT_EQ(node->getNumFifthFields(), 1);
  EXPECT_EQ(node->getField("fifth"), nullptr);
}

TEST(Node, FieldsAreMadeFromTypeCodes) {
  const NodePointer node = make("Group");
  for (std::int32_t code = -1; code <= 20; ++code) {
    const auto type = static_cast<FieldType>(code);
    for (Field* const field :
         {node->addExposedField(type, "e"), node->addEventIn(type, "i"), node->addEventOut(type, "o"),
          node->addField(type, "f"), node->addFifthField(type, "v")}) {
      ASSERT_EQ(field != nullptr, code >= 1 && code <= 9) << code;
      if (field) {
        EXPECT_EQ(field->getType(), type);
      }
    }
  }
  EXPECT_EQ(node->getNumExposedFields(), 9);
  EXPECT_EQ(node->addField(std::unique_ptr<Field>()), nullptr);
  EXPECT_EQ(node->addField(std::unique_ptr<Field>(), "x"), nullptr);
  EXPECT_EQ(node->getNumFields(), 2 + 9);
}

TEST(Node, FieldPointersStay) {
  const NodePointer node = make("TouchSensor");
  Field* const touchTime = node->getEventOut("touchTime");
  Field* const enabled = node->getExposedField("enabled");
  for (int i = 0; i < 100; ++i) node->addEventOut(FieldType::SFBool, "e" + std::to_string(i));
  EXPECT_EQ(node->getEventOut("touchTime"), touchTime);
  EXPECT_EQ(node->getExposedField("enabled"), enabled);
}

// ---- look-up by event name

struct EventRow {
  const char* wanted;
  const char* found;  // "" for none
};

void expectFound(Field* field, const EventRow& row) {
  EXPECT_STREQ(field ? field->getName() : "", row.found) << row.wanted;
}

TEST(Node, EventInsAreFoundByTheSetConvention) {
  constexpr EventRow kRows[] = {
      {"translation", "translation"},
      {"set_translation", "translation"},
      {"translation_changed", ""},
      {"set_bind", "set_bind"},
      {"bind", ""},
      {"set_a_fraction", "a_fraction"},  // what is left comes before a mere ending
      {"set_b_fraction", "fraction"},
      {"x_translation", ""},
      {"set_", ""},
      {"", ""},
      {"set_nothing", ""},
      {"Set_translation", ""},
  };
  const NodePointer node = make("Group");
  for (const char* name : {"fraction", "a_fraction", "translation", "set_bind"})
    node->addEventIn(FieldType::SFBool, name);
  for (const EventRow& row : kRows) expectFound(node->getEventIn(row.wanted), row);
}

TEST(Node, EventOutsAreFoundByTheChangedConvention) {
  constexpr EventRow kRows[] = {
      {"value", "value"},           {"value_changed", "value"},       {"set_value", ""}, {"value_x_changed", "value_x"},
      {"value_y_changed", "value"},  // the first that begins the name
      {"isActive", "isActive"},     {"isActive_changed", "isActive"}, {"_changed", ""},  {"", ""},
      {"other_changed", ""},
  };
  const NodePointer node = make("Group");
  for (const char* name : {"value", "value_x", "isActive"}) node->addEventOut(FieldType::SFBool, name);
  for (const EventRow& row : kRows) expectFound(node->getEventOut(row.wanted), row);
}

TEST(Node, ExposedFieldsAreFoundByBothConventions) {
  constexpr EventRow kRows[] = {
      {"scale", "scale"},
      {"set_scale", "scale"},
      {"scale_changed", "scale"},
      {"set_scaleOrientation", "scaleOrientation"},
      {"scaleOrientation_changed", "scaleOrientation"},
      {"set_my_rotation", "rotation"},
      {"center_of_mass_changed", "center"},
      {"bboxCenter", ""},
      {"children", ""},
      {"Scale", ""},
      {"", ""},
  };
  const NodePointer node = make("Transform");
  for (const EventRow& row : kRows) expectFound(node->getExposedField(row.wanted), row);
}

TEST(Node, AnExactNameComesFirstEvenWhereAnEarlierFieldIsLeftOver) {
  const NodePointer node = make("Group");
  node->addExposedField(FieldType::SFBool, "x");
  Field* const exact = node->addExposedField(FieldType::SFBool, "set_x");
  EXPECT_EQ(node->getExposedField("set_x"), exact);
  node->addEventIn(FieldType::SFBool, "");  // a field without a name ends every name, and means none
  EXPECT_EQ(node->getEventIn("set_y"), nullptr);
}

TEST(Node, EventsOfTheCatalogue) {
  expectFound(make("ElevationGrid")->getEventIn("set_height"), {"set_height", "height"});
  expectFound(make("Viewpoint")->getEventIn("set_bind"), {"set_bind", "set_bind"});
  expectFound(make("TimeSensor")->getEventOut("fraction_changed"), {"fraction_changed", "fraction"});
  expectFound(make("PositionInterpolator")->getEventIn("set_fraction"), {"set_fraction", "fraction"});
  expectFound(make("PositionInterpolator")->getEventOut("value_changed"), {"value_changed", "value"});
  expectFound(make("TouchSensor")->getExposedField("set_enabled"), {"set_enabled", "enabled"});
}

// ---- children

TEST(Node, ChildrenKeepTheirOrder) {
  const NodePointer group = make("Group");
  EXPECT_EQ(group->getChildNodes(), nullptr);
  EXPECT_EQ(group->getNumChildNodes(), 0);
  EXPECT_EQ(group->getChild(0), nullptr);
  Node& a = add(*group, "Shape", "a");
  Node& b = add(*group, "Group", "b");
  Node& c = add(*group, "Shape", "c");
  EXPECT_EQ(childNames(*group), "abc");
  EXPECT_EQ(group->getNumChildNodes(), 3);
  EXPECT_EQ(group->getChild(0), &a);
  EXPECT_EQ(group->getChild(2), &c);
  EXPECT_EQ(group->getChild(3), nullptr);
  EXPECT_EQ(group->getChild(-1), nullptr);
  EXPECT_EQ(group->getFirstChild("Group"), &b);
  EXPECT_EQ(group->getFirstChild("Shape"), &a);
  EXPECT_EQ(a.next("Shape"), &c);
  EXPECT_EQ(c.next("Shape"), nullptr);
  EXPECT_EQ(group->getFirstChild("Box"), nullptr);
  EXPECT_EQ(group->getFirstChild("no such type"), nullptr);
  EXPECT_EQ(group->getFirstChild(static_cast<const char*>(nullptr)), nullptr);
  EXPECT_EQ(group->next(), nullptr);
  EXPECT_EQ(c.next(), nullptr);
}

TEST(Node, CategoryFindersTakeTheFirstOfTheirKind) {
  struct Row {
    const char* childType;
    char category;  // group, geometry, texture, or none
  };
  constexpr Row kRows[] = {
      {"Anchor", 'g'},
      {"Billboard", 'g'},
      {"Collision", 'g'},
      {"Group", 'g'},
      {"Transform", 'g'},
      {"Inline", '-'},
      {"Switch", '-'},
      {"LOD", '-'},
      {"Box", 'e'},
      {"Cone", 'e'},
      {"Cylinder", 'e'},
      {"ElevationGrid", 'e'},
      {"Extrusion", 'e'},
      {"IndexedFaceSet", 'e'},
      {"IndexedLineSet", 'e'},
      {"PointSet", 'e'},
      {"Sphere", 'e'},
      {"Text", 'e'},
      {"MovieTexture", 't'},
      {"PixelTexture", 't'},
      {"ImageTexture", 't'},
      {"TextureTransform", '-'},
      {"DEF", '-'},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.childType);
    const NodePointer parent = make("Root");
    add(*parent, "WorldInfo");
    Node& child = add(*parent, row.childType);
    add(*parent, row.childType);
    EXPECT_EQ(parent->getGroupingNode(), row.category == 'g' ? &child : nullptr);
    EXPECT_EQ(parent->getGeometryNode(), row.category == 'e' ? &child : nullptr);
    EXPECT_EQ(parent->getTextureNode(), row.category == 't' ? &child : nullptr);
  }
}

TEST(Node, AChildStandsInTheMemberForItsType) {
  struct Row {
    const char* parentType;
    const char* childType;
    const char* role;  // "" for none
  };
  constexpr Row kRows[] = {
      {"Shape", "Appearance", "appearance"},
      {"Shape", "Text", "geometry"},
      {"Shape", "Shape", ""},
      {"Appearance", "Material", "material"},
      {"Appearance", "MovieTexture", "texture"},
      {"Appearance", "TextureTransform", "textureTransform"},
      {"IndexedFaceSet", "Coordinate", "coord"},
      {"IndexedFaceSet", "Normal", "normal"},
      {"PointSet", "Color", "color"},
      {"Sound", "AudioClip", "source"},
      {"Text", "FontStyle", "fontStyle"},
      {"Group", "Shape", "children"},
      {"Group", "Material", "children"},
      {"LOD", "Shape", "level"},
      {"Switch", "Shape", "choice"},
      {"Collision", "Shape", "children"},
      {"Inline", "Shape", ""},
      {"WorldInfo", "Shape", ""},
  };
  for (const Row& row : kRows) {
    const NodePointer parent = make(row.parentType);
    EXPECT_STREQ(fieldName(add(*parent, row.childType).getRole()), row.role) << row.parentType << " " << row.childType;
  }
  const NodePointer shape = make("Shape");
  const NodePointer box = make("Box");
  Node* const reference = createReference(*box);
  shape->addChildNode(reference);
  EXPECT_EQ(reference->getRole(), fieldKey("geometry"));
}

TEST(Node, AProxyIsKeptApartFromTheChildren) {
  const NodePointer collision = make("Collision");
  Node& first = add(*collision, "Group", fieldKey("proxy"));
  EXPECT_EQ(collision->getChildNodes(), nullptr);
  EXPECT_EQ(collision->getNumChildNodes(), 0);
  Node& shape = add(*collision, "Shape", "s");
  Node& second = add(*collision, "Group", fieldKey("proxy"));
  Node& last = add(*collision, "Shape", "t");
  EXPECT_EQ(childNames(*collision), "st");
  EXPECT_EQ(shape.next(), &last);
  EXPECT_EQ(collision->getGroupingNode(), nullptr);
  EXPECT_EQ(collision->getFirstChildInRole(fieldKey("proxy")), &first);
  EXPECT_TRUE(collision->isAncestorOf(&second));
  EXPECT_EQ(collision->nextInDocument(collision.get()), &first);
  EXPECT_EQ(shape.nextInDocument(collision.get()), &second);
  EXPECT_EQ(collision->countNodes(), 5u);
}

TEST(Node, InsertingAndReplacingKeepThePlace) {
  const NodePointer group = make("Switch");
  Node& a = add(*group, "Shape", "a");
  Node& c = add(*group, "Shape", "c");
  EXPECT_TRUE(c.insertBeforeThis(make("Shape", "b").release()));
  EXPECT_EQ(childNames(*group), "abc");
  EXPECT_TRUE(a.insertBeforeThis(make("Shape", "0").release()));
  EXPECT_EQ(childNames(*group), "0abc");

  const NodePointer owner(&a);
  Node* const replacement = make("Group", "x").release();
  EXPECT_TRUE(a.replaceWith(replacement));
  EXPECT_EQ(childNames(*group), "0xbc");
  EXPECT_EQ(replacement->getRole(), fieldKey("choice"));
  EXPECT_EQ(a.getParent(), nullptr);
  EXPECT_EQ(a.getRole(), FieldKey::none);
  EXPECT_EQ(a.next(), nullptr);

  const NodePointer alone = make("Shape");
  EXPECT_FALSE(alone->insertBeforeThis(&a));
  EXPECT_FALSE(alone->replaceWith(&a));
  EXPECT_FALSE(c.insertBeforeThis(nullptr));
  EXPECT_FALSE(c.insertBeforeThis(&c));
  EXPECT_FALSE(c.replaceWith(&c));
  EXPECT_EQ(childNames(*group), "0xbc");
}

TEST(Node, ReplacingTheOnlyChildAndTheFirst) {
  const NodePointer group = make("Group");
  const NodePointer only(&add(*group, "Shape", "a"));
  EXPECT_TRUE(only->replaceWith(make("Shape", "b").release()));
  EXPECT_EQ(childNames(*group), "b");
  add(*group, "Shape", "c");
  const NodePointer first(group->getChildNodes());
  EXPECT_TRUE(first->replaceWith(make("Shape", "d").release()));
  EXPECT_EQ(childNames(*group), "dc");
}

TEST(Node, AChildMovesBetweenParents) {
  const NodePointer left = make("Group");
  const NodePointer right = make("Switch");
  Node& a = add(*left, "Shape", "a");
  add(*left, "Shape", "b");
  EXPECT_TRUE(right->addChildNode(&a));
  EXPECT_EQ(childNames(*left), "b");
  EXPECT_EQ(childNames(*right), "a");
  EXPECT_EQ(a.getParent(), right.get());
  EXPECT_TRUE(left->addChildNode(left->getChildNodes()));
  EXPECT_EQ(childNames(*left), "b");
  EXPECT_TRUE(left->getChildNodes()->insertBeforeThis(&a));
  EXPECT_EQ(childNames(*left), "ab");
  EXPECT_TRUE(left->addChildNode(&a));
  EXPECT_EQ(childNames(*left), "ba");
}

TEST(Node, NoNodeComesToStandBelowItself) {
  RecordingOwner owner;
  const NodePointer top = make("Group");
  Node& middle = add(*top, "Group");
  Node& bottom = add(middle, "Group");
  EXPECT_FALSE(bottom.addChildNode(top.get()));
  EXPECT_FALSE(bottom.addChildNode(&middle));
  EXPECT_FALSE(top->addChildNode(top.get()));
  EXPECT_FALSE(top->addChildNode(nullptr));
  EXPECT_FALSE(bottom.insertBeforeThis(&middle));
  top->setSceneGraph(&owner);
  EXPECT_FALSE(bottom.addChildNode(&middle));
  EXPECT_EQ(bottom.getParent(), &middle);
  EXPECT_EQ(top->countNodes(), 3u);
}

TEST(Node, ParentsAndAncestors) {
  const NodePointer top = make("Group");
  Node& middle = add(*top, "Group");
  Node& bottom = add(middle, "Shape");
  Node& sibling = add(*top, "Shape");
  EXPECT_TRUE(bottom.isParent(&middle));
  EXPECT_FALSE(bottom.isParent(top.get()));
  EXPECT_FALSE(top->isParent(nullptr));
  EXPECT_TRUE(bottom.isAncestor(top.get()));
  EXPECT_TRUE(bottom.isAncestor(&middle));
  EXPECT_FALSE(bottom.isAncestor(&bottom));
  EXPECT_FALSE(bottom.isAncestor(&sibling));
  EXPECT_FALSE(bottom.isAncestor(nullptr));
  EXPECT_TRUE(top->isAncestorOf(&bottom));
  EXPECT_FALSE(middle.isAncestorOf(&sibling));
  EXPECT_FALSE(top->isAncestorOf(top.get()));
  EXPECT_FALSE(top->isAncestorOf(nullptr));
}

TEST(Node, RemovingTakesASubtreeOut) {
  const NodePointer top = make("Group");
  Node& a = add(*top, "Group", "a");
  add(a, "Shape", "inner");
  add(*top, "Shape", "b");
  a.remove();
  const NodePointer owner(&a);
  EXPECT_EQ(childNames(*top), "b");
  EXPECT_EQ(childNames(a), "inner");
  EXPECT_EQ(a.getParent(), nullptr);
  a.remove();
  EXPECT_EQ(childNames(a), "inner");
}

TEST(Node, DeletingAChildTakesItOut) {
  const NodePointer top = make("Group");
  add(*top, "Shape", "a");
  Node* const b = &add(*top, "Shape", "b");
  add(*top, "Shape", "c");
  delete b;
  EXPECT_EQ(childNames(*top), "ac");
  delete top->getChildNodes();
  EXPECT_EQ(childNames(*top), "c");
  delete top->getChildNodes();
  EXPECT_EQ(top->getChildNodes(), nullptr);
}

// ---- walks

TEST(Node, TheWalkFollowsTheDocument) {
  const NodePointer top = make("Root", "r");
  Node& a = add(*top, "Group", "a");
  add(a, "Shape", "b");
  Node& c = add(a, "Group", "c");
  add(c, "Shape", "d");
  add(*top, "Shape", "e");
  std::string order;
  for (const Node* node = top.get(); node; node = node->nextInDocument(top.get())) order += node->getName();
  EXPECT_EQ(order, "rabcde");
  EXPECT_EQ(a.nextBeyond(top.get())->getName(), "e");
  EXPECT_EQ(a.nextBeyond(&a), nullptr);
  order.clear();
  for (const Node* node = &a; node; node = node->nextInDocument(&a)) order += node->getName();
  EXPECT_EQ(order, "abcd");
  EXPECT_EQ(top->countNodes(), 6u);
  EXPECT_EQ(a.countNodes(), 4u);
  EXPECT_EQ(top->countNodes(3), 3u);
  EXPECT_EQ(top->countNodes(0), 0u);
}

// ---- the container

TEST(Node, TheContainerLearnsOfEveryNode) {
  RecordingOwner owner;
  const NodePointer top = make("Group", "t");
  top->setSceneGraph(&owner);
  EXPECT_EQ(owner.takeLog(), "+t ");
  Node& a = add(*top, "Group", "a");
  EXPECT_EQ(owner.takeLog(), "+a ");
  EXPECT_EQ(a.getSceneGraph(), &owner);

  Node* const built = make("Group", "b").release();
  add(*built, "Shape", "c");
  EXPECT_EQ(built->getSceneGraph(), nullptr);
  a.addChildNode(built);
  EXPECT_EQ(owner.takeLog(), "+b +c ");
  EXPECT_EQ(built->getChildNodes()->getSceneGraph(), &owner);

  built->setName("B");
  EXPECT_EQ(owner.takeLog(), "b>B ");
  top->addChildNode(built);
  EXPECT_EQ(owner.takeLog(), "-B -c +B +c ");
  const NodePointer taken(&a);
  a.remove();
  EXPECT_EQ(owner.takeLog(), "-a ");
  EXPECT_EQ(a.getSceneGraph(), nullptr);
  delete built;
  EXPECT_EQ(owner.takeLog(), "-c -B ");
  top->setSceneGraph(nullptr);
  EXPECT_EQ(owner.takeLog(), "-t ");
}

TEST(Node, ANewContainerTakesTheTreeFromTheOldOne) {
  RecordingOwner first;
  RecordingOwner second;
  const NodePointer top = make("Group", "t");
  add(*top, "Shape", "a");
  top->setSceneGraph(&first);
  top->setSceneGraph(&first);
  EXPECT_EQ(first.takeLog(), "+t +a ");
  top->setSceneGraph(&second);
  EXPECT_EQ(first.takeLog(), "-t -a ");
  EXPECT_EQ(second.takeLog(), "+t +a ");
}

TEST(Node, ReplacingTellsOfTheNewNodeBeforeTheOld) {
  RecordingOwner owner;
  const NodePointer top = make("Group", "t");
  top->setSceneGraph(&owner);
  const NodePointer a(&add(*top, "Shape", "a"));
  owner.takeLog();
  a->replaceWith(make("Shape", "b").release());
  EXPECT_EQ(owner.takeLog(), "+b -a ");
}

TEST(Node, AnInstanceIsRenamedWithItsSource) {
  RecordingOwner owner;
  const NodePointer top = make("Group");
  top->setSceneGraph(&owner);
  Node& source = add(*top, "Shape", "s");
  top->addChildNode(copyNode(&source));
  owner.takeLog();
  top->getChild(1)->setName("n");
  EXPECT_EQ(owner.takeLog(), "s>n ");
  EXPECT_EQ(source.getName(), "n");
}

TEST(Node, ProxiesBelongToTheContainer) {
  RecordingOwner owner;
  const NodePointer collision = make("Collision", "c");
  add(*collision, "Shape", fieldKey("proxy")).setName("p");
  collision->setSceneGraph(&owner);
  EXPECT_EQ(owner.takeLog(), "+c +p ");
}

TEST(Node, TheContentOfAnInlineBelongsToNobody) {
  RecordingOwner outer;
  RecordingOwner inner;
  const NodePointer top = make("Root", "t");
  top->setSceneGraph(&outer);
  auto& inlined = static_cast<InlineNode&>(add(*top, "Inline", "i"));
  add(*top, "Shape", "z");
  const NodePointer innerRoot = make("Root", "r");
  innerRoot->setSceneGraph(&inner);
  add(add(*innerRoot, "Group", "a"), "Shape", "b");
  add(*innerRoot, "Shape", "c");
  outer.takeLog();
  inner.takeLog();

  inlined.takeContent(*innerRoot);
  EXPECT_EQ(outer.takeLog(), "");
  EXPECT_EQ(inner.takeLog(), "-a -b -c ");
  EXPECT_EQ(childNames(inlined), "ac");
  EXPECT_EQ(innerRoot->getChildNodes(), nullptr);
  EXPECT_EQ(inlined.getChildNodes()->getSceneGraph(), nullptr);
  EXPECT_EQ(inlined.nextInDocument(top.get())->getName(), "z");
  EXPECT_EQ(top->countNodes(), 6u);

  top->setSceneGraph(nullptr);
  EXPECT_EQ(outer.takeLog(), "-t -i -z ");
}

TEST(Node, HooksOfOrdinaryNodesDoNothing) {
  const NodePointer node = make("WorldInfo");
  EXPECT_EQ(node->refresh(), nullptr);
  node->prepare();
  node->initialize();
  node->recomputeBoundingBox();
}

TEST(Node, IndentsAreTabs) {
  EXPECT_EQ(Node::makeIndent(3), "\t\t\t");
  EXPECT_EQ(Node::makeIndent(0), "");
  EXPECT_EQ(Node::makeIndent(-2), "");
}

}  // namespace
}  // namespace vrml
