// Inline files: which is taken, what becomes of it, and what stops it.

#include <gtest/gtest.h>

#include "ReaderTesting.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/nodes/TextureNode.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::kHeader;
using readertest::notesOf;
using readertest::TemporaryFolder;
using readertest::verdict;
using readertest::written;

std::string file(const std::string& text) { return kHeader + text; }

// The types of what the first Inline of the tree holds.
std::string contentOf(const SceneGraph& scene) {
  const Node* const inlined = scene.findNodeByType("Inline");
  std::string text;
  for (const Node* node = inlined ? inlined->getChildNodes() : nullptr; node; node = node->next())
    text += std::string(text.empty() ? "" : " ") + node->getTypeName();
  return text;
}

// Loads "Inline { url URLS }" from the folder sub of a folder with some files.
std::string inlined(const std::string& urls) {
  const TemporaryFolder folder;
  folder.write("sub/here.wrl", file("Shape { } Shape { }"));
  folder.write("up.wrl", file("Group { }"));
  folder.write("sub/deep/er.wrl", file("Sphere { }"));
  folder.write("sub/a b.wrl", file("Cone { }"));
  folder.write("sub/C:drive.wrl", file("Box { }"));
  std::string filled = urls;
  if (const std::size_t at = filled.find("FOLDER"); at != std::string::npos) filled.replace(at, 6, folder.path("sub"));
  SceneGraph scene;
  scene.load(folder.write("sub/main.wrl", file("Inline { url " + filled + " }")), true);
  EXPECT_EQ(verdict(scene), "ok") << urls;
  return contentOf(scene);
}

TEST(Inline, takes_the_first_url_that_opens_as_a_local_file) {
  struct Row {
    const char* urls;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{{"\"here.wrl\"", "Shape Shape"},
                                         {"[ \"none.wrl\" \"here.wrl\" \"../up.wrl\" ]", "Shape Shape"},
                                         {"[ \"\" \"../up.wrl\" ]", "Group"},
                                         {"\"..\\\\up.wrl\"", "Group"},
                                         {"\"deep\\\\er.wrl\"", "Sphere"},
                                         {"\"./deep/../here.wrl\"", "Shape Shape"},
                                         {"\"a b.wrl\"", "Cone"},
                                         {"\"file:here.wrl\"", "Shape Shape"},
                                         {"\"file:FOLDER/here.wrl\"", "Shape Shape"},
                                         {"\"file://FOLDER/here.wrl\"", "Shape Shape"},
                                         {"\"FOLDER/here.wrl\"", "Shape Shape"},
                                         {"\"C:drive.wrl\"", "Box"},
                                         {"\"http://localhost/here.wrl\"", ""},
                                         {"[ \"http://localhost/x.wrl\" \"urn:a:b\" \"here.wrl\" ]", "Shape Shape"},
                                         {"\"deep\"", ""},
                                         {"\"none.wrl\"", ""},
                                         {"[ ]", ""}})
    EXPECT_EQ(inlined(row.urls), row.expected) << row.urls;
}

TEST(Inline, is_relative_to_the_file_that_names_it) {
  const TemporaryFolder folder;
  folder.write("a/b/leaf.wrl", file("Sphere { }"));
  folder.write("a/middle.wrl", file("Inline { url \"b/leaf.wrl\" }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url \"a/middle.wrl\" }")), true);
  const Node* const outer = scene.findNodeByType("Inline");
  ASSERT_NE(outer->getChildNodes(), nullptr);
  ASSERT_TRUE(outer->getChildNodes()->isType("Inline"));
  EXPECT_TRUE(outer->getChildNodes()->getChildNodes()->isType("Sphere"));
}

TEST(Inline, is_read_in_the_current_folder_too) {
  const TemporaryFolder folder;
  folder.write("main.wrl", file("Inline { url \"leaf.wrl\" }"));
  folder.write("leaf.wrl", file("Sphere { }"));
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path(""));
  SceneGraph scene;
  scene.load("main.wrl", true);
  std::filesystem::current_path(before);
  EXPECT_EQ(contentOf(scene), "Sphere");
}

TEST(Inline, knows_the_file_that_it_holds) {
  const TemporaryFolder folder;
  folder.write("sub/here.wrl", file("Shape { }"));
  folder.write("broken.wrl", file("Shape {"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("DEF a Inline { url \"sub/here.wrl\" } USE a "
                                           "Inline { url \"none.wrl\" } Inline { url \"broken.wrl\" } Inline { }")),
             true);
  std::vector<std::string> files;
  for (const Node* node = scene.getRoot()->getChildNodes(); node; node = node->next())
    files.push_back(static_cast<const InlineNode*>(node)->getFile());
  const std::string path = folder.path("sub/here.wrl");
  EXPECT_EQ(files, (std::vector<std::string>{path, path, "", "", ""}));
}

TEST(Inline, is_not_read_without_resolution) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file("Sphere { }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url \"leaf.wrl\" }")), false);
  EXPECT_EQ(contentOf(scene), "");
}

TEST(Inline, is_written_without_what_it_holds) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file("DEF a Shape { }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("DEF i Inline { url \"leaf.wrl\" } USE i USE a")), true);
  EXPECT_EQ(written(scene), "DEF i Inline {\n\turl [\n\t\t\"leaf.wrl\"\n\t]\n}\nUSE i\n");
}

TEST(Inline, keeps_its_names_to_itself) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file("DEF a Sphere { } DEF b Viewpoint { } DEF t TouchSensor { }\nDEF u TouchSensor { "
                                "}\nROUTE t.isActive TO u.enabled\n"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url \"leaf.wrl\" } DEF a Shape { }")), true);
  EXPECT_TRUE(scene.findNodeByName("a")->isType("Shape"));
  EXPECT_EQ(scene.findNodeByName("b"), nullptr);
  EXPECT_EQ(scene.findNodeByType("Sphere"), nullptr);
  EXPECT_EQ(scene.getFirstRoute(), nullptr);
  EXPECT_TRUE(scene.boundNodes(BindStack::viewpoint).empty());
}

TEST(Inline, comes_with_its_references_resolved) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file("DEF a Shape { geometry Sphere { } } USE a"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url \"leaf.wrl\" }")), true);
  EXPECT_EQ(contentOf(scene), "Shape Shape");
  const Node* const content = scene.findNodeByType("Inline")->getChildNodes();
  EXPECT_EQ(content->next()->getReferenceNode(), content);
}

TEST(Inline, is_copied_with_what_it_holds) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file("Shape { }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("DEF g Group { children Inline { url \"leaf.wrl\" } } USE g")), true);
  const Node* const copy = scene.getRoot()->getChild(1)->getChildNodes();
  ASSERT_TRUE(copy->isType("Inline"));
  ASSERT_NE(copy->getChildNodes(), nullptr);
  EXPECT_TRUE(copy->getChildNodes()->isType("Shape"));
}

TEST(Inline, has_two_readings_of_its_own) {
  const TemporaryFolder folder;
  const EchoCapture echo;
  folder.write("leaf.wrl", file("WorldInfo { title \"\\\"\" }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url \"leaf.wrl\" }")), true);
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_FALSE(scene.readWide());
  EXPECT_EQ(contentOf(scene), "WorldInfo");
}

TEST(Inline, that_does_not_parse_attaches_nothing) {
  const TemporaryFolder folder;
  folder.write("bad.wrl", file("Shape { }\nBox { radius 1 }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url [ \"bad.wrl\" ] }\nShape { }")), true);
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_EQ(contentOf(scene), "");
  EXPECT_EQ(scene.getNodeCount(), 2);
}

TEST(Inline, of_a_file_that_is_being_loaded_is_left_empty) {
  const TemporaryFolder folder;
  folder.write("other.wrl", file("Inline { url \"main.wrl\" } Shape { }"));
  SceneGraph scene;
  scene.load(
      folder.write("main.wrl",
                   file("Inline { url \"./main.wrl\" } Inline { url \"other.wrl\" } Inline { url \"other.wrl\" }")),
      true);
  EXPECT_EQ(verdict(scene), "ok");
  const Node* const second = scene.getRoot()->getChild(1);
  ASSERT_NE(second->getChildNodes(), nullptr);
  EXPECT_EQ(second->getChildNodes()->getChildNodes(), nullptr);
  EXPECT_NE(scene.getRoot()->getChild(2)->getChildNodes(), nullptr) << "one after the other is no nesting";
}

TEST(Inline, is_not_read_twice) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file("Shape { }"));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file("Inline { url \"leaf.wrl\" }")), true);
  ASSERT_TRUE(scene.save(folder.path("out.wrl")));
  EXPECT_EQ(contentOf(scene), "Shape");
}

// A chain of files, each of which inlines the next; `depth` of them are inlined.
std::string verdictOfChain(int depth) {
  const TemporaryFolder folder;
  folder.write("f" + std::to_string(depth) + ".wrl", file("Shape { }"));
  for (int i = depth - 1; i >= 0; --i)
    folder.write("f" + std::to_string(i) + ".wrl",
                 file("Group { }\nInline { url \"f" + std::to_string(i + 1) + ".wrl\" }"));
  SceneGraph scene;
  scene.load(folder.path("f0.wrl"), true);
  return verdict(scene);
}

TEST(Inline, nests_sixteen_deep) {
  EXPECT_EQ(verdictOfChain(16), "ok");
  EXPECT_EQ(verdictOfChain(17), "3:Inline:Inline { url \"f1.wrl\" }");
}

TEST(Inline, ends_the_load_beyond_4096_files) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file(""));
  const auto load = [&](std::size_t count) {
    SceneGraph scene;
    scene.load(folder.write("main.wrl", file(readertest::repeated("Inline { url \"leaf.wrl\" }\n", count))), true);
    return verdict(scene);
  };
  EXPECT_EQ(load(4096), "ok");
  EXPECT_EQ(load(4097), "4098:Inline:Inline { url \"leaf.wrl\" }");
}

TEST(Inline, ends_the_load_beyond_1_GiB_of_text) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", std::string(std::size_t{64} << 20, '#'));  // one comment
  const auto load = [&](std::size_t count) {
    SceneGraph scene;
    scene.load(folder.write("main.wrl", file(readertest::repeated("Inline { url \"leaf.wrl\" }\n", count))), true);
    return verdict(scene);
  };
  EXPECT_EQ(load(16), "ok");
  EXPECT_EQ(load(17), "18:Inline:Inline { url \"leaf.wrl\" }");
}

TEST(Inline, shares_the_limits_of_the_load) {
  const TemporaryFolder folder;
  // 1.2 million nodes a file, four times: the fourth does not fit.
  folder.write("leaf.wrl", file("DEF a Group { children [ " + readertest::repeated("Group { } ", 1099) + "] }\n" +
                                readertest::repeated("USE a\n", 1090)));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file(readertest::repeated("Inline { url \"leaf.wrl\" }\n", 4))), true);
  EXPECT_EQ(verdict(scene), "5:Inline:Inline { url \"leaf.wrl\" }");
  ASSERT_FALSE(scene.notes().empty());
  EXPECT_EQ(scene.notes().back().kind, NoteKind::inlineLimit);
}

TEST(Inline, counts_what_it_holds_in_copies) {
  const TemporaryFolder folder;
  folder.write("leaf.wrl", file(readertest::repeated("Group { } ", 2000)));
  SceneGraph scene;
  scene.load(
      folder.write("main.wrl", file("DEF i Inline { url \"leaf.wrl\" }\n" + readertest::repeated("USE i\n", 2100))),
      true);
  EXPECT_EQ(scene.getErrorToken(), "USE");
  EXPECT_NEAR(scene.getErrorLine(), 2000, 5);
}

// No picture is read while a world is loaded; afterwards each texture finds its file beside the world that names it.
TEST(Inline, holds_textures_whose_files_lie_beside_it) {
  const TemporaryFolder folder;
  const std::string shape = "Shape { appearance Appearance { texture DEF t ImageTexture { url \"dot.gif\" } } }";
  folder.write("parts/part.wrl", file(shape));
  SceneGraph scene;
  scene.load(folder.write("main.wrl", file(shape + " DEF i Inline { url \"parts/part.wrl\" } USE i USE t")), true);
  ASSERT_EQ(verdict(scene), "ok");
  // One pixel, of the colour that is given.
  const auto gif = [](char color) {
    return std::string("GIF89a\1\0\1\0\x80\0\0", 13) + std::string(3, color) + std::string(3, '\0') +
           std::string(",\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;", 16);
  };
  folder.write("dot.gif", gif(7));
  folder.write("parts/dot.gif", gif(9));
  const auto colorOf = [](Node* node) {
    auto* const texture = static_cast<TextureNode*>(node);
    return texture->getWidth() == 1 && texture->getHeight() == 1 ? int{texture->getImage()[0]} : -1;
  };
  const auto textureBelow = [](const Node* holder) {
    return holder->getChildNodes()->getChildNodes()->getChildNodes();
  };
  const Node* const root = scene.getRoot();
  const Node* const inlined = root->getFirstChild("Inline");
  const Node* const again = inlined->next("Inline");
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(colorOf(textureBelow(root)), 7);
  EXPECT_EQ(colorOf(textureBelow(inlined)), 9);
  EXPECT_EQ(colorOf(textureBelow(again)), 9);
  EXPECT_EQ(colorOf(root->getFirstChild("ImageTexture")), 7);
}

}  // namespace
}  // namespace vrml
