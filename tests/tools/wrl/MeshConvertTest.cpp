// wrl convert with models of other formats, from outside.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>

#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

// Two triangles from (0, 0, 0) to (2, 3, 1), one red and one half transparent blue, y up.
const std::string kWorld =
    "#VRML V2.0 utf8\n"
    "DEF red Transform { children Shape { appearance Appearance { material Material { diffuseColor 1 0.25 0 } }\n"
    "geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 2 0 0, 2 3 0 ] } coordIndex [ 0 1 2 -1 ] } } }\n"
    "DEF blue Transform { translation 0 0 1 children Shape {\n"
    "appearance Appearance { material Material { diffuseColor 0 0 0.5 transparency 0.5 } }\n"
    "geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 2 0 0, 0 3 0 ] } coordIndex [ 0 1 2 -1 ] } } }\n";

const std::string kObj =
    "mtllib a.mtl\no red\nv 0 0 0\nv 2 0 0\nv 2 3 0\nusemtl red\nf 1 2 3\n"
    "o blue\nv 0 0 1\nv 2 0 1\nv 0 3 1\nusemtl blue\nf 4 5 6\n";
const std::string kMtl = "newmtl red\nKd 1 0.25 0\nnewmtl blue\nKd 0 0 0.5\nd 0.5\n";

const std::string kPly =
    "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\nproperty float z\n"
    "property uchar red\nproperty uchar green\nproperty uchar blue\n"
    "element face 1\nproperty list uchar int vertex_indices\nend_header\n"
    "0 0 0 255 51 0\n2 0 0 255 51 0\n2 3 1 255 51 0\n3 0 1 2\n";

const std::string kStl =
    "solid s\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 2 0 0\nvertex 2 3 1\nendloop\nendfacet\nendsolid "
    "s\n";

const std::string kDae =
    R"(<?xml version="1.0"?><COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
<asset><unit meter="0.5"/><up_axis>Z_UP</up_axis></asset>
<library_effects><effect id="e"><profile_COMMON><technique sid="t"><lambert>
<diffuse><color>0 0.5 1 1</color></diffuse></lambert></technique></profile_COMMON></effect></library_effects>
<library_materials><material id="m"><instance_effect url="#e"/></material></library_materials>
<library_geometries><geometry id="g"><mesh><source id="p"><float_array id="a" count="9">0 0 0 4 0 0 4 6 2</float_array>
<technique_common><accessor source="#a" count="3" stride="3"><param name="X" type="float"/>
<param name="Y" type="float"/><param name="Z" type="float"/></accessor></technique_common></source>
<vertices id="v"><input semantic="POSITION" source="#p"/></vertices>
<triangles count="1" material="m"><input semantic="VERTEX" source="#v" offset="0"/><p>0 1 2</p></triangles>
</mesh></geometry></library_geometries>
<library_visual_scenes><visual_scene id="s"><node id="n"><instance_geometry url="#g"><bind_material><technique_common>
<instance_material symbol="m" target="#m"/></technique_common></bind_material></instance_geometry></node>
</visual_scene></library_visual_scenes><scene><instance_visual_scene url="#s"/></scene></COLLADA>)";

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// What a world shows, in the coordinates of the assembly that it was written from: the box from least to largest
// corner.
struct Shown {
  unsigned triangles = 0;
  std::vector<double> box{1e9, 1e9, 1e9, -1e9, -1e9, -1e9};
  std::vector<std::string> colors;
};

// The summary that `wrl info` gives of a world whose z axis is up, and its colours.
Shown shownOf(const std::string& world) {
  Shown shown;
  const std::string info = runToolWith({"info", "--no-stats", world}).out;
  const std::size_t triangles = info.find("triangles ");
  const std::size_t box = info.find("bounding box  ");
  if (triangles == std::string::npos || box == std::string::npos) return shown;
  std::sscanf(info.c_str() + triangles, "triangles %u", &shown.triangles);
  std::sscanf(info.c_str() + box, "bounding box  %lf %lf %lf to %lf %lf %lf", &shown.box[0], &shown.box[1],
              &shown.box[2], &shown.box[3], &shown.box[4], &shown.box[5]);
  // The load turned (x, y, z) to (x, -z, y).
  shown.box = {shown.box[0], shown.box[2], -shown.box[4], shown.box[3], shown.box[5], -shown.box[1]};
  for (double& number : shown.box) number = std::round(number * 1e5) / 1e5 + 0.0;
  const std::string stage = runToolWith({"stage", "--no-stats", world}).out;
  const std::string key = "\"diffuse\":[";
  for (std::size_t at = stage.find(key); at != std::string::npos; at = stage.find(key, at + 1)) {
    const std::size_t begin = at + key.size();
    shown.colors.push_back(stage.substr(begin, stage.find(']', begin) - begin));
  }
  return shown;
}

void convert(const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {"convert", "--no-stats"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  const ToolResult result = runToolWith(words);
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_EQ(result.out + result.err, "");
}

TEST(MeshConvert, models_become_worlds_that_load_again) {
  const fixtures::TempFolder folder;
  folder.write("a.mtl", kMtl);
  folder.write("a.obj", kObj);
  folder.write("b.ply", kPly);
  folder.write("c.stl", kStl);
  folder.write("d.dae", kDae);
  convert({folder.write("e.wrl", kWorld), folder.path("e.glb")});
  using Numbers = std::vector<double>;
  using Colors = std::vector<std::string>;
  const struct {
    const char* model;
    unsigned triangles;
    Numbers box;  // in the host's world, z up
    Colors colors;
  } kRows[] = {
      {"a.obj", 2, {0, -1, 0, 2, 0, 3}, {"1,0.25,0", "0,0,0.5"}},
      {"b.ply", 1, {0, 0, 0, 2, 3, 1}, {"1,0.2,0"}},
      {"c.stl", 1, {0, 0, 0, 2, 3, 1}, {}},
      {"d.dae", 1, {0, 0, 0, 2, 3, 1}, {"0,0.5,1"}},
      {"e.glb", 2, {0, -1, 0, 2, 0, 3}, {"1,0.25,0", "0,0,0.5"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.model);
    const std::string world = folder.path(std::string(row.model) + ".wrl");
    convert({folder.path(row.model), world});
    const Shown shown = shownOf(world);
    EXPECT_EQ(shown.triangles, row.triangles);
    EXPECT_EQ(shown.box, row.box);
    if (!row.colors.empty()) {
      EXPECT_EQ(shown.colors, row.colors);
    }
  }
}

TEST(MeshConvert, a_glb_keeps_what_a_world_has) {
  const fixtures::TempFolder folder;
  convert({folder.write("a.wrl", kWorld), folder.path("a.glb")});
  convert({folder.path("a.glb"), folder.path("b.glb")});
  const std::string stage = runToolWith({"stage", folder.path("b.glb")}).out;
  EXPECT_TRUE(holds(stage, "\"name\":\"blue\"")) << stage;
  EXPECT_TRUE(holds(stage, "\"alpha\":0.5"));
  EXPECT_TRUE(holds(folder.read("a.glb"), R"("alphaMode":"BLEND")"));
  EXPECT_EQ(folder.read("a.glb").size(), folder.read("b.glb").size()) << "nothing is added on the way";
}

TEST(MeshConvert, the_up_axis_may_be_said) {
  const fixtures::TempFolder folder;
  folder.write("a.obj", kObj);
  folder.write("a.mtl", kMtl);
  convert({"--up", "z", folder.path("a.obj"), folder.path("a.wrl")});
  EXPECT_EQ(shownOf(folder.path("a.wrl")).box, (std::vector<double>{0, 0, 0, 2, 3, 1}));
}

TEST(MeshConvert, an_obj_comes_with_its_materials) {
  const fixtures::TempFolder folder;
  convert({folder.write("a.wrl", kWorld), folder.path("out.obj")});
  EXPECT_TRUE(holds(folder.read("out.obj"), "mtllib out.mtl"));
  EXPECT_TRUE(holds(folder.read("out.mtl"), "Kd 1 0.25 0"));
}

// A world of one textured triangle, and a .glb that holds the texture. Each test names the image differently: the
// module's cache of textures, which goes by name, lives as long as the process.
void writeTexturedGlb(const fixtures::TempFolder& folder, const std::string& image) {
  // A PNG of one red pixel.
  const std::string png(
      "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\2\0\0\0\x90wS\xde\0\0\0\x0cIDATx\x9c"
      "c\xf8\xcf\xc0\0\0\3\1\1\0\xc9\xfe\x92\xef\0\0\0\0IEND\xae"
      "B`\x82",
      69);
  folder.write(image, png);
  folder.write("a.wrl",
               "#VRML V2.0 utf8\nShape { appearance Appearance { material Material {} texture ImageTexture { url \"" +
                   image +
                   "\" } } geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0 ] }\n"
                   "texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1 ] } coordIndex [ 0 1 2 -1 ] } }\n");
  convert({"--textures", "--search", folder.path(""), folder.path("a.wrl"), folder.path("a.glb")});
  ASSERT_TRUE(holds(folder.read("a.glb"), png));
}

TEST(MeshConvert, textures_inside_a_model_reach_every_output) {
  const fixtures::TempFolder folder;
  writeTexturedGlb(folder, "first.png");
  std::filesystem::create_directory(folder.path("w"));
  std::filesystem::create_directory(folder.path("o"));
  std::filesystem::create_directory(folder.path("j"));
  convert({folder.path("a.glb"), folder.path("w/b.wrl")});
  EXPECT_TRUE(holds(folder.read("w/b.wrl"), "a_0.jpg"));
  EXPECT_TRUE(std::filesystem::exists(folder.path("w/Textures/a_0.jpg")));
  convert({folder.path("a.glb"), folder.path("o/b.obj")});
  EXPECT_TRUE(holds(folder.read("o/b.mtl"), "map_Kd Textures/a_0.png"));
  EXPECT_EQ(folder.read("o/Textures/a_0.png"), folder.read("first.png"));
  convert({folder.path("a.glb"), folder.path("j/b.json")});
  EXPECT_TRUE(holds(folder.read("j/b.json"), "Textures/a_0.png"));
  EXPECT_EQ(folder.read("j/Textures/a_0.png"), folder.read("first.png"));
  convert({folder.path("j/b.json"), folder.path("c.glb")});
  EXPECT_TRUE(holds(folder.read("c.glb"), folder.read("first.png")));
}

TEST(MeshConvert, a_texture_in_the_place_of_another_is_named) {
  const fixtures::TempFolder folder;
  writeTexturedGlb(folder, "third.png");
  std::filesystem::create_directories(folder.path("o/Textures"));
  folder.write("o/Textures/a_0.png", "another");
  const std::vector<std::string> arguments = {"convert", folder.path("a.glb"), folder.path("o/b.obj")};
  EXPECT_EQ(runToolWith(arguments).err,
            folder.path("o/b.obj") + ": note: Textures/a_0.png takes the place of another file\n");
  EXPECT_EQ(runToolWith(arguments).err, "");
}

TEST(MeshConvert, textures_inside_a_model_are_left_out_of_a_printed_document) {
  const fixtures::TempFolder folder;
  writeTexturedGlb(folder, "second.png");
  const ToolResult result = runToolWith({"stage", folder.path("a.glb")});
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_FALSE(holds(result.out, "mapPath"));
  EXPECT_EQ(result.err, folder.path("a.glb") + ": note: the texture 0 inside the model is left out\n");
  EXPECT_EQ(runToolWith({"stage", "-q", folder.path("a.glb")}).err, "");
}

TEST(MeshConvert, failures_leave_the_output_alone) {
  const fixtures::TempFolder folder;
  folder.write("broken.glb", "glTF");
  folder.write("empty.wrl", "#VRML V2.0 utf8\n");
  for (const char* extension : {"glb", "obj", "stl", "ply", "wrl"}) {
    SCOPED_TRACE(extension);
    const std::string output = folder.write(std::string("out.") + extension, "old");
    for (const char* input : {"broken.glb", "missing.obj", "empty.wrl"}) {
      const ToolResult result = runToolWith({"convert", "--no-stats", folder.path(input), output});
      EXPECT_EQ(result.status, ExitStatus::failed) << input;
      EXPECT_TRUE(holds(result.err, ": error: ")) << input << result.err;
      EXPECT_EQ(folder.read(std::string("out.") + extension), "old") << input;
    }
  }
}

}  // namespace
}  // namespace wrl
