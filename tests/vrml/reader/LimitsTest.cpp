// The limits, each reached and each passed, and inputs that must cost no more than their size.

#include "vrml/reader/Limits.h"

#include <gtest/gtest.h>

#include "ReaderTesting.h"
#include "vrml/fields/MFInt32.h"
#include "vrml/fields/SFString.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::loadText;
using readertest::repeated;
using readertest::verdict;

std::string verdictOf(const std::string& text) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, text);
  return verdict(scene);
}

TEST(Limits, open_nodes) {
  EXPECT_EQ(verdictOf(repeated("LOD{level\n", 4096) + "NULL" + repeated("}", 4096)), "ok");
  EXPECT_EQ(verdictOf(repeated("LOD{level\n", 4097) + "NULL" + repeated("}", 4097)), "4098:LOD:LOD{level");
}

TEST(Limits, open_nodes_of_a_million) {
  EXPECT_EQ(verdictOf(repeated("Group { children\n", 1'000'000)), "4098:Group:Group { children");
  EXPECT_EQ(verdictOf(repeated("Group { children [\n", 1'000'000)), "4098:Group:Group { children [");
}

// `depth` PROTOs, each of which uses the one before it, and an instance of the last.
std::string nestedProtos(int depth) {
  std::string text = "PROTO P1 [ ] { Shape { } }\n";
  for (int i = 2; i <= depth; ++i)
    text += "PROTO P" + std::to_string(i) + " [ ] { Group { children P" + std::to_string(i - 1) + " { } } }\n";
  return text + "P" + std::to_string(depth) + " { }\n";
}

TEST(Limits, depth_of_expansions) {
  EXPECT_EQ(verdictOf(nestedProtos(64)), "ok");
  EXPECT_EQ(verdictOf(nestedProtos(65)), "67:P1:P65 { }");
  EXPECT_EQ(verdictOf("PROTO P [ ] { Switch { choice P { } } }\nShape { }"), "ok") << "it matters where it is used";
  EXPECT_EQ(verdictOf("PROTO P [ ] { Switch { choice P { } } }\nP { }"), "3:P:P { }");
  EXPECT_EQ(verdictOf("PROTO P [ ] { P { } }\nP { }"), "3:P:P { }");
  EXPECT_EQ(verdictOf("PROTO P [ ] { DEF a P { } }\nP { }"), "3:P:P { }");
  EXPECT_EQ(verdictOf("PROTO P [ ] { Shape { } }\n" + repeated("P { } ", 1000)), "ok")
      << "one after the other is no nesting";
}

TEST(Limits, text_of_expansions) {
  std::string text = "PROTO A0 [ ] { WorldInfo { title \"" + std::string(50'000, 'x') + "\" } }\n";
  for (int i = 1; i < 20; ++i)
    text += "PROTO A" + std::to_string(i) + " [ ] { Group { children [ " +
            repeated("A" + std::to_string(i - 1) + " { } ", 4) + "] } }\n";
  const std::string found = verdictOf(text + "A19 { }\n");
  EXPECT_EQ(found.substr(0, 3), "22:") << found;
  EXPECT_EQ(found.substr(found.size() - 8), ":A19 { }") << found;
}

TEST(Limits, text_of_one_expansion) {
  const std::string interface = "PROTO P [ field SFString v \"" + std::string(1'000'000, 'x') + "\" ] { Script { ";
  EXPECT_EQ(verdictOf(interface + repeated("field SFString x IS v ", 68) + "} }\nP { }"), "3:P:P { }");
  EXPECT_EQ(verdictOf(interface + repeated("field SFString x IS v ", 66) + "} }\nP { }"), "ok");
}

TEST(Limits, nodes_of_a_tree) {
  // The copies of the last line do not fit: 1 + 10 + 100 ... of them.
  std::string text = "DEF n0 Group { }\n";
  for (int i = 1; i < 12; ++i)
    text += "DEF n" + std::to_string(i) + " Group { children [ " + repeated("USE n" + std::to_string(i - 1) + " ", 10) +
            "] }\n";
  const std::string found = verdictOf(text);
  EXPECT_EQ(found.substr(0, 6), "9:USE:") << found;
}

TEST(Limits, nodes_of_a_tree_that_uses_itself) {
  EXPECT_EQ(verdictOf("DEF a Group { children [ Group { }\n" + repeated("USE a ", 50) + "] }").substr(0, 6), "3:USE:");
}

TEST(Limits, nodes_of_a_tree_without_copies) {
  SceneGraph scene;
  loadText(scene, repeated("Group{}", 4'000'000) + "\nGroup { }", false);
  EXPECT_EQ(verdict(scene), "3:Group:Group { }");
  EXPECT_EQ(scene.getNodeCount(), 4'000'000);
  loadText(scene, "DEF a Group { }" + repeated("Group{}", 3'999'999) + "\nUSE a", false);
  EXPECT_EQ(verdict(scene), "3:USE:USE a");
}

// ---- large inputs: the results; that they cost no more than their size is what keeps this test short

TEST(LargeInputs, references_behind_nodes) {
  SceneGraph scene;
  loadText(scene, "Group { children [ " + repeated("Shape { } ", 30'000) + "] }\nDEF a Shape { }\n" +
                      repeated("USE a\n", 100'000));
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.getNodeCount(), 100'002);
  const Node* const last = scene.getRoot()->getChild(100'001);
  EXPECT_TRUE(last->isType("Shape"));
  EXPECT_EQ(last->getReferenceNode(), scene.findNodeByName("a"));
}

TEST(LargeInputs, routes) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "DEF t" + std::to_string(i) + " TouchSensor { }\n";
  for (int i = 0; i < 100'000; ++i)
    text += "ROUTE t" + std::to_string(i % 1000) + ".isActive TO t" + std::to_string((i % 1000 + 1 + i / 1000) % 1000) +
            ".enabled\n";
  SceneGraph scene;
  loadText(scene, text + text);
  EXPECT_EQ(verdict(scene), "ok");
  int count = 0;
  for (const Route* route = scene.getFirstRoute(); route; route = route->next()) ++count;
  EXPECT_EQ(count, 100'000);
}

TEST(LargeInputs, PROTOs_and_instances) {
  std::string text;
  for (int i = 0; i < 10'000; ++i)
    text += "PROTO P" + std::to_string(i) + " [ field SFInt32 n " + std::to_string(i) +
            " ] { Switch { whichChoice IS n } }\n";
  for (int i = 0; i < 100'000; ++i) text += "P" + std::to_string(i % 10'000) + " { }\n";
  SceneGraph scene;
  loadText(scene, text);
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.getNodeCount(), 100'000);
}

TEST(LargeInputs, an_interface_with_many_names) {
  std::string interface;
  std::string body;
  std::string instance;
  for (int i = 0; i < 50'000; ++i) {
    const std::string name = "n" + std::to_string(i);
    interface += "field SFInt32 " + name + " 1\n";
    body += "field SFInt32 f IS " + name + "\n";
    instance += name + " 2\n";
  }
  EXPECT_EQ(verdictOf("PROTO P [ " + interface + " ] { Script { " + body + " } }\nP { " + instance + " }\nPROTO Q [ " +
                      interface + "] { Shape { } }\n" + repeated("Q { }\n", 50'000)),
            "ok");
}

TEST(LargeInputs, a_line_a_name_and_a_string) {
  const std::string name(70'000, 'n');
  SceneGraph scene;
  loadText(scene,
           "WorldInfo { title \"" + name + "\" } " + name + " { } Shape { } " + std::string(70'000, ' ') + "Shape { }");
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.getNodeCount(), 3);
  EXPECT_EQ(static_cast<SFString*>(scene.getRoot()->getChild(0)->getField("title"))->getValue(), name);
  ASSERT_EQ(scene.notes().size(), 1u);
  EXPECT_EQ(scene.notes()[0].nodeType, name);
}

TEST(LargeInputs, a_list_of_a_million_numbers) {
  SceneGraph scene;
  loadText(scene, "IndexedLineSet { coordIndex [ " + repeated("-1 ", 1'000'000) + "] }");
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(static_cast<MFInt32*>(scene.getRoot()->getChild(0)->getField("coordIndex"))->getSize(), 1'000'000);
}

TEST(LargeInputs, bearers_of_one_name) {
  SceneGraph scene;
  loadText(scene, repeated("DEF a Shape { }\n", 100'000) + repeated("USE a\n", 1000));
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.findNodeByName("a"), scene.getRoot()->getChildNodes());
  EXPECT_EQ(scene.getNodeCount(), 101'000);
}

TEST(LargeInputs, what_is_passed_over) {
  SceneGraph scene;
  loadText(scene, repeated("Foo { a { b } }\n", 100'000) + repeated("USE nobody\n", 100'000));
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.notes().size(), 200'000u);
  EXPECT_EQ(verdictOf(repeated("Foo { ", 300'000)), "2::" + repeated("Foo { ", 10'922) + "Foo");
}

TEST(LargeInputs, texts_without_an_end) {
  EXPECT_EQ(verdictOf("WorldInfo { title \"" + repeated("\\\"", 500'000)).substr(0, 5), "2:\"\\\"");
  EXPECT_EQ(verdictOf(repeated("DEF a \"x {\n", 100'000)).substr(0, 6), "2:\"x {");
  EXPECT_EQ(verdictOf(repeated("PROTO P [ ] {\n", 100'000)), "ok");
  EXPECT_EQ(verdictOf(repeated("[", 1'000'000)).substr(0, 4), "2:[:");
}

}  // namespace
}  // namespace vrml
