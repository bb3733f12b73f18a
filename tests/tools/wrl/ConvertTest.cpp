// wrl convert from outside: which files it takes, and what becomes of them.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>

#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

const std::string kWorld =
    "#VRML V2.0 utf8\n"
    "DEF part Group { children Shape { geometry IndexedFaceSet { "
    "coord Coordinate { point [ 0 0 0, 2 0 0, 0 3 0 ] } coordIndex [ 0 1 2 -1 ] } } }\n";

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// The box around everything, as `wrl info` gives it: its least corner, then its largest one, to a thousandth.
std::vector<double> boxOf(const std::string& file) {
  const std::string out = runToolWith({"info", "--no-stats", file}).out;
  const std::size_t at = out.find("bounding box  ");
  if (at == std::string::npos) return {};
  std::vector<double> box(6);
  std::sscanf(out.c_str() + at, "bounding box  %lf %lf %lf to %lf %lf %lf", &box[0], &box[1], &box[2], &box[3], &box[4],
              &box[5]);
  for (double& number : box) number = std::round(number * 1000.0) / 1000.0 + 0.0;
  return box;
}

TEST(ConvertCommand, goes_from_each_format_to_each) {
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", kWorld);
  for (const char* step : {"a.wrl b.json", "b.json c.json", "b.json d.wrl", "a.wrl e.WRL"}) {
    SCOPED_TRACE(step);
    const std::string words = step;
    const std::size_t blank = words.find(' ');
    const ToolResult result = runToolWith(
        {"convert", "--no-stats", folder.path(words.substr(0, blank)), folder.path(words.substr(blank + 1))});
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
  }
  EXPECT_EQ(folder.read("b.json"), runToolWith({"stage", "--no-stats", world}).out);
  EXPECT_EQ(folder.read("c.json"), folder.read("b.json"));
  EXPECT_EQ(folder.read("d.wrl"), folder.read("e.WRL"));
  EXPECT_EQ(runToolWith({"check", folder.path("d.wrl")}).out.substr(0, folder.path("d.wrl: ok").size()),
            folder.path("d.wrl: ok"));
}

TEST(ConvertCommand, reads_a_world_on_standard_input) {
  const fixtures::TempFolder folder;
  EXPECT_EQ(runToolWith({"convert", "-", folder.path("a.json")}, kWorld).status, ExitStatus::done);
  EXPECT_TRUE(holds(folder.read("a.json"), "\"part\""));
}

TEST(ConvertCommand, writes_a_world_to_standard_output) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kWorld);
  EXPECT_EQ(runToolWith({"convert", file, folder.path("b.wrl")}).status, ExitStatus::done);
  const ToolResult result = runToolWith({"convert", "--no-stats", file, "-"});
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, folder.read("b.wrl"));
  EXPECT_EQ(runToolWith({"export", "-", "-"}, runToolWith({"stage", "-q", file}).out).out, result.out);
  const ToolResult full = runToolWith({"convert", "--no-stats", file, "-"}, "", "/dev/full");
  EXPECT_EQ(full.status, ExitStatus::failed);
  EXPECT_EQ(full.err, "standard output: error: No space left on device\n");
  const ToolResult null = runToolWith({"export", "-", "-"}, R"({"assembly": null})");
  EXPECT_EQ(null.status, ExitStatus::failed);
  EXPECT_EQ(null.out, "");
  EXPECT_EQ(null.err, "standard output: error: there is no assembly to write\n");
}

TEST(ConvertCommand, names_what_does_not_fit_through_standard_output) {
  const fixtures::TempFolder folder;
  const ToolResult result = runToolWith({"convert", "--no-stats", "--to", "obj", "-"}, kWorld);
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_TRUE(holds(result.out, "\nv ")) << result.out;
  EXPECT_EQ(result.err, "standard output: note: output.mtl is left out\n");
}

TEST(ConvertCommand, names_the_formats_it_knows) {
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", kWorld);
  struct Row {
    std::vector<std::string> arguments;
    std::string message;
  };
  const Row rows[] = {
      {{"convert", "a.xyz", "b.wrl"}, "a.xyz: error: no format that is read; known are .wrl"},
      {{"convert", "folder.wrl/a", "b.wrl"}, "folder.wrl/a: error: no format that is read; known are .wrl"},
      {{"convert", world, "b"}, "b: error: no format that is written; known are .wrl"},
      {{"convert", "--up", "y", "a.json", "b.wrl"}, "--up: error: a stage document has its own axes\n"},
  };
  for (const Row& row : rows) {
    const ToolResult result = runToolWith(row.arguments);
    EXPECT_EQ(result.status, ExitStatus::usage);
    EXPECT_EQ(result.err.substr(0, row.message.size()), row.message);
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(folder.entryCount(), 1);
}

TEST(ConvertCommand, says_when_numbers_make_a_world_unreadable) {
  const fixtures::TempFolder folder;
  const std::string triangle = R"({"type": "sglIndexedTriangleSet", "numPrims": 1, "coords": [0,0,0, 1,0,0, 0,1,Z],
    "normals": [N,0,1], "coordIndex": [0,1,2], "normalIndex": [0,0,0], "states": []})";
  const std::string document = R"({"assembly": {"type": "root", "children": [{"type": "group",
    "matrix": [1,0,0,0, 0,1,0,0, 0,0,1,0, M,0,0,1], "children": [{"type": "mesh", "visible": VISIBLE,
    "geode": {"geometries": [null, )" +
                               triangle + R"(]}}]}]}})";
  struct Row {
    const char* z;
    const char* normal;
    const char* move;
    const char* visible;
    bool isReadable;
  };
  const Row rows[] = {
      {"0", "0", "0", "true", true},     {"null", "0", "0", "true", false}, {"0", "null", "0", "true", false},
      {"0", "0", "null", "true", false}, {"null", "0", "0", "false", true}, {"1e38", "0", "0", "true", true},
  };
  for (const Row& row : rows) {
    std::string text = document;
    const auto put = [&text](const std::string& mark, const char* value) {
      text.replace(text.find(mark), mark.size(), value);
    };
    put("VISIBLE", row.visible);
    put(",Z]", (std::string(",") + row.z + "]").c_str());
    put("[N,", (std::string("[") + row.normal + ",").c_str());
    put(" M,", (std::string(" ") + row.move + ",").c_str());
    SCOPED_TRACE(text);
    const std::string world = folder.path("a.wrl");
    const ToolResult result = runToolWith({"convert", folder.write("a.json", text), world});
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.err, row.isReadable ? "" : world + ": note: holds numbers that no reader takes\n");
    EXPECT_EQ(runToolWith({"check", world}).status, row.isReadable ? ExitStatus::done : ExitStatus::failed);
  }
}

TEST(ConvertCommand, says_so_of_materials_and_cameras_and_of_nothing_that_is_left_out) {
  const std::string nowhere = "[1,0,0,0, 0,1,0,0, 0,0,1,0, 0,null,0,1]";
  const std::string huge = "[1e38,0,0,0, 0,1e38,0,0, 0,0,1e38,0, 0,0,0,1]";
  const std::string endless = "[3e38,3e38,3e38,0, 0,1,0,0, 0,0,1,0, 0,0,0,1]";
  const std::string origin = "[1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,1]";
  const auto nest = [&huge](int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text.append(R"({"type":"group","matrix":)").append(huge).append(R"(,"children":[)");
    for (int i = 0; i < depth; ++i) text += "]}";
    return text;
  };
  const auto mesh = [](const std::string& type, const std::string& z, const std::string& material) {
    return R"({"type":")" + type +
           R"(","geode":{"geometries":[{"type":"sglTriangleSet","numPrims":1,"coords":[0,0,0,1,0,0,0,1,)" + z +
           R"(],"states":[{"type":"sglMaterial",)" + material + "}]}]}}";
  };
  struct Row {
    std::string root;
    std::string child;
    std::string camera;
    std::string view;
    bool isReadable;
  };
  const Row rows[] = {
      {origin, "null", origin, origin, true},
      {nowhere, "null", origin, origin, true},
      {origin, R"({"type":"group","matrix":)" + nowhere + "}", origin, origin, false},
      {origin, R"({"type":"group","matrix":)" + endless + "}", origin, origin, false},
      {origin, nest(12), origin, origin, true},
      {origin, mesh("mesh", "0", R"("shininess":null)"), origin, origin, false},
      {origin, mesh("mesh", "0", R"("alpha":1e40)"), origin, origin, false},
      {origin, mesh("mesh", "0", R"("specular":[0,0,null])"), origin, origin, false},
      {origin, mesh("mesh", "0", R"("ambient":[0,0,null])"), origin, origin, true},
      {origin, mesh("mesh", "0", R"("shininess":null},{"type":"sglMaterial")"), origin, origin, true},
      {origin, mesh("actor", "null", R"("shininess":null)"), origin, origin, true},
      {origin, "null", nowhere, origin, false},
      {origin, "null", origin, nowhere, false},
      {origin, "null", endless, endless, true},
  };
  const fixtures::TempFolder folder;
  const std::string world = folder.path("a.wrl");
  for (const Row& row : rows) {
    const std::string text = R"({"assembly":{"type":"root","matrix":)" + row.root + R"(,"children":[)" + row.child +
                             R"(]},"camera":{"frame":)" + row.camera + R"(},"views":[null,{"frame":)" + row.view +
                             "}]}";
    SCOPED_TRACE(text);
    const ToolResult result = runToolWith({"convert", folder.write("a.json", text), world});
    EXPECT_EQ(result.err, row.isReadable ? "" : world + ": note: holds numbers that no reader takes\n");
    EXPECT_EQ(runToolWith({"check", world}).status, row.isReadable ? ExitStatus::done : ExitStatus::failed);
  }
}

TEST(ConvertCommand, writes_nothing_for_what_does_not_load) {
  const fixtures::TempFolder folder;
  const std::string bad = folder.write("a.wrl", "#VRML V2.0 utf8\nFog { x }\n");
  for (const char* out : {"b.wrl", "b.json"}) {
    const ToolResult result = runToolWith({"convert", bad, folder.write(out, "old")});
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_TRUE(holds(result.err, "at or about \"x\"")) << result.err;
    EXPECT_EQ(folder.read(out), "old");
  }
  EXPECT_EQ(runToolWith({"convert", folder.path("none.json"), folder.path("c.wrl")}).status, ExitStatus::failed);
  EXPECT_EQ(folder.entryCount(), 3);
}

TEST(ConvertCommand, takes_the_settings_of_the_host) {
  const std::string help = runToolWith({"convert", "--help"}).out;
  for (const char* option :
       {"--refinement", "--merge", "--search", "--textures", "--no-stats", "--veto", "--trace", "--up"}) {
    EXPECT_TRUE(holds(help, option)) << option;
  }
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", kWorld);
  const ToolResult result = runToolWith({"convert", "--veto", "onParse:Shape", world, folder.path("b.json")});
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_TRUE(holds(folder.read("b.json"), "\"part\""));
  EXPECT_FALSE(holds(folder.read("b.json"), "\"mesh\""));
}

TEST(ConvertCommand, turns_a_world_whose_z_axis_is_up) {
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", kWorld);
  for (const char* axis : {"y", "z"}) {
    ASSERT_EQ(runToolWith({"convert", "--up", axis, world, folder.path("b.wrl")}).status, ExitStatus::done);
    // The host's z axis is up, and so it is in what is written; the load of that turns it once more.
    const std::vector<double> turnedTwice = {0, -3, 0, 2, 0, 0};
    const std::vector<double> turnedOnce = {0, 0, 0, 2, 0, 3};
    EXPECT_EQ(boxOf(folder.path("b.wrl")), axis == std::string("y") ? turnedTwice : turnedOnce);
  }
  EXPECT_EQ(runToolWith({"convert", "--up", "x", world, folder.path("c.wrl")}).status, ExitStatus::usage);
}

// Two shapes of one group with an image each, and one without.
TEST(ConvertCommand, keeps_the_textures_unless_told_not_to) {
  const fixtures::TempFolder folder;
  const auto gif = [](char grey) {
    return std::string("GIF89a\1\0\1\0\x80\0\0", 13) + std::string(3, grey) + std::string(3, '\0') +
           std::string(",\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;", 16);
  };
  const auto shape = [](const std::string& appearance) {
    return "Shape { appearance Appearance { " + appearance +
           " } geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 -1 ] "
           "texCoord TextureCoordinate { point [ 0 0, 1 0, 0 1 ] } } }\n";
  };
  std::filesystem::create_directory(folder.path("maps"));
  folder.write("maps/dark.gif", gif(10));
  folder.write("pale.gif", gif('\xF0'));
  const std::string world = folder.write(
      "a.wrl", "#VRML V2.0 utf8\nGroup { children [\n" + shape("texture ImageTexture { url \"maps\\dark.gif\" }") +
                   shape("") + shape("texture ImageTexture { url \"pale.gif\" repeatS FALSE }") + "] }\n");
  std::filesystem::create_directory(folder.path("out"));
  ASSERT_EQ(runToolWith({"convert", "--no-stats", world, folder.path("out/b.wrl")}).err, "");
  const std::string written = folder.read("out/b.wrl");
  EXPECT_TRUE(holds(written, "texture ImageTexture { url [ \"Textures\\dark.jpg\"]repeatS TRUE repeatT TRUE }"));
  EXPECT_TRUE(holds(written, "texture ImageTexture { url [ \"Textures\\pale.jpg\"]repeatS FALSE repeatT FALSE }"));
  EXPECT_TRUE(std::filesystem::exists(folder.path("out/Textures/dark.jpg")));
  EXPECT_TRUE(std::filesystem::exists(folder.path("out/Textures/pale.jpg")));
  // What was written keeps them once more.
  const ToolResult again = runToolWith({"scene", "--no-stats", "--textures", folder.path("out/b.wrl")});
  EXPECT_EQ(again.err, "");
  EXPECT_NE(again.out.find("sglTexture2D"), again.out.rfind("sglTexture2D"));

  // The module keeps what it has read, so this is about another image.
  folder.write("other.gif", gif(10));
  const std::string other =
      folder.write("other.wrl", "#VRML V2.0 utf8\n" + shape("texture ImageTexture { url \"other.gif\" }"));
  ASSERT_EQ(runToolWith({"convert", "--no-textures", other, folder.path("c.wrl")}).status, ExitStatus::done);
  EXPECT_FALSE(holds(folder.read("c.wrl"), "ImageTexture"));
  EXPECT_FALSE(std::filesystem::exists(folder.path("Textures")));
}

}  // namespace
}  // namespace wrl
