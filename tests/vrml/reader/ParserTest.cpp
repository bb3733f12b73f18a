// The parser as a container: loading, searching, the process-wide stack, and that nothing of one load reaches the next.

#include "vrml/reader/Parser.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include <sys/stat.h>

#include "ReaderTesting.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::kHeader;
using readertest::loadText;
using readertest::TemporaryFolder;
using readertest::verdict;

TEST(Parser, begins_empty) {
  const Parser parser;
  EXPECT_FALSE(parser.succeeded());
  EXPECT_FALSE(parser.isParsing());
  EXPECT_FALSE(parser.readWide());
  EXPECT_EQ(parser.getErrorLine(), 0);
  EXPECT_EQ(parser.getErrorToken(), "");
  EXPECT_EQ(parser.getErrorLineText(), "");
  EXPECT_EQ(parser.getFirstRoute(), nullptr);
  EXPECT_TRUE(parser.getRoot()->isType("Root"));
  EXPECT_EQ(parser.getRoot()->getNumChildNodes(), 0);
}

TEST(Parser, names_a_file_that_cannot_be_opened) {
  const TemporaryFolder folder;
  for (const std::string& path : {folder.path("none.wrl"), folder.path("")}) {
    SceneGraph scene;
    loadText(scene, "Box { radius 1 }");
    ::testing::internal::CaptureStderr();
    static_cast<Parser&>(scene).load(path);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Cannot open data file " + path + "\n");
    EXPECT_FALSE(scene.succeeded());
    EXPECT_EQ(scene.getErrorLine(), 0);
    EXPECT_EQ(scene.getErrorToken(), "");
    EXPECT_EQ(scene.getErrorLineText(), "");
    EXPECT_EQ(scene.getNodeCount(), 1) << "the scene keeps what it held";
    EXPECT_EQ(Parser::currentParser(), nullptr);
  }
}

TEST(Parser, loads_into_what_it_holds) {
  const TemporaryFolder folder;
  const std::string first = folder.write("a.wrl", std::string(kHeader) + "DEF a Shape { }\nDEF t TouchSensor { }\n");
  const std::string second = folder.write("b.wrl", std::string(kHeader) + "USE a\n");
  Parser parser;
  parser.load(first);
  parser.load(second);
  EXPECT_TRUE(parser.succeeded());
  EXPECT_EQ(parser.getRoot()->getNumChildNodes(), 3);
  EXPECT_EQ(parser.findNodeByName("a"), parser.getRoot()->getChildNodes());
}

TEST(Parser, takes_back_a_reading_before_the_next_one) {
  const TemporaryFolder folder;
  const std::string first = folder.write("a.wrl", std::string(kHeader) + "DEF a TouchSensor { }\n");
  // Refused at its end by the exact rules, behind nodes and a route.
  const std::string second =
      folder.write("b.wrl", std::string(kHeader) +
                                "DEF b TouchSensor { }\nROUTE a.isActive TO b.enabled\nWorldInfo { title \"\\\"\" }\n");
  const std::string broken = folder.write(
      "c.wrl", std::string(kHeader) + "DEF c TouchSensor { }\nROUTE a.isActive TO c.enabled\nBox { radius 1 }\n");
  const EchoCapture echo;
  Parser parser;
  parser.load(first);
  parser.load(second);
  EXPECT_TRUE(parser.succeeded());
  EXPECT_TRUE(parser.readWide());
  EXPECT_EQ(parser.getRoot()->getNumChildNodes(), 3);
  ASSERT_NE(parser.getFirstRoute(), nullptr);
  EXPECT_EQ(parser.getFirstRoute()->next(), nullptr);
  EXPECT_EQ(parser.getFirstRoute()->getToNode(), parser.findNodeByName("b"));
  parser.load(broken);
  EXPECT_FALSE(parser.succeeded());
  EXPECT_FALSE(parser.readWide());
  EXPECT_EQ(parser.getRoot()->getNumChildNodes(), 5) << "what was built before the error stays";
  ASSERT_NE(parser.getFirstRoute()->next(), nullptr);
  EXPECT_EQ(parser.getFirstRoute()->next()->next(), nullptr);
}

TEST(Parser, resets_everything_at_a_load) {
  const EchoCapture echo;
  for (const char* const broken :
       {"Script { url 5 }", "Script { field", "PROTO P [ ] { Switch { nosuch 1 Shape { } } }\nP { }", "DEF x",
        "DEF x Shape { foo", "DEF x Foo", "Group { children [ USE", "PROTO P [", "WorldInfo { title \"", "DEF x {",
        "Group { Group {"}) {
    SceneGraph scene;
    loadText(scene, broken);
    loadText(scene, "P { } Transform { translation 1 2 3 } USE x");
    EXPECT_EQ(verdict(scene), "ok") << broken;
    EXPECT_EQ(scene.getNodeCount(), 1) << broken;
    EXPECT_EQ(scene.getRoot()->getChildNodes()->getName(), "") << broken;
    EXPECT_EQ(Parser::currentParser(), nullptr) << broken;
  }
}

TEST(Parser, finds_nodes_by_type) {
  SceneGraph scene;
  loadText(scene, "Group { children [ Shape { geometry DEF s Sphere { } } ] } DEF t Shape { geometry USE s }", false);
  EXPECT_STREQ(scene.findNodeByType("Sphere")->getTypeName(), "Sphere");
  EXPECT_EQ(scene.findNodeByType("Shape")->getParent(), scene.getRoot()->getChildNodes());
  EXPECT_EQ(scene.findNodeByType("DEF"), scene.findNodeByName("s")) << "a reference is followed";
  EXPECT_EQ(scene.findNodeByType("Box"), nullptr);
  EXPECT_EQ(scene.findNodeByType("Nonsense"), nullptr);
  EXPECT_EQ(scene.findNodeByType(""), nullptr);
}

TEST(Parser, adds_nodes_to_its_root) {
  Parser parser;
  Node* const group = createNode("Group");
  group->addChildNode(createNode("Shape"));
  parser.addNode(group);
  parser.addNode(nullptr);
  EXPECT_EQ(group->getParent(), parser.getRoot());
  EXPECT_EQ(group->getSceneGraph(), &parser);
  EXPECT_EQ(group->getChildNodes()->getSceneGraph(), &parser);
  EXPECT_EQ(parser.findNodeByType("Shape"), group->getChildNodes());
}

TEST(Parser, stacks_active_parsers) {
  EXPECT_EQ(Parser::currentParser(), nullptr);
  Parser::popParser();
  Parser first;
  Parser second;
  Parser::pushParser(first);
  EXPECT_EQ(Parser::currentParser(), &first);
  Parser::pushParser(second);
  EXPECT_EQ(Parser::currentParser(), &second);
  Parser::pushParser(first);
  EXPECT_EQ(Parser::currentParser(), &first) << "it stands in the stack once";
  Parser::popParser();
  EXPECT_EQ(Parser::currentParser(), &second);
  Parser::popParser();
  EXPECT_EQ(Parser::currentParser(), nullptr);
  {
    Parser shortLived;
    Parser::pushParser(shortLived);
  }
  EXPECT_EQ(Parser::currentParser(), nullptr) << "a parser that ends leaves the stack";
}

TEST(Parser, hands_the_pending_name_out_once) {
  EXPECT_EQ(Parser::takePendingDefName(), nullptr);
  Parser::setPendingDefName("nobody");
  Parser parser;
  Parser::pushParser(parser);
  EXPECT_EQ(Parser::takePendingDefName(), nullptr);
  Parser::setPendingDefName("a");
  Parser::setPendingDefName("b");
  EXPECT_STREQ(Parser::takePendingDefName(), "b");
  EXPECT_EQ(Parser::takePendingDefName(), nullptr);
  Parser::setPendingDefName("");
  EXPECT_EQ(Parser::takePendingDefName(), nullptr);
  Parser::setPendingDefName(std::string(1000, 'n'));
  EXPECT_EQ(std::string(Parser::takePendingDefName()), std::string(511, 'n'));
  Parser::popParser();
}

TEST(Parser, knows_the_PROTOs_of_the_current_parser) {
  EXPECT_EQ(Parser::findPROTO("P"), nullptr);
  Parser::definePROTO("P", "", "");
  Parser parser;
  Parser other;
  Parser::pushParser(parser);
  EXPECT_EQ(Parser::findPROTO("P"), nullptr);
  Parser::definePROTO("P", "Shape { }", "");
  Parser::definePROTO("P", "Box { }", "");
  ASSERT_NE(Parser::findPROTO("P"), nullptr);
  EXPECT_EQ(Parser::findPROTO("P")->body(), "Shape { }");
  EXPECT_EQ(Parser::findPROTO("p"), nullptr);
  Parser::pushParser(other);
  EXPECT_EQ(Parser::findPROTO("P"), nullptr);
  Parser::popParser();
  Parser::popParser();
}

TEST(Parser, makes_routes_from_texts) {
  Parser::addRouteText("a.isActive TO b.enabled");
  Parser parser;
  Parser::pushParser(parser);
  for (const char* const name : {"a", "b"}) {
    Node* const node = createNode("TouchSensor");
    node->setName(name);
    parser.addNode(node);
  }
  Parser::addRouteText("");
  Parser::addRouteText(" a.isActive TO b.enabled");
  Parser::popParser();
  ASSERT_NE(parser.getFirstRoute(), nullptr);
  EXPECT_EQ(parser.getFirstRoute()->getToNode(), parser.findNodeByName("b"));
  EXPECT_EQ(parser.getFirstRoute()->next(), nullptr);
}

TEST(Parser, reports_its_lines) {
  const TemporaryFolder folder;
  const std::string path = folder.write("a.wrl", std::string(kHeader) + "Group {\n# x\n}\nROUTE a.b TO c.d\n");
  std::vector<int> lines;
  SceneGraph scene;
  scene.load(
      path, false, [](int line, void* data) { static_cast<std::vector<int>*>(data)->push_back(line); }, &lines);
  EXPECT_EQ(lines, (std::vector<int>{2, 3, 4, 5, 6}));
}

TEST(Parser, reports_no_line_twice) {
  const TemporaryFolder folder;
  const std::string path =
      folder.write("a.wrl", std::string(kHeader) + "WorldInfo {\n title \"\\\"\"\n\n}\nGroup { }\n");
  const EchoCapture echo;
  std::vector<int> lines;
  SceneGraph scene;
  scene.load(
      path, false, [](int line, void* data) { static_cast<std::vector<int>*>(data)->push_back(line); }, &lines);
  EXPECT_TRUE(scene.readWide());
  EXPECT_EQ(lines, (std::vector<int>{2, 3, 4, 5, 6, 7}));
}

TEST(Parser, echoes_no_character_twice) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, "+ WorldInfo { title \"a\\\"b\" } ; Group { } +");
  EXPECT_TRUE(scene.readWide());
  EXPECT_EQ(echo.text(), "+;+");
}

TEST(Parser, echoes_to_the_standard_output) {
  ::testing::internal::CaptureStdout();
  SceneGraph scene;
  loadText(scene, "+ ; Group { }");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "+;");
}

// Loads another file from within a load.
struct Nesting {
  std::string path;
  int innerNodes = 0;
  Parser* outer = nullptr;
};

void loadInside(int line, void* data) {
  auto& nesting = *static_cast<Nesting*>(data);
  if (line != 5) return;
  EXPECT_EQ(Parser::currentParser(), nesting.outer);
  SceneGraph inner;
  inner.load(nesting.path, true);
  EXPECT_TRUE(inner.succeeded());
  nesting.innerNodes = inner.getNodeCount();
  EXPECT_EQ(Parser::currentParser(), nesting.outer);
}

TEST(Parser, gives_back_what_a_nested_load_found) {
  const TemporaryFolder folder;
  Nesting nesting;
  nesting.path = folder.write(
      "inner.wrl", std::string(kHeader) + "Script { url \"x\" } DEF a Shape { }\nP { } PROTO P [] { Box { } } USE a");
  // The callback comes in the midst of a script's declaration, with a PROTO known.
  const std::string outer = folder.write("outer.wrl",
                                         "#VRML V2.0 utf8\nPROTO P [] { Cone { } } Shape { geometry P { } }\nScript {\n"
                                         "field SFFloat size\n1 } DEF a Group { }\nUSE a\n");
  SceneGraph scene;
  nesting.outer = &scene;
  static_cast<Parser&>(scene).load(outer, &loadInside, &nesting);
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(nesting.innerNodes, 3);
  EXPECT_EQ(scene.getNodeCount(), 4);
  EXPECT_EQ(scene.findNodeByType("Box"), nullptr);
  EXPECT_NE(scene.findNodeByType("Cone"), nullptr);
  EXPECT_EQ(Parser::currentParser(), nullptr);
}

TEST(Parser, is_parsing_only_while_the_grammar_runs) {
  SceneGraph scene;
  const TemporaryFolder folder;
  bool wasParsing = false;
  struct Watch {
    SceneGraph* scene;
    bool* wasParsing;
  } watch{&scene, &wasParsing};
  scene.load(
      folder.write("a.wrl", kHeader), false,
      [](int, void* data) { *static_cast<Watch*>(data)->wasParsing = static_cast<Watch*>(data)->scene->isParsing(); },
      &watch);
  EXPECT_TRUE(wasParsing);
  EXPECT_FALSE(scene.isParsing());
}

TEST(Parser, reads_a_pipe) {
  const TemporaryFolder folder;
  const std::string path = folder.path("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(path, std::ios::binary) << kHeader << "Shape { }\nDEF a Group { }\n"; });
  SceneGraph scene;
  scene.load(path, true);
  writer.join();
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(scene.getNodeCount(), 2);
}

TEST(Parser, counts_lines) {
  const TemporaryFolder folder;
  struct Row {
    std::string text;
    int count;
  };
  for (const Row& row : std::vector<Row>{{"", 0},
                                         {"a", 1},
                                         {"a\n", 1},
                                         {"\n\n", 2},
                                         {"a\nb", 2},
                                         {std::string(65'534, 'x') + "\n", 1},
                                         {std::string(65'535, 'x') + "\n", 2},
                                         {std::string(65'535, 'x'), 1},
                                         {std::string(65'536, 'x'), 2},
                                         {std::string(131'070, 'x') + "\na\n", 4}})
    EXPECT_EQ(Parser::countLines(folder.write("a.wrl", row.text)), row.count) << row.text.size();
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(Parser::countLines(folder.path("none")), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Cannot open data file " + folder.path("none") + "\n");
}

}  // namespace
}  // namespace vrml
