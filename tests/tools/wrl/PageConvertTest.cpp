// wrl convert to HTML pages, from outside.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "embedded/pages/PageTemplate.h"
#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

const std::string kWorld =
    "#VRML V2.0 utf8\nWorldInfo { title \"A <title>\" }\nViewpoint { description \"Gate\" }\n"
    "Shape { geometry Box { } }\n"
    "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0 ] } coordIndex [ 0 1 2 -1 ] } }\n";

class PageConvert : public testing::Test {
 protected:
  void SetUp() override {
    if (embedded::pageTemplate().empty()) GTEST_SKIP() << "built without a viewer";
  }

  static std::string part(const std::string& page, const std::string& begin, const std::string& end) {
    const std::size_t at = page.find(begin);
    if (at == std::string::npos) return "";
    return page.substr(at + begin.size(), page.find(end, at) - at - begin.size());
  }

  nlohmann::json contentOf(const std::string& file) const {
    return nlohmann::json::parse(part(folder.read(file), "id=\"content\">", "</script>"));
  }

  void convert(std::vector<std::string> arguments, const std::string& input = "") const {
    arguments.insert(arguments.begin(), {"convert", "-q"});
    const ToolResult result = runToolWith(arguments, input);
    EXPECT_EQ(result.status, ExitStatus::done) << result.err;
  }

  const fixtures::TempFolder folder;
};

TEST_F(PageConvert, has_the_title_the_viewpoints_and_the_messages_of_a_world) {
  convert({folder.write("a.wrl", kWorld), folder.path("a.HTML")});
  EXPECT_EQ(part(folder.read("a.HTML"), "<title>", "</title>"), "A &lt;title&gt;");
  const nlohmann::json content = contentOf("a.HTML");
  EXPECT_EQ(content["file"], "a.wrl");
  EXPECT_EQ(content["triangles"], 12);
  EXPECT_EQ(content["views"].back()["name"], "Gate");
  EXPECT_EQ(content["messages"],
            std::vector<std::string>{"IndexedFaceSet: 1 faces with coordinate indices out of range ignored."});
}

TEST_F(PageConvert, says_what_was_wrong_without_the_folders_of_its_author) {
  convert(
      {"--textures",
       folder.write(
           "a.wrl",
           "#VRML V2.0 utf8\nShape { appearance Appearance { texture ImageTexture { url \"gone.png\" } }\n"
           "geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 ] } }\n"),
       folder.path("a.html")});
  const std::string messages = contentOf("a.html")["messages"].dump();
  EXPECT_NE(messages.find("gone.png"), std::string::npos) << messages;
  EXPECT_EQ(messages.find(folder.path("")), std::string::npos) << messages;
}

TEST_F(PageConvert, holds_the_first_of_very_many_messages) {
  std::string world = "#VRML V2.0 utf8\nShape { geometry Box { } }\n";
  for (int i = 0; i < 600; ++i) world += "Shape { geometry IndexedFaceSet { coordIndex [ 0 1 2 -1 ] } }\n";
  convert({folder.write("a.wrl", world), folder.path("a.html")});
  const nlohmann::json messages = contentOf("a.html")["messages"];
  EXPECT_EQ(messages.size(), 501U);
  EXPECT_EQ(messages.back(), "and 100 more");
}

TEST_F(PageConvert, holds_the_model_as_binary_gltf) {
  folder.write("a.wrl", kWorld);
  convert({folder.path("a.wrl"), folder.path("a.html")});
  convert({folder.path("a.wrl"), folder.path("a.glb")});
  const std::string model = part(folder.read("a.html"), "id=\"model\">", "</script>");
  EXPECT_EQ(model.substr(0, 8), "Z2xURgIA") << "how every such file begins";
  EXPECT_EQ(model.size(), (folder.read("a.glb").size() + 2) / 3 * 4);
}

TEST_F(PageConvert, is_made_of_other_inputs) {
  folder.write("a.wrl", kWorld);
  convert({folder.path("a.wrl"), folder.path("a.json")});
  convert({folder.path("a.wrl"), folder.path("a.stl")});
  convert({folder.path("a.json"), folder.path("b.html")});
  convert({folder.path("a.stl"), folder.path("c.html")});
  convert({"-", folder.path("d.html")}, kWorld);
  EXPECT_EQ(contentOf("b.html")["file"], "a.json");
  EXPECT_EQ(contentOf("c.html")["file"], "a.stl");
  EXPECT_EQ(contentOf("d.html")["file"], "");
  for (const char* file : {"b.html", "c.html", "d.html"}) EXPECT_EQ(contentOf(file)["triangles"], 12) << file;
  EXPECT_EQ(part(folder.read("c.html"), "<title>", "</title>"), "a.stl");
  EXPECT_EQ(part(folder.read("d.html"), "<title>", "</title>"), "A &lt;title&gt;");
}

TEST_F(PageConvert, goes_to_standard_output) {
  const ToolResult model = runToolWith({"convert", "-q", "--to", "glb", "-"}, kWorld);
  const ToolResult result = runToolWith({"convert", "-q", "--to", "html", "-"}, kWorld);
  EXPECT_EQ(result.status, ExitStatus::done) << result.err;
  EXPECT_EQ(part(result.out, "<title>", "</title>"), "A &lt;title&gt;");
  EXPECT_EQ(part(result.out, "id=\"model\">", "</script>").size(), (model.out.size() + 2) / 3 * 4);
}

TEST_F(PageConvert, is_named_like_its_own_file_where_nothing_else_has_a_name) {
  convert({"-", folder.path("d.html")}, "#VRML V2.0 utf8\nShape { geometry Box { } }\n");
  EXPECT_EQ(part(folder.read("d.html"), "<title>", "</title>"), "d.html");
}

TEST_F(PageConvert, goes_over_many_files) {
  folder.write("a.wrl", kWorld);
  folder.write("b.wrl", "#VRML V2.0 utf8\nShape { geometry Sphere { } }\n");
  convert({"--to", "html", folder.path("")});
  EXPECT_EQ(contentOf("a.html")["file"], "a.wrl");
  EXPECT_EQ(contentOf("b.html")["file"], "b.wrl");
}

TEST_F(PageConvert, is_not_written_of_what_does_not_load) {
  const ToolResult result =
      runToolWith({"convert", "-q", folder.write("a.wrl", "#VRML V2.0 utf8\nShape {"), folder.path("a.html")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(folder.read("a.html"), "");
}

}  // namespace
}  // namespace wrl
