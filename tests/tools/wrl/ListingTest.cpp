// The subcommands that go over several files: folders, forms of the list, counts, and what makes them fail.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/tools/wrl/RunTool.h"
#include "tools/wrl/InputFiles.h"

namespace wrl {
namespace {

const std::string kHeader = "#VRML V2.0 utf8\n";

// A folder of worlds: two good ones, one of them with a note, and a broken one.
class Listing : public testing::Test {
 protected:
  Listing() {
    std::filesystem::create_directories(m_folder.path("worlds/deep"));
    m_folder.write("worlds/b.wrl", kHeader + "Group { }\n");
    m_folder.write("worlds/deep/a.WRL", kHeader + "DEF Haze Fog { }\n");
    m_folder.write("worlds/c.wrl", kHeader + "Fog { \"x\" }\n");
    m_folder.write("worlds/.hidden.wrl", kHeader + "Fog { x }\n");
    m_folder.write("worlds/readme.txt", "no world\n");
    m_folder.write("worlds/list.gz", "no world\n");
  }

  std::string path(const std::string& name) const { return m_folder.path("worlds/" + name); }

  fixtures::TempFolder m_folder;
};

TEST_F(Listing, a_folder_stands_for_the_worlds_below_it) {
  const InputFiles found = findInputFiles({"x.txt", path(""), "-"});
  const std::vector<std::string> wanted = {"x.txt", path("b.wrl"), path("c.wrl"), path("deep/a.WRL"), "-"};
  EXPECT_EQ(found.files, wanted);
  EXPECT_TRUE(found.hasFolder);
  EXPECT_FALSE(findInputFiles({path("b.wrl")}).hasFolder);
  std::filesystem::create_directory(m_folder.path("packed"));
  for (const char* name : {"packed/a.WRZ", "packed/b.wrl.gz", "packed/c.gz"}) m_folder.write(name, "");
  const std::vector<std::string> packed = {m_folder.path("packed/a.WRZ"), m_folder.path("packed/b.wrl.gz")};
  EXPECT_EQ(findInputFiles({m_folder.path("packed")}).files, packed);
}

TEST_F(Listing, check_counts_what_a_folder_holds) {
  const ToolResult result = runToolWith({"check", m_folder.path("worlds")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out, path("b.wrl") + ": ok\n" + path("c.wrl") + ":2: error at or about \"\"x\"\": Fog { \"x\" }\n" +
                            path("deep/a.WRL") + ": ok\n" + path("deep/a.WRL") +
                            ": note: Fog \"Haze\" is not converted\n3 files: 2 ok (1 with notes), 1 failed\n");
}

TEST_F(Listing, check_counts_files_that_are_named_when_told_to) {
  EXPECT_EQ(runToolWith({"check", path("b.wrl")}).out, path("b.wrl") + ": ok\n");
  EXPECT_EQ(runToolWith({"check", "--summary", path("b.wrl")}).out, path("b.wrl") + ": ok\n1 file: 1 ok, 0 failed\n");
}

TEST_F(Listing, check_prints_json) {
  const ToolResult result = runToolWith({"check", "--json", m_folder.path("worlds"), "none.wrl"});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out,
            "{\"file\":\"" + path("b.wrl") + "\",\"status\":\"ok\",\"notes\":[]}\n{\"file\":\"" + path("c.wrl") +
                R"(","status":"error","line":2,"token":"\"x\"","text":"Fog { \"x\" }","notes":[]})" + "\n{\"file\":\"" +
                path("deep/a.WRL") +
                R"(","status":"ok","notes":[{"text":"Fog \"Haze\" is not converted","node":"Fog","def":"Haze"}]})" +
                "\n" + R"({"file":"none.wrl","status":"unreadable","notes":[]})" + "\n" +
                R"({"summary":{"files":4,"ok":2,"withNotes":1,"failed":2}})" + "\n");
}

TEST_F(Listing, check_json_has_the_place_of_a_note) {
  const std::string file = m_folder.write("a.wrl", kHeader + "\nHUD { }\n");
  EXPECT_EQ(runToolWith({"check", "--json", file}).out,
            "{\"file\":\"" + file +
                R"(","status":"ok","notes":[{"text":"unknown node HUD passed over","line":3,"node":"HUD"}]})" + "\n");
}

TEST_F(Listing, check_is_quiet_about_what_is_well) {
  EXPECT_EQ(runToolWith({"check", "-q", path("b.wrl"), path("deep/a.WRL")}).out, "");
  EXPECT_EQ(runToolWith({"check", "-q", "--strict", path("b.wrl"), path("deep/a.WRL")}).out,
            path("deep/a.WRL") + ": note: Fog \"Haze\" is not converted\n");
  EXPECT_NE(runToolWith({"check", "-q", path("c.wrl")}).out, "");
}

TEST_F(Listing, check_takes_notes_for_failures_when_told_to) {
  EXPECT_EQ(runToolWith({"check", path("deep/a.WRL")}).status, ExitStatus::done);
  EXPECT_EQ(runToolWith({"check", "--strict", path("deep/a.WRL")}).status, ExitStatus::failed);
  EXPECT_EQ(runToolWith({"check", "--strict", path("b.wrl")}).status, ExitStatus::done);
}

TEST_F(Listing, info_goes_on_behind_a_file_that_fails) {
  const ToolResult result = runToolWith({"info", "-q", m_folder.path("worlds")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_TRUE(result.out.starts_with(path("b.wrl") + "\n  nodes         1 Group\n")) << result.out;
  EXPECT_NE(result.out.find("\n" + path("deep/a.WRL") + "\n  nodes         1 Fog\n"), std::string::npos);
  EXPECT_TRUE(result.out.ends_with("\n3 files: 2 ok, 1 failed\n")) << result.out;
}

TEST_F(Listing, info_prints_json) {
  const std::string file = m_folder.write(
      "a.wrl", kHeader +
                   "Viewpoint { description \"Front\" }\nShape { geometry IndexedFaceSet { coord Coordinate { "
                   "point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 -1 ] } }\n");
  const ToolResult result = runToolWith({"info", "-q", "--json", file, path("c.wrl")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  const std::string expected =
      "{\"file\":\"" + file +
      R"(","status":"ok","nodes":{"Coordinate":1,"IndexedFaceSet":1,"Shape":1,"Viewpoint":1},)"
      R"("scene":{"sglGeode":1,"sglTransform":1},"drawables":{"sglIndexedTriangleSet":1},"triangles":1,)"
      R"("materials":0,"textures":0,"boundingBox":{"min":[0,0,0],"max":[1,)";
  EXPECT_EQ(result.out.substr(0, expected.size()), expected);
  EXPECT_NE(result.out.find(R"(,"viewpoints":["Front"],"seconds":)"), std::string::npos) << result.out;
  EXPECT_TRUE(result.out.ends_with("\n{\"file\":\"" + path("c.wrl") + "\",\"status\":\"failed\"}\n")) << result.out;
}

TEST_F(Listing, convert_writes_each_file_beside_itself) {
  const ToolResult result = runToolWith({"convert", "--no-stats", "--to", "json", m_folder.path("worlds")});
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out, path("b.wrl") + ": " + path("b.json") + "\n" + path("c.wrl") + ": failed\n" +
                            path("deep/a.WRL") + ": " + path("deep/a.json") + "\n3 files: 2 ok, 1 failed\n");
  EXPECT_EQ(runToolWith({"stage", "--no-stats", path("b.wrl")}).out, m_folder.read("worlds/b.json"));
  EXPECT_FALSE(std::filesystem::exists(path("c.json")));
  EXPECT_EQ(runToolWith({"convert", "-q", "--json", "--to", ".json", path("b.wrl"), path("deep/a.WRL")}).out,
            R"({"file":")" + path("b.wrl") + R"(","status":"ok","output":")" + path("b.json") + "\"}\n" +
                R"({"file":")" + path("deep/a.WRL") + R"(","status":"ok","output":")" + path("deep/a.json") + "\"}\n");
}

TEST_F(Listing, convert_never_writes_over_a_file_that_it_was_given) {
  const std::string before = m_folder.read("worlds/b.wrl");
  const ToolResult itself = runToolWith({"convert", "-q", "--to", "wrl", path("b.wrl")});
  EXPECT_EQ(itself.status, ExitStatus::failed);
  EXPECT_EQ(itself.err, path("b.wrl") + ": error: is one of the files to read\n");
  EXPECT_EQ(m_folder.read("worlds/b.wrl"), before);
  m_folder.write("worlds/b.WRL", kHeader);
  const ToolResult twice = runToolWith({"convert", "-q", "--to", "json", path("b.wrl"), path("b.WRL")});
  EXPECT_EQ(twice.status, ExitStatus::failed);
  EXPECT_EQ(twice.err, path("b.json") + ": error: is the place of " + path("b.wrl") + "\n");
}

TEST_F(Listing, convert_knows_a_file_by_any_of_its_names) {
  const std::string before = m_folder.read("worlds/b.wrl");
  const std::string other = path("deep/../b.wrl");
  const auto toJson = [](const std::vector<std::string>& files) {
    std::vector<std::string> arguments = {"convert", "-q", "--to", "json"};
    arguments.insert(arguments.end(), files.begin(), files.end());
    return runToolWith(arguments);
  };
  std::filesystem::create_symlink("b.wrl", path("b.json"));
  EXPECT_EQ(toJson({other}).err, path("deep/../b.json") + ": error: is one of the files to read\n");
  EXPECT_EQ(m_folder.read("worlds/b.wrl"), before);
  std::filesystem::remove(path("b.json"));
  const ToolResult twice = toJson({other, path("b.wrl")});
  EXPECT_EQ(twice.status, ExitStatus::done) << twice.err;
  m_folder.write("worlds/b.WRZ", before);
  EXPECT_EQ(toJson({other, path("b.WRZ")}).err, path("b.json") + ": error: is the place of " + other + "\n");
}

TEST_F(Listing, render_makes_a_picture_of_each_file_beside_itself) {
  const std::vector<std::string> small = {"render", "-q", "--size", "8x8", "--to", "png"};
  const auto with = [&small](const std::vector<std::string>& more) {
    std::vector<std::string> arguments = small;
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  };
  const ToolResult result = runToolWith(with({m_folder.path("worlds"), "--json"}));
  EXPECT_EQ(result.status, ExitStatus::failed);
  EXPECT_EQ(result.out, R"({"file":")" + path("b.wrl") + R"(","status":"ok","output":")" + path("b.png") + "\"}\n" +
                            R"({"file":")" + path("c.wrl") + "\",\"status\":\"failed\"}\n" + R"({"file":")" +
                            path("deep/a.WRL") + R"(","status":"ok","output":")" + path("deep/a.png") + "\"}\n" +
                            R"({"summary":{"files":3,"ok":2,"withNotes":0,"failed":1}})" + "\n");
  EXPECT_FALSE(std::filesystem::exists(path("c.png")));
  EXPECT_EQ(runToolWith({"render", "-q", "--size", "8x8", path("b.wrl"), "-"}).out, m_folder.read("worlds/b.png"));
  // Everything that is one picture's is every picture's, and fails for each alone.
  const ToolResult nowhere = runToolWith(with({"--view", "nowhere", path("b.wrl"), path("deep/a.WRL")}));
  EXPECT_EQ(nowhere.status, ExitStatus::failed);
  EXPECT_EQ(nowhere.out, path("b.wrl") + ": failed\n" + path("deep/a.WRL") + ": failed\n");
  m_folder.write("worlds/b.json", "{}");
  const ToolResult twice = runToolWith(with({path("b.wrl"), path("b.json")}));
  EXPECT_EQ(twice.status, ExitStatus::failed);
  EXPECT_NE(twice.err.find(path("b.png") + ": error: is the place of " + path("b.wrl") + "\n"), std::string::npos);
}

TEST_F(Listing, render_takes_no_second_world_for_its_output) {
  const std::string before = m_folder.read("worlds/deep/a.WRL");
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"render", path("b.wrl"), path("deep/a.WRL")},
           {"render", path("b.wrl"), path("a.glb")},
           {"render", "--to", "glb", path("b.wrl")},
           {"render", "--to", "tif", path("b.wrl")},
           {"render", "--to", "", path("b.wrl"), path("deep/a.WRL")},
           {"render", "--to", "deep/x.png", path("b.wrl")},
           {"render", path("b.wrl"), path("b.png"), path("c.wrl")},
           {"render", path("b.wrl")},
           {"render", path("deep"), path("b.png")},
       }) {
    const ToolResult result = runToolWith(arguments);
    EXPECT_EQ(result.status, ExitStatus::usage) << arguments.back();
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(m_folder.read("worlds/deep/a.WRL"), before);
  EXPECT_FALSE(std::filesystem::exists(path("b.png")));
}

TEST_F(Listing, what_comes_from_standard_input_alone_goes_to_standard_output) {
  const std::string world = m_folder.read("worlds/b.wrl");
  const ToolResult result = runToolWith({"convert", "-q", "--to", "json", "-"}, world);
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_EQ(result.out, runToolWith({"stage", "-q", "-"}, world).out);
  const ToolResult many = runToolWith({"convert", "-q", "--to", "json", "-", path("b.wrl")}, world);
  EXPECT_EQ(many.status, ExitStatus::failed);
  EXPECT_EQ(many.err, "-: error: standard input has no name to be written under\n");
  EXPECT_EQ(many.out, "-: failed\n");
}

TEST_F(Listing, convert_knows_wrong_usage_before_it_begins) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"convert", path("b.wrl")},
           {"convert", path("b.wrl"), path("b.json"), path("d.json")},
           {"convert", "--to", "xyz", path("b.wrl")},
           {"convert", path("deep"), path("b.json")},
           {"convert", "--to", "", path("b.wrl"), path("b.json")},
           {"convert", "--to", "deep/b.json", path("b.wrl")},
       }) {
    EXPECT_EQ(runToolWith(arguments).status, ExitStatus::usage) << arguments.back();
  }
  EXPECT_FALSE(std::filesystem::exists(path("b.json")));
}

TEST_F(Listing, a_quiet_load_speaks_only_when_it_fails) {
  EXPECT_NE(runToolWith({"scene", path("b.wrl")}).err, "");
  const ToolResult well = runToolWith({"scene", "-q", path("b.wrl")});
  EXPECT_EQ(well.err, "");
  EXPECT_EQ(well.out, runToolWith({"scene", path("b.wrl")}).out);
  EXPECT_EQ(
      runToolWith({"scene", "-q", path("c.wrl")}).err,
      "sglLoadFile_wrl: Error loading: " + path("c.wrl") + "\n\tLine 2, at or about \"\"x\"\"\n\t>>Fog { \"x\" }\n");
}

TEST_F(Listing, a_quiet_run_leaves_out_what_the_reader_echoes) {
  const std::string file = m_folder.write("worlds/d.wrl", kHeader + "? Group { }\n");
  for (const char* command : {"check", "info", "scene"}) {
    EXPECT_TRUE(runToolWith({command, "--no-stats", file}).err.starts_with("?")) << command;
    EXPECT_EQ(runToolWith({command, "-q", file}).err, "") << command;
    EXPECT_TRUE(runToolWith({command, "-q", path("none.wrl")}).err.starts_with("Cannot open")) << command;
  }
}

TEST_F(Listing, a_verbose_run_tells_what_it_reads) {
  for (const char* command : {"check", "info", "scene"}) {
    const std::string err = runToolWith({command, "-q", "-v", path("b.wrl")}).err;
    EXPECT_TRUE(err.starts_with("wrl: " + path("b.wrl") + ": 0.") && err.ends_with(" s\n")) << command << err;
  }
}

}  // namespace
}  // namespace wrl
