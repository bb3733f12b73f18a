// wrl render from outside. Pictures are judged coarsely: size, coverage, colours.

#include <gtest/gtest.h>

#include <cstdlib>

#include "embedded/images/ImageFile.h"
#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

const std::string kHeader = "#VRML V2.0 utf8\n";
const std::string kRedBox =
    "Transform { translation 3 0 0 children Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } "
    "}\n"
    "  geometry Box { } } }\n";

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

embedded::Raster readPicture(const std::string& path) {
  embedded::Raster raster;
  EXPECT_TRUE(embedded::readImageFile(path, raster)) << path;
  return raster;
}

using Pixel = std::array<int, 3>;

Pixel pixelAt(const embedded::Raster& raster, double across, double downwards) {
  const auto x = static_cast<std::size_t>(across * raster.width);
  const auto y = static_cast<std::size_t>(downwards * raster.height);
  const std::uint8_t* pixel = raster.bytes.data() + (y * raster.width + x) * 3;
  return {pixel[0], pixel[1], pixel[2]};
}

bool isReddish(const Pixel& pixel) { return pixel[0] > 80 && pixel[0] > 3 * pixel[1] && pixel[0] > 3 * pixel[2]; }

TEST(RenderCommand, writes_a_png_file_of_the_size_and_background_that_were_asked_for) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kRedBox);
  const std::string out = folder.path("a.png");
  const ToolResult result =
      runToolWith({"render", file, out, "--size", "80x60", "--background", "#102030", "--no-stats"});
  EXPECT_EQ(result.status, ExitStatus::done) << result.err;
  EXPECT_EQ(result.out + result.err, "");
  const embedded::Raster raster = readPicture(out);
  EXPECT_EQ(raster.width, 80U);
  EXPECT_EQ(raster.height, 60U);
  ASSERT_EQ(raster.channels, 3U);
  EXPECT_EQ(pixelAt(raster, 0.02, 0.02), (Pixel{0x10, 0x20, 0x30}));
  EXPECT_TRUE(isReddish(pixelAt(raster, 0.45, 0.55)));
}

TEST(RenderCommand, writes_to_standard_output_what_it_writes_to_a_file) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kRedBox);
  const ToolResult printed = runToolWith({"render", "-", "-", "--size", "40x30", "--no-stats"}, kHeader + kRedBox);
  EXPECT_EQ(printed.status, ExitStatus::done) << printed.err;
  EXPECT_EQ(runToolWith({"render", file, folder.path("a.png"), "--size", "40x30"}).status, ExitStatus::done);
  EXPECT_EQ(folder.read("a.png"), printed.out);
}

// A red box at the right of a world that is upright along y, a green one in front of it, a blue one above it.
const std::string kThreeBoxes = kHeader + kRedBox +
                                "Transform { translation 0 0 3 children Shape { appearance Appearance { material "
                                "Material { diffuseColor 0 1 0 } }\n"
                                "  geometry Box { } } }\n"
                                "Transform { translation 0 3 0 children Shape { appearance Appearance { material "
                                "Material { diffuseColor 0 0 1 } }\n"
                                "  geometry Box { } } }\n";

TEST(RenderCommand, shows_a_world_from_its_own_front_right_and_top) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kThreeBoxes);
  const struct {
    const char* view;
    std::vector<std::string> more;
    std::array<double, 2> red, green, blue;  // where each box is seen
  } kRows[] = {
      {"front", {}, {0.7, 0.7}, {0.35, 0.7}, {0.35, 0.25}},
      {"right", {}, {0.65, 0.7}, {0.25, 0.7}, {0.68, 0.25}},
      {"top", {}, {0.7, 0.3}, {0.35, 0.75}, {0.33, 0.3}},
      {"back", {}, {0.3, 0.7}, {-1, -1}, {0.65, 0.25}},
      {"front", {"--azimuth", "90"}, {0.65, 0.7}, {0.25, 0.7}, {0.68, 0.25}},
      {"front", {"--elevation", "90"}, {0.7, 0.3}, {0.35, 0.75}, {0.33, 0.3}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.view);
    const std::string out = folder.path("a.png");
    std::vector<std::string> arguments = {"render", file, out, "--size", "64x64", "--view", row.view};
    arguments.insert(arguments.end(), row.more.begin(), row.more.end());
    EXPECT_EQ(runToolWith(arguments).status, ExitStatus::done);
    const embedded::Raster raster = readPicture(out);
    const std::array<double, 2> places[] = {row.red, row.green, row.blue};
    for (std::size_t channel = 0; channel < 3; ++channel) {
      if (places[channel][0] < 0) continue;
      const Pixel pixel = pixelAt(raster, places[channel][0], places[channel][1]);
      for (std::size_t other = 0; other < 3; ++other) {
        if (other != channel) {
          EXPECT_GT(pixel[channel], pixel[other] + 60) << "channel " << channel;
        }
      }
    }
  }
}

TEST(RenderCommand, gives_the_background_for_a_scene_without_anything_to_see) {
  const fixtures::TempFolder folder;
  for (const char* world : {"Group { }\n", ""}) {
    const std::string file = folder.write("a.wrl", kHeader + world);
    const ToolResult result =
        runToolWith({"render", file, folder.path("a.png"), "--size", "8x8", "--background", "white"});
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_TRUE(holds(result.err, file + ": there is nothing to see\n")) << result.err;
    EXPECT_EQ(readPicture(folder.path("a.png")).bytes, std::vector<std::uint8_t>(8 * 8 * 3, 255));
  }
}

TEST(RenderCommand, leaves_the_output_alone_when_there_is_no_picture) {
  const fixtures::TempFolder folder;
  const std::string broken = folder.write("broken.wrl", kHeader + "Box { radius 1 }\n");
  const std::string good = folder.write("a.wrl", kHeader + kRedBox);
  const std::string out = folder.write("a.png", "old");
  const struct {
    std::vector<std::string> arguments;
    ExitStatus status;
    std::string message;
  } kRows[] = {
      {{broken, out}, ExitStatus::failed, "Error loading"},
      {{folder.path("missing.wrl"), out}, ExitStatus::failed, "Error loading"},
      {{folder.path("missing.json"), out}, ExitStatus::failed, "error"},
      {{good, folder.path("none/a.png")}, ExitStatus::failed, "No such file or directory"},
      {{good, out, "--view", "nowhere"},
       ExitStatus::usage,
       good + ": error: there is no view \"nowhere\"; there are front, back, left, right, top, bottom, iso\n"},
      {{good, out, "--view", "1"}, ExitStatus::usage, "there is no view \"1\""},
      {{good, out, "--size", "0x5"}, ExitStatus::usage, "--size"},
      {{good, out, "--size", "5"}, ExitStatus::usage, "--size"},
      {{good, out, "--size", "5x5x5"}, ExitStatus::usage, "--size"},
      {{good, out, "--size", "9000x1"}, ExitStatus::usage, "--size"},
      {{good, out, "--size", "8000x8000"}, ExitStatus::usage, "--size"},
      {{good, out, "--size", "-1x5"}, ExitStatus::usage, "--size"},
      {{good, out, "--background", "reddish"}, ExitStatus::usage, "silver"},
      {{good, out, "--samples", "0"}, ExitStatus::usage, "--samples"},
      {{good, out, "--azimuth", "nan"}, ExitStatus::usage, "--azimuth"},
      {{good, out, "--elevation", "1,5"}, ExitStatus::usage, "--elevation"},
      {{good}, ExitStatus::usage, "OUT.png"},
  };
  for (const auto& row : kRows) {
    std::vector<std::string> arguments = {"render"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const ToolResult result = runToolWith(arguments);
    EXPECT_EQ(result.status, row.status) << row.message;
    EXPECT_TRUE(holds(result.err, row.message)) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(folder.read("a.png"), "old");
  }
}

const char* const kStage =
    R"({"assembly": {"type": "root", "children": [{"type": "mesh", "geode": {"geometries": [
  {"type": "sglIndexedTriangleSet", "numPrims": 2, "coords": [-1,0,-1, 1,0,-1, 1,0,1, -1,0,1],
   "coordIndex": [0,1,2, 0,2,3], "displayList": false, "states": [
     {"type": "sglLighting", "on": false}, {"type": "sglMaterial", "diffuse": [1,0,0], "alpha": 1}]}]}}]},
 "views": [null, {"name": "Far", "perspective": true, "fov": 0.8, "frame": [1,0,0,0, 0,0,1,0, 0,-1,0,0, 0,-30,0,1]},
   {"name": "back", "perspective": true, "fov": 0.8, "frame": [1,0,0,0, 0,0,1,0, 0,-1,0,0, 0,-3,0,1]}]})";

double redShare(const embedded::Raster& raster) {
  int red = 0;
  for (std::size_t at = 0; at < raster.bytes.size(); at += 3) red += raster.bytes[at] > 200 ? 1 : 0;
  return red * 3.0 / static_cast<double>(raster.bytes.size());
}

TEST(RenderCommand, looks_through_the_views_of_a_stage_document) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.json", kStage);
  const struct {
    const char* view;
    double least, most;
  } kRows[] = {
      {"front", 0.7, 0.95},                      // all of the model, as large as it fits
      {"back", 0.5, 0.7},                        // the document's own view of that name, from the front
      {"Far", 0.003, 0.02}, {"1", 0.003, 0.02},  // views that are there are counted from 1
      {"2", 0.5, 0.7},      {"left", 0.0, 0.0},
  };
  for (const auto& row : kRows) {
    const std::string out = folder.path("a.png");
    const ToolResult result = runToolWith({"render", file, out, "--size", "64x64", "--view", row.view});
    EXPECT_EQ(result.status, ExitStatus::done) << result.err;
    const double share = redShare(readPicture(out));
    EXPECT_GE(share, row.least) << row.view;
    EXPECT_LE(share, row.most) << row.view;
  }
  const ToolResult missing = runToolWith({"render", file, folder.path("a.png"), "--view", "3"});
  EXPECT_EQ(missing.status, ExitStatus::usage);
  EXPECT_TRUE(holds(missing.err, "iso, 1 \"Far\", 2 \"back\"\n")) << missing.err;
  const ToolResult turned = runToolWith({"render", file, folder.path("a.png"), "--view", "Far", "--azimuth", "10"});
  EXPECT_EQ(turned.status, ExitStatus::usage);
}

TEST(RenderCommand, reads_the_images_of_textures_unless_told_not_to) {
  const fixtures::TempFolder folder;
  embedded::Raster red;
  ASSERT_TRUE(embedded::makeRaster(2, 2, 3, red));
  for (std::size_t at = 0; at < red.bytes.size(); at += 3) red.bytes[at] = 255;
  ASSERT_TRUE(embedded::writeImageFile(folder.path("only-here.png"), red));
  const std::string file = folder.write(
      "a.wrl", kHeader +
                   "Shape { appearance Appearance { texture ImageTexture { url \"only-here.png\" } }\n"
                   "  geometry IndexedFaceSet { coord Coordinate { point [ -1 -1 0, 1 -1 0, 1 1 0, -1 1 0 ] }\n"
                   "  texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0 1 ] } coordIndex [ 0 1 2 3 -1 ] } }\n");
  // Without first: a texture that was read once stays in the module.
  for (const bool reads : {false, true}) {
    std::vector<std::string> arguments = {"render", file, folder.path("a.png"), "--size", "32x32", "--view", "front"};
    if (!reads) arguments.push_back("--no-textures");
    EXPECT_EQ(runToolWith(arguments).status, ExitStatus::done);
    EXPECT_EQ(isReddish(pixelAt(readPicture(folder.path("a.png")), 0.5, 0.5)), reads);
  }
}

TEST(RenderCommand, writes_no_picture_over_an_image_of_the_model) {
  const fixtures::TempFolder folder;
  embedded::Raster red;
  ASSERT_TRUE(embedded::makeRaster(2, 2, 3, red));
  ASSERT_TRUE(embedded::writeImageFile(folder.path("own.png"), red));
  const std::string before = folder.read("own.png");
  const std::string file = folder.write(
      "own.wrl", kHeader +
                     "Shape { appearance Appearance { texture ImageTexture { url \"own.png\" } }\n"
                     "  geometry IndexedFaceSet { coord Coordinate { point [ -1 -1 0, 1 -1 0, 1 1 0 ] }\n"
                     "  texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1 ] } coordIndex [ 0 1 2 -1 ] } }\n");
  for (const char* command : {"render", "convert"}) {
    const ToolResult result = runToolWith({command, "-q", file, folder.path("own.png")});
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_EQ(result.err, folder.path("own.png") + ": error: is an image of a model that is shown\n");
    EXPECT_EQ(folder.read("own.png"), before);
  }
}

TEST(RenderCommand, writes_one_of_many_pictures_over_no_image_but_a_picture_of_its_own) {
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", "#VRML V2.0 utf8\nShape { geometry Box { } }\n");
  const std::string picture = folder.write("a.png", "a texture of a world that is yet to come");
  for (const char* command : {"render", "convert"}) {
    const ToolResult result = runToolWith({command, "-q", "--to", "png", world});
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_EQ(result.err, picture + ": error: is there already, and no picture of wrl's\n");
    EXPECT_EQ(folder.read("a.png"), "a texture of a world that is yet to come");
  }
  EXPECT_EQ(runToolWith({"render", "-q", "--size", "8x8", world, picture}).status, ExitStatus::done);
  EXPECT_EQ(runToolWith({"render", "-q", "--size", "8x8", "--to", "png", world}).status, ExitStatus::done);
}

TEST(RenderCommand, draws_models_of_other_formats) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kThreeBoxes);
  for (const char* name : {"a.glb", "a.obj", "a.json"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(runToolWith({"convert", file, folder.path(name)}).status, ExitStatus::done);
    const ToolResult result =
        runToolWith({"render", folder.path(name), folder.path("a.png"), "--size", "64x64", "--view", "front"});
    EXPECT_EQ(result.status, ExitStatus::done) << result.err;
    const embedded::Raster raster = readPicture(folder.path("a.png"));
    EXPECT_TRUE(isReddish(pixelAt(raster, 0.7, 0.7)));
    EXPECT_GT(pixelAt(raster, 0.35, 0.25)[2], pixelAt(raster, 0.35, 0.25)[1] + 60);
  }
}

TEST(RenderCommand, stands_a_world_upright_along_the_axis_that_is_up_in_it) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kThreeBoxes);
  const std::string out = folder.path("a.png");
  // The blue box is above by the file's y axis, the green one by its z axis.
  for (const bool isZUp : {false, true}) {
    EXPECT_EQ(
        runToolWith({"render", file, out, "--size", "64x64", "--view", "front", "--up", isZUp ? "z" : "y"}).status,
        ExitStatus::done);
    const Pixel upper = pixelAt(readPicture(out), 0.35, 0.25);
    EXPECT_GT(upper[isZUp ? 1 : 2], upper[isZUp ? 2 : 1] + 60);
  }
  const std::string stage = folder.write("a.json", kStage);
  EXPECT_EQ(runToolWith({"render", stage, out, "--up", "z"}).status, ExitStatus::usage);
}

TEST(ConvertCommand, writes_a_picture) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.json", kStage);
  const ToolResult result = runToolWith({"convert", file, folder.path("a.png")});
  EXPECT_EQ(result.status, ExitStatus::done) << result.err;
  EXPECT_EQ(result.out + result.err, "");
  const embedded::Raster raster = readPicture(folder.path("a.png"));
  EXPECT_EQ(raster.width, 1024U);
  EXPECT_EQ(raster.height, 768U);
  EXPECT_GT(redShare(raster), 0.2);
  const ToolResult failed = runToolWith({"convert", file, folder.path("none/a.png")});
  EXPECT_EQ(failed.status, ExitStatus::failed);
  EXPECT_EQ(failed.err, folder.path("none/a.png") + ": error: No such file or directory\n");
}

TEST(RenderCommandDeathTest, says_that_there_is_no_renderer) {
  // A process of its own, since a display that is open once stays.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const fixtures::TempFolder folder;
  const std::string file = folder.write("a.wrl", kHeader + kRedBox);
  const std::string out = folder.path("a.png");
  const auto render = [&] {
    ::setenv("__EGL_VENDOR_LIBRARY_FILENAMES", folder.path("none.json").c_str(), 1);
    const char* const arguments[] = {"wrl", "render", file.c_str(), out.c_str(), "--no-stats"};
    std::exit(static_cast<int>(runTool(5, arguments)));
  };
  EXPECT_EXIT(render(), testing::ExitedWithCode(1), "a.png: error: .*there is no OpenGL renderer here");
}

}  // namespace
}  // namespace wrl
