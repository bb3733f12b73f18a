// The command line from outside: what it accepts, where its results go, and how it ends.

#include "tools/wrl/Tool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

const std::string kHeader = "#VRML V2.0 utf8\n";
const std::string kTriangle =
    "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 -1 ] } "
    "}\n";

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(Tool, refuses_what_is_no_command_line) {
  const std::vector<std::string> commandLines[] = {
      {},
      {"a.wrl"},
      {"nodes"},
      {"check"},
      {"nodes", "--unknown", "a"},
      {"nodes", "a", "b"},
      {"nodes", "a", "-o"},
      {"scene", "a", "--refinement", "x"},
      {"tokens", "nodes", "a"},
      {"--unknown"},
  };
  for (const std::vector<std::string>& arguments : commandLines) {
    const ToolResult result = runToolWith(arguments);
    EXPECT_EQ(result.status, ExitStatus::usage);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err, "");
  }
}

TEST(Tool, has_help_and_version_everywhere) {
  const ToolResult top = runToolWith({"--help"});
  EXPECT_EQ(top.status, ExitStatus::done);
  EXPECT_EQ(runToolWith({"--version"}).out, "wrl " WRL_VERSION "\n");
  for (const CommandEntry& entry : commandTable()) {
    SCOPED_TRACE(entry.name);
    EXPECT_TRUE(holds(top.out, entry.name));
    const ToolResult help = runToolWith({entry.name, "--help"});
    EXPECT_EQ(help.status, ExitStatus::done);
    EXPECT_TRUE(holds(help.out, entry.description));
    EXPECT_EQ(help.err, "");
    const ToolResult version = runToolWith({entry.name, "--version"});
    EXPECT_EQ(version.status, ExitStatus::done);
    EXPECT_EQ(version.out, "wrl " WRL_VERSION "\n");
  }
}

TEST(Tool, offers_the_host_settings_wherever_a_file_is_loaded) {
  for (const char* name : {"info", "check", "scene", "stage"}) {
    const std::string help = runToolWith({name, "--help"}).out;
    for (const char* option :
         {"--refinement", "--merge", "--search", "--textures", "--no-stats", "--veto", "--trace"}) {
      EXPECT_TRUE(holds(help, option)) << name << ' ' << option;
    }
  }
}

TEST(Tool, notices_a_full_disk_behind_standard_output) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kTriangle);
  const std::vector<std::string> commandLines[] = {
      {"--help"},      {"scene", "--version"}, {"tokens", file}, {"nodes", file},
      {"check", file}, {"scene", file},        {"stage", file},  {"info", file},
  };
  for (const std::vector<std::string>& arguments : commandLines) {
    SCOPED_TRACE(arguments.front());
    const ToolResult result = runToolWith(arguments, "", "/dev/full");
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_TRUE(holds(result.err, "standard output: error: No space left on device\n")) << result.err;
  }
}

TEST(Tool, writes_an_output_file_instead_and_leaves_it_alone_when_there_is_no_result) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kTriangle);
  for (const char* command : {"tokens", "nodes", "scene", "stage"}) {
    SCOPED_TRACE(command);
    const ToolResult printed = runToolWith({command, file});
    const ToolResult written = runToolWith({command, file, "-o", folder.path("out")});
    EXPECT_EQ(printed.status, ExitStatus::done);
    EXPECT_EQ(written.status, ExitStatus::done);
    EXPECT_EQ(written.out, "");
    EXPECT_EQ(folder.read("out"), printed.out);
    const ToolResult failed = runToolWith({command, file, "-o", folder.path("none/out")});
    EXPECT_EQ(failed.status, ExitStatus::failed);
    EXPECT_TRUE(holds(failed.err, folder.path("none/out") + ": error: No such file or directory\n"));
  }
  folder.write("kept", "old");
  for (const char* command : {"tokens", "nodes"}) {
    EXPECT_EQ(runToolWith({command, folder.path("missing.wrl"), "-o", folder.path("kept")}).status, ExitStatus::failed);
    EXPECT_EQ(folder.read("kept"), "old");
  }
}

TEST(Tool, reads_standard_input) {
  const std::string text = kHeader + kTriangle;
  for (const char* command : {"tokens", "nodes", "check", "scene", "stage", "info"}) {
    SCOPED_TRACE(command);
    const ToolResult result = runToolWith({command, "-"}, text);
    EXPECT_EQ(result.status, ExitStatus::done) << result.err;
    EXPECT_NE(result.out, "");
  }
  EXPECT_TRUE(holds(runToolWith({"check", "-", "-"}, text).out, "-: ok\n-: ok\n"));
}

TEST(Tool, keeps_the_echo_of_the_reader_off_standard_output) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + "+;\r\n" + kTriangle);
  const std::string clean = folder.write("b.wrl", kHeader + "\n" + kTriangle);
  for (const char* command : {"tokens", "nodes"}) {
    SCOPED_TRACE(command);
    const ToolResult result = runToolWith({command, file});
    EXPECT_EQ(result.out, runToolWith({command, clean}).out);
    EXPECT_EQ(result.err, "+;\r");
  }
  const ToolResult scene = runToolWith({"scene", "--no-stats", file});
  EXPECT_EQ(scene.out, runToolWith({"scene", "--no-stats", clean}).out);
  EXPECT_EQ(scene.err, "+;\r");
  EXPECT_EQ(runToolWith({"check", file}).err, "+;\r");
}

TEST(NodesCommand, writes_what_was_built_before_a_syntax_error) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + "Group { }\nBox { radius 1 }\n");
  const ToolResult result = runToolWith({"nodes", file});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.err, file + ":3: error at or about \"radius\": Box { radius 1 }\n");
  EXPECT_EQ(result.out.substr(0, kHeader.size() + 7), kHeader + "Group {");
}

TEST(Tool, says_how_to_name_a_file_that_looks_like_options) {
  const fixtures::TempFolder folder;
  folder.write("-dash.wrl", kHeader);
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path(""));
  const ToolResult bare = runToolWith({"check", "-dash.wrl"});
  const ToolResult missing = runToolWith({"check", "-dish.wrl"});
  const ToolResult behind = runToolWith({"check", "--", "-dash.wrl"});
  std::filesystem::current_path(before);
  EXPECT_EQ(bare.status, ExitStatus::usage);
  EXPECT_TRUE(holds(bare.err, "\nThe file -dash.wrl can be named ./-dash.wrl, or behind --\n")) << bare.err;
  EXPECT_FALSE(holds(missing.err, "can be named")) << missing.err;
  EXPECT_EQ(behind.out, "-dash.wrl: ok\n");
}

TEST(CheckCommand, goes_on_behind_a_file_that_is_missing_or_broken) {
  const fixtures::TempFolder folder;
  const std::string good = folder.write("good.wrl", kHeader + "Fog { }\n");
  const std::string bad = folder.write("bad.wrl", kHeader + "Fog { x }\n");
  const std::string missing = folder.path("missing.wrl");
  const ToolResult result = runToolWith({"check", missing, bad, good});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out, missing + ": error: cannot be opened\n" + bad + ":2: error at or about \"x\": Fog { x }\n" +
                            good + ": ok\n" + good + ": note: Fog is not converted\n");
  EXPECT_EQ(result.err, "Cannot open data file " + missing + "\n");
}

TEST(CheckCommand, names_the_line_of_what_the_reader_passed_over) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + "\nHUD { }\n");
  const std::string out = runToolWith({"check", file}).out;
  EXPECT_TRUE(holds(out, file + ": note: ")) << out;
  EXPECT_TRUE(holds(out, "HUD")) << out;
  EXPECT_TRUE(holds(out, " (line 3)\n")) << out;
}

TEST(CheckCommand, finds_files_by_the_search_of_the_host) {
  const fixtures::TempFolder folder;
  std::filesystem::create_directory(folder.path("worlds"));
  folder.write("worlds/a.wrl", kHeader);
  EXPECT_EQ(runToolWith({"check", "lost/a.wrl"}).status, ExitStatus::failed);
  const ToolResult result = runToolWith({"check", "lost/a.wrl", "--search", folder.path("worlds")});
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_EQ(result.out, "lost/a.wrl: ok\n");
}

TEST(SceneCommand, says_that_there_is_no_module) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader);
  const std::string module = folder.path("none.so");
  ::setenv("WRL_MODULE", module.c_str(), 1);
  const ToolResult result = runToolWith({"scene", file});
  ::unsetenv("WRL_MODULE");
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(result.err.starts_with("wrl: error: the module cannot be opened: ")) << result.err;
  EXPECT_TRUE(holds(result.err, module));
}

TEST(SceneCommand, leaves_the_statistics_out_of_everything) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kTriangle + "Shape { geometry PointSet { } }\n");
  const ToolResult all = runToolWith({"scene", file});
  EXPECT_TRUE(holds(all.out, "Statistics"));
  EXPECT_TRUE(holds(all.err, "-- Statistics for: " + file + " ---\n   Num S.Tris     : 1\n"));
  const ToolResult without = runToolWith({"scene", "--no-stats", file});
  EXPECT_EQ(without.err, "PointSetNodes not yet supported.\n");
  EXPECT_TRUE(holds(without.out, "PointSetNodes"));
  EXPECT_FALSE(holds(without.out, "Num "));
}

TEST(SceneCommand, prints_a_null_scene_for_a_failed_load) {
  const fixtures::TempFolder folder;
  const ToolResult result = runToolWith({"scene", folder.write("a.wrl", kHeader + "Fog { x }\n")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_TRUE(holds(result.out, "\"scene\": null") || holds(result.out, "\"scene\":null")) << result.out;
  EXPECT_TRUE(holds(result.err, "\tLine 2, at or about \"x\"\n\t>>Fog { x }\n"));
}

TEST(SceneCommand, traces_and_vetoes_events) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + "Group { children [ " + kTriangle + " ] }\n");
  const ToolResult traced = runToolWith({"scene", "--no-stats", "--trace", file});
  EXPECT_EQ(traced.err, "onParse:Group\nonParse:Shape\nonCreate:sglGeode\nonCreate:sglGroup\n");
  const ToolResult vetoed = runToolWith({"scene", "--no-stats", "--trace", "--veto", "onParse:Group", file});
  EXPECT_EQ(vetoed.status, ExitStatus::done);
  EXPECT_EQ(vetoed.err, "onParse:Group\nsglLoadFile_wrl: file contained no scene\n");
}

TEST(SceneCommand, sets_the_host_up) {
  const fixtures::TempFolder folder;
  std::filesystem::create_directory(folder.path("worlds"));
  folder.write("worlds/a.wrl", kHeader + "Shape { geometry Cone { } }\n");
  const ToolResult fine = runToolWith({"scene", "lost/a.wrl", "--search", folder.path("worlds"), "--refinement", "3"});
  EXPECT_EQ(fine.status, ExitStatus::done);
  EXPECT_TRUE(holds(fine.out, "150")) << fine.out;  // 30 segments times 3 * 1.5 + 0.5
}

TEST(SceneCommand, offers_an_image_reader_when_told_to) {
  const fixtures::TempFolder folder;
  // One red pixel.
  const char image[] =
      "GIF89a\x01\x00\x01\x00\x80\x00\x00\xFF\x00\x00\x00\x00\x00,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02"
      "D\x01\x00;";
  folder.write("dot.gif", std::string(image, sizeof image - 1));
  const std::string file =
      folder.write("a.wrl", kHeader +
                                "Shape { appearance Appearance { texture ImageTexture { url \"dot.gif\" } } "
                                "geometry Sphere { } }\n");
  EXPECT_EQ(runToolWith({"scene", "--no-stats", file}).err, "Texture: dot.gif not found.\n");
  const ToolResult scene = runToolWith({"scene", "--no-stats", "--textures", file});
  EXPECT_EQ(scene.err, "");
  EXPECT_TRUE(holds(scene.out, "sglTexture2D"));
  EXPECT_TRUE(holds(runToolWith({"check", file}).out, "note: ImageTexture: image file \"dot.gif\" is not read\n"));
  EXPECT_EQ(runToolWith({"check", "--textures", file}).out, file + ": ok\n");
}

TEST(SceneCommand, finds_the_images_of_an_inlined_file_beside_that_file) {
  const fixtures::TempFolder folder;
  const char image[] =
      "GIF89a\x01\x00\x01\x00\x80\x00\x00\xFF\x00\x00\x00\x00\x00,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02"
      "D\x01\x00;";
  std::filesystem::create_directories(folder.path("sub/images"));
  folder.write("sub/images/inlined.gif", std::string(image, sizeof image - 1));
  folder.write("sub/part.wrl",
               kHeader +
                   "Shape { appearance Appearance { texture ImageTexture { url \"images/inlined.gif\" } } "
                   "geometry Sphere { } }\n");
  const std::string file = folder.write("a.wrl", kHeader + "Inline { url \"sub/part.wrl\" }\n");
  EXPECT_EQ(runToolWith({"scene", "--no-stats", "--textures", file}).err, "");
  EXPECT_EQ(runToolWith({"check", "--textures", file}).out, file + ": ok\n");
}

TEST(StageCommand, comes_back_the_same_from_its_own_document) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("model.wrl", kHeader + "DEF part Group { children [ " + kTriangle + " ] }\n");
  const ToolResult first = runToolWith({"stage", file, "-o", folder.path("a.json")});
  EXPECT_EQ(first.status, ExitStatus::done);
  const std::string document = folder.read("a.json");
  EXPECT_TRUE(holds(document, "\"model\""));
  EXPECT_TRUE(holds(document, "\"part\""));
  const ToolResult second = runToolWith({"stage", folder.path("a.json")});
  EXPECT_EQ(second.status, ExitStatus::done);
  EXPECT_EQ(second.out, document);
}

TEST(StageCommand, prints_a_null_assembly_for_a_failed_load_and_nothing_for_a_bad_document) {
  const fixtures::TempFolder folder;
  const ToolResult world = runToolWith({"stage", folder.write("a.wrl", kHeader + "Fog { x }\n")});
  EXPECT_EQ(world.status, ExitStatus::failed);
  EXPECT_TRUE(holds(world.out, "\"assembly\":null") || holds(world.out, "\"assembly\": null")) << world.out;
  const std::string file = folder.write("a.JSON", "{\n\"colour\": 1 }");
  const ToolResult document = runToolWith({"stage", file});
  EXPECT_EQ(document.status, ExitStatus::failed);
  EXPECT_EQ(document.out, "");
  EXPECT_TRUE(document.err.starts_with(file + ":2: error: ")) << document.err;
  EXPECT_TRUE(holds(document.err, "colour"));
}

TEST(ExportCommand, writes_what_the_reader_accepts) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kTriangle);
  ASSERT_EQ(runToolWith({"stage", file, "-o", folder.path("a.json")}).status, ExitStatus::done);
  const ToolResult result = runToolWith({"export", folder.path("a.json"), folder.path("b.wrl")});
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(holds(runToolWith({"check", folder.path("b.wrl")}).out, "b.wrl: ok\n"));
  const ToolResult piped = runToolWith({"export", "-", folder.path("c.wrl")}, folder.read("a.json"));
  EXPECT_EQ(piped.status, ExitStatus::done) << piped.err;
  EXPECT_EQ(folder.read("c.wrl"), folder.read("b.wrl"));
}

TEST(ExportCommand, tells_why_there_is_no_file) {
  const fixtures::TempFolder folder;
  const std::string stage = folder.write("a.json", "{ \"assembly\": { \"type\": \"root\" } }");
  const std::string empty = folder.write("empty.json", "{ \"assembly\": null }");
  const std::string lost = folder.path("none/b.wrl");
  struct Row {
    std::vector<std::string> arguments;
    std::string message;
  };
  const Row rows[] = {
      {{"export", empty, folder.path("b.wrl")}, folder.path("b.wrl") + ": error: there is no assembly to write\n"},
      {{"export", stage, lost}, lost + ": error: No such file or directory\n"},
      {{"export", stage, "/dev/full"}, "/dev/full: error: No space left on device\n"},
  };
  for (const Row& row : rows) {
    const ToolResult result = runToolWith(row.arguments);
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_EQ(result.err, row.message);
  }
  EXPECT_EQ(runToolWith({"export", folder.path("missing.json"), folder.path("b.wrl")}).status, ExitStatus::failed);
  EXPECT_FALSE(std::filesystem::exists(folder.path("b.wrl")));
}

TEST(InfoCommand, sums_up_a_file) {
  const fixtures::TempFolder folder;
  const std::string file =
      folder.write("a.wrl", kHeader + "Viewpoint { description \"Front\" }\nDEF Back Viewpoint { }\nViewpoint { }\n" +
                                "Transform { translation 1 2 3 children [ " + kTriangle + " ] }\n");
  const ToolResult result = runToolWith({"info", "--no-stats", file});
  EXPECT_EQ(result.status, ExitStatus::done);
  const std::string expected = file +
                               "\n"
                               "  nodes         1 Coordinate, 1 IndexedFaceSet, 1 Shape, 1 Transform, 3 Viewpoint\n"
                               "  scene         1 sglGeode, 2 sglTransform\n"
                               "  drawables     1 sglIndexedTriangleSet\n"
                               "  triangles     1\n"
                               "  materials     0\n"
                               "  textures      0\n"
                               "  bounding box  1 -3 2 to 2 -3 3\n"
                               "  viewpoints    \"Front\", \"Back\", \"\"\n"
                               "  time          ";
  EXPECT_EQ(result.out.substr(0, expected.size()), expected);
  EXPECT_EQ(result.err, "");
}

TEST(InfoCommand, has_no_result_for_a_file_that_cannot_be_loaded) {
  const fixtures::TempFolder folder;
  const ToolResult result = runToolWith({"info", folder.write("a.wrl", kHeader + "Fog { x }\n")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(holds(result.err, "at or about \"x\""));
}

}  // namespace
}  // namespace wrl
