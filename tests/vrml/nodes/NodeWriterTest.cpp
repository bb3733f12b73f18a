// The text that a node tree is written back as, to the byte.

#include "vrml/nodes/NodeWriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/AnchorNode.h"
#include "vrml/nodes/BackgroundNode.h"
#include "vrml/nodes/BoxNode.h"
#include "vrml/nodes/CoordinateNode.h"
#include "vrml/nodes/FontStyleNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/LodNode.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/MovieTextureNode.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/PixelTextureNode.h"
#include "vrml/nodes/TimeSensorNode.h"
#include "vrml/nodes/TransformNode.h"
#include "vrml/nodes/WorldInfoNode.h"

namespace vrml {
namespace {

using NodePointer = std::unique_ptr<Node>;

template <class N>
N& add(Node& parent, const char* name = "") {
  N* const node = new N;
  node->setName(name);
  EXPECT_TRUE(parent.addChildNode(node));
  return *node;
}

Node& add(Node& parent, const char* typeName, const char* name = "") {
  Node* const node = createNode(typeName);
  node->setName(name);
  EXPECT_TRUE(parent.addChildNode(node));
  return *node;
}

std::string textOf(const Node& node, int depth = 0) {
  std::ostringstream out;
  node.write(out, depth);
  return out.str();
}

struct Row {
  const char* name;
  const char* typeName;
  std::function<void(Node&)> fill;
  const char* text;
};

const std::vector<Row> kRows = {
    {"an empty group", "Group", [](Node&) {}, "Group {\n}\n"},
    {"a named group", "Group", [](Node& node) { node.setName("g 1"); }, "DEF g_1 Group {\n}\n"},
    {"a transform has its own order", "Transform",
     [](Node& node) {
       auto& transform = static_cast<TransformNode&>(node);
       transform.setTranslation(1, 2, 3);
       transform.setCenter(4, 5, 6);
       transform.setRotation(1, 0, 0, 0.25f);
       transform.setScaleOrientation(0, 1, 0, 2);
       transform.setScale(2, 2, 0.5f);
     },
     "Transform {\n\ttranslation 1 2 3\n\trotation 1 0 0 0.25\n\tscale 2 2 0.5\n\tscaleOrientation 0 1 0 2\n"
     "\tcenter 4 5 6\n}\n"},
    {"a transform with a box and a child", "Transform",
     [](Node& node) {
       static_cast<TransformNode&>(node).setBboxSize(9, 8, 7);
       add(node, "Shape");
     },
     "Transform {\n\ttranslation 0 0 0\n\trotation 0 0 1 0\n\tscale 1 1 1\n\tscaleOrientation 0 0 1 0\n"
     "\tcenter 0 0 0\n\tbboxCenter 0 0 0\n\tbboxSize 9 8 7\n\tchildren [\n\t\tShape {\n\t\t}\n\t]\n}\n"},
    {"an anchor has its own order", "Anchor",
     [](Node& node) {
       auto& anchor = static_cast<AnchorNode&>(node);
       anchor.setDescription("go");
       anchor.editUrl().addValue("x.wrl#v");
       anchor.editParameter().addValue("target=a");
       anchor.editParameter().addValue("b");
     },
     "Anchor {\n\tdescription \"go\"\n\tparameter [\n\t\t\"target=a\",\n\t\t\"b\"\n\t]\n\turl "
     "[\n\t\t\"x.wrl#v\"\n\t]\n}\n"},
    {"a box that the file gave", "Group",
     [](Node& node) {
       static_cast<GroupingNode&>(node).setBboxSize(1, 2, 3);
       static_cast<GroupingNode&>(node).setBboxCenter(4, 5, 6);
     },
     "Group {\n\tbboxCenter 4 5 6\n\tbboxSize 1 2 3\n}\n"},
    {"a centre without a size is no box", "Group",
     [](Node& node) { static_cast<GroupingNode&>(node).setBboxCenter(4, 5, 6); }, "Group {\n}\n"},
    {"a computed box is not written", "Group",
     [](Node& node) {
       add(add(node, "Shape"), "Sphere");
       node.prepare();
     },
     "Group {\n\tchildren [\n\t\tShape {\n\t\t\tgeometry Sphere {\n\t\t\t\tradius 1\n\t\t\t}\n\t\t}\n\t]\n}\n"},
    {"levels", "LOD",
     [](Node& node) {
       static_cast<LodNode&>(node).editRange().addValue(10);
       static_cast<LodNode&>(node).editRange().addValue(20.5f);
       add(node, "Shape");
       add(node, "Shape", "b");
     },
     "LOD {\n\tcenter 0 0 0\n\trange [\n\t\t10,\n\t\t20.5\n\t]\n\tlevel [\n\t\tShape {\n\t\t}\n\t\tDEF b Shape "
     "{\n\t\t}\n"
     "\t]\n}\n"},
    {"choices", "Switch", [](Node& node) { add(add(node, "Switch", "inner"), "Shape"); },
     "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tDEF inner Switch {\n\t\t\twhichChoice -1\n\t\t\tchoice [\n"
     "\t\t\t\tShape {\n\t\t\t\t}\n\t\t\t]\n\t\t}\n\t]\n}\n"},
    {"a shape gives its members by name", "Shape",
     [](Node& node) {
       add<MaterialNode>(add(node, "Appearance", "look")).setTransparency(0.75f);
       add<BoxNode>(node).setSize(1, 2.5f, 3);
     },
     "Shape {\n\tappearance DEF look Appearance {\n\t\tmaterial Material {\n\t\t\ttransparency 0.75\n"
     "\t\t\tambientIntensity 0.2\n\t\t\tshininess 0.2\n\t\t\tdiffuseColor 0.8 0.8 0.8\n\t\t\tspecularColor 0 0 0\n"
     "\t\t\temissiveColor 0 0 0\n\t\t}\n\t}\n\tgeometry Box {\n\t\tsize 1 2.5 3\n\t}\n}\n"},
    {"a shape never has a children block", "Shape",
     [](Node& node) {
       add(node, "Group");
       node.addChildNode(createNode("Shape"), FieldKey::none);
     },
     "Shape {\n}\n"},
    {"any node may stand in a member", "Shape",
     [](Node& node) { node.addChildNode(createNode("Group"), fieldKey("geometry")); },
     "Shape {\n\tgeometry Group {\n\t}\n}\n"},
    {"a face set", "IndexedFaceSet",
     [](Node& node) {
       auto& faces = static_cast<IndexedFaceSetNode&>(node);
       faces.setSolid(false);
       faces.editCoordIndex().addValue(0);
       faces.editCoordIndex().addValue(-1);
       faces.editNormalIndex().addValue(12);
       add<CoordinateNode>(node).editPoint().addValue(7, 8, 9);
     },
     "IndexedFaceSet {\n\tccw TRUE\n\tcolorPerVertex TRUE\n\tnormalPerVertex TRUE\n\tsolid FALSE\n\tconvex TRUE\n"
     "\tcreaseAngle 0\n\tcoordIndex [\n\t\t0,\n\t\t-1\n\t]\n\tnormalIndex [\n\t\t12\n\t]\n"
     "\tcoord Coordinate {\n\t\tpoint [\n\t\t\t7 8 9\n\t\t]\n\t}\n}\n"},
    {"a proxy between children parts their block", "Collision",
     [](Node& node) {
       add(node, "Shape", "a");
       Node* const proxy = createNode("Shape");
       proxy->setName("p");
       node.addChildNode(proxy, fieldKey("proxy"));
       add(node, "Shape", "b");
     },
     "Collision {\n\tcollide TRUE\n\tchildren [\n\t\tDEF a Shape {\n\t\t}\n\t]\n\tproxy DEF p Shape {\n\t}\n"
     "\tchildren [\n\t\tDEF b Shape {\n\t\t}\n\t]\n}\n"},
    {"a proxy may use a child before it", "Collision",
     [](Node& node) {
       Node& child = add(node, "Shape", "a");
       node.addChildNode(createReference(child), fieldKey("proxy"));
     },
     "Collision {\n\tcollide TRUE\n\tchildren [\n\t\tDEF a Shape {\n\t\t}\n\t]\n\tproxy USE a\n}\n"},
    {"a child may use a proxy before it", "Collision",
     [](Node& node) {
       Node* const proxy = createNode("Shape");
       proxy->setName("p");
       node.addChildNode(proxy, fieldKey("proxy"));
       node.addChildNode(createReference(*proxy));
     },
     "Collision {\n\tcollide TRUE\n\tproxy DEF p Shape {\n\t}\n\tchildren [\n\t\tUSE p\n\t]\n}\n"},
    {"an axis whose digits would not stay", "Transform",
     [](Node& node) { static_cast<TransformNode&>(node).setRotation(0.8000015f, 0.6000005f, 0, 1); },
     "Transform {\n\ttranslation 0 0 0\n\trotation 0.8 0.6 0 1\n\tscale 1 1 1\n\tscaleOrientation 0 0 1 0\n"
     "\tcenter 0 0 0\n}\n"},
    {"a node under another type name", "Group", [](Node& node) { node.setTypeName("Assembly"); }, "Assembly {\n}\n"},
    {"a proxy alone", "Collision", [](Node& node) { node.addChildNode(createNode("Shape"), fieldKey("proxy")); },
     "Collision {\n\tcollide TRUE\n\tproxy Shape {\n\t}\n}\n"},
    {"the speed of a film", "MovieTexture", [](Node& node) { static_cast<MovieTextureNode&>(node).setSpeedTime(2.5f); },
     "MovieTexture {\n\trepeatS TRUE\n\trepeatT TRUE\n\tloop FALSE\n\tstartTime 0.000000\n\tstopTime 0.000000\n"
     "\tspeed 2.5\n}\n"},
    {"an image has no brackets", "PixelTexture",
     [](Node& node) {
       for (const int integer : {1, 2, 1, 255, 0})
         static_cast<PixelTextureNode&>(node).editImageField().addValue(integer);
     },
     "PixelTexture {\n\trepeatS TRUE\n\trepeatT TRUE\n\timage\n\t\t1 2 1 255 0 \n}\n"},
    {"texts are quoted", "WorldInfo",
     [](Node& node) {
       auto& info = static_cast<WorldInfoNode&>(node);
       info.setTitle("a\\b # { }");
       info.editInfo().addValue("");
       info.editInfo().addValue("two\nlines");
     },
     "WorldInfo {\n\ttitle \"a\\b # { }\"\n\tinfo [\n\t\t\"\",\n\t\t\"two\nlines\"\n\t]\n}\n"},
    {"times", "TimeSensor", [](Node& node) { static_cast<TimeSensorNode&>(node).setCycleInterval(1234567.891); },
     "TimeSensor {\n\tenabled TRUE\n\tloop FALSE\n\tcycleInterval 1234567.875000\n\tstartTime 0.000000\n"
     "\tstopTime 0.000000\n}\n"},
    {"a bindable node gives no events", "Background", [](Node&) {}, "Background {\n}\n"},
    {"any other node with children has a block", "WorldInfo", [](Node& node) { add(node, "Shape"); },
     "WorldInfo {\n\ttitle \"\"\n\tchildren [\n\t\tShape {\n\t\t}\n\t]\n}\n"},
    {"what an inline holds is not written", "Inline",
     [](Node& node) {
       static_cast<InlineNode&>(node).editUrl().addValue("a.wrl");
       add(node, "Shape");
     },
     "Inline {\n\turl [\n\t\t\"a.wrl\"\n\t]\n}\n"},
    {"added fields are not written", "Group", [](Node& node) { node.addField(FieldType::SFBool, "mine"); },
     "Group {\n}\n"},
};

TEST(NodeWriter, Texts) {
  for (const Row& row : kRows) {
    const NodePointer node(createNode(row.typeName));
    row.fill(*node);
    EXPECT_EQ(textOf(*node), row.text) << row.name;
  }
}

TEST(NodeWriter, DepthIndentsEveryLine) {
  const NodePointer node(createNode("Switch"));
  add(*node, "Shape");
  EXPECT_EQ(textOf(*node, 2),
            "\t\tSwitch {\n\t\t\twhichChoice -1\n\t\t\tchoice [\n\t\t\t\tShape {\n\t\t\t\t}\n\t\t\t]\n\t\t}\n");
  EXPECT_EQ(textOf(*node, -3), textOf(*node, 0));
}

TEST(NodeWriter, InstancesAndReferencesAreUses) {
  const NodePointer top(createNode("Switch"));
  Node& source = add(*top, "Shape", "s");
  add(source, "Sphere");
  top->addChildNode(copyNode(&source));
  top->addChildNode(createReference(source));
  const std::string uses = "\t\tUSE s\n\t\tUSE s\n\t]\n}\n";
  const std::string text = textOf(*top);
  EXPECT_EQ(text.substr(text.size() - uses.size()), uses);

  const NodePointer shape(createNode("Shape"));
  BoxNode box;
  box.setName("b");
  shape->addChildNode(createReference(box));
  EXPECT_EQ(textOf(*shape), "Shape {\n\tgeometry USE b\n}\n");
}

TEST(NodeWriter, AnInstanceThatNothingNamesIsWrittenOut) {
  NodePointer source(createNode("Switch"));
  add(*source, "Shape");
  const NodePointer unnamed(copyNode(source.get()));
  EXPECT_EQ(textOf(*unnamed), "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n");
  source->setName("s");
  EXPECT_EQ(textOf(*unnamed), "USE s\n");
  source.reset();
  EXPECT_EQ(textOf(*unnamed), "DEF s Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n");
}

class EscapingOwner : public NodeOwner {
 public:
  [[nodiscard]] bool writesEscapes() const override { return true; }
};

TEST(NodeWriter, EscapesAreWrittenWhenTheTreeWasReadSo) {
  EscapingOwner owner;
  WorldInfoNode info;
  info.setTitle("say \"hi\"");
  info.editInfo().addValue("a\\b");
  EXPECT_EQ(textOf(info), "WorldInfo {\n\ttitle \"say \"hi\"\"\n\tinfo [\n\t\t\"a\\b\"\n\t]\n}\n");
  info.setSceneGraph(&owner);
  EXPECT_EQ(textOf(info), "WorldInfo {\n\ttitle \"say \\\"hi\\\"\"\n\tinfo [\n\t\t\"a\\\\b\"\n\t]\n}\n");
  info.setSceneGraph(nullptr);
}

TEST(NodeWriter, AStreamsOwnFormattingChangesNothing) {
  LodNode lod;
  lod.setCenter(0.5f, 1e9f, 255);
  lod.editRange().addValue(255);
  std::ostringstream out;
  out << std::hex << std::showpos << std::scientific;
  lod.write(out, 0);
  EXPECT_EQ(out.str(), "LOD {\n\tcenter 0.5 1e+09 255\n\trange [\n\t\t255\n\t]\n}\n");
}

}  // namespace
}  // namespace vrml
