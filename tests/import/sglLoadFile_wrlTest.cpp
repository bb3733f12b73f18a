#include "import/sglLoadFile_wrl.h"

#include <VekSG/sglCube.h>
#include <VekSG/sglTransform.h>

#include <new>

#include "embedded/LoaderSettings.h"
#include "tests/import/ImportTest.h"
#include "vrml/reader/SceneGraph.h"
#include "vrml/reader/Unpacker.h"

namespace {

using importtest::Loaded;
using importtest::OpenLoader;
using importtest::shape;
using importtest::triangleShape;

class LoadFile : public importtest::ImportTest {};

/// All messages' texts, each behind its level.
std::string allMessages(const Loaded& loaded) {
  std::string text;
  for (const auto& message : loaded.messages) text += std::to_string(message.level) + "[" + message.text + "]";
  return text;
}

std::string statisticsOfNothing(const std::string& path) {
  return "2[-- Statistics for: " + path +
         " ---\n]2[   Num S.Tris     : 0\n]2[   Num S.Quads    : 0\n]2[   Num S.Polygons : 0\n]2[   ---------------- "
         "\n]"
         "2[   Num Indep Tris : 0\n]2[   Num Strips     : 0\n]2[   Num Materials  : 0\n]2[   Num Textures   : 0\n]"
         "2[   Texture Size MB: 0 (32bpp) 0 (16bpp) \n]2[    Mipped        : 0 (32bpp) 0 (16bpp) \n]"
         "2[   S3TC Cmp+Mipped: 0\n]";
}

TEST_F(LoadFile, begins_with_the_settings_of_its_class) {
  const OpenLoader loader;
  EXPECT_TRUE(loader.m_nodeTable.empty());
  EXPECT_EQ(loader.m_modelDir, "");
  EXPECT_EQ(loader.m_scene, nullptr);
  EXPECT_TRUE(loader.m_printStats);
  EXPECT_FALSE(loader.m_colorMaterial);
  EXPECT_EQ(loader.m_minFilter, 9987U);
  EXPECT_EQ(loader.m_magFilter, 9729U);
  EXPECT_FALSE(loader.m_compressTextures);
  EXPECT_EQ(loader.m_compressionLevel, 3U);
  EXPECT_TRUE(loader.m_alphaTest);
  EXPECT_EQ(loader.m_alphaRef, 0.5F);
  EXPECT_EQ(loader.m_tessellation, 2.0F);
  EXPECT_EQ(loader.m_minStripLength, 99999);
  EXPECT_EQ(loader.m_maxStripLength, 0);
}

TEST_F(LoadFile, takes_the_tessellation_from_the_hosts_refinement) {
  embedded::loaderSettings().refinement = 3.0F;
  EXPECT_EQ(OpenLoader().m_tessellation, 5.0F);
}

TEST_F(LoadFile, turns_the_world_upright) {
  const Loaded loaded = load(triangleShape());
  const auto& root = dynamic_cast<const sglTransform<float>&>(*loaded.scene());
  constexpr float kWanted[16] = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
  for (unsigned place = 0; place < 16; ++place) EXPECT_NEAR(root.getMatrix()[place], kWanted[place], 1e-7F) << place;
}

TEST_F(LoadFile, prints_its_statistics_to_the_last_blank) {
  const Loaded loaded = load("Group { }");
  EXPECT_EQ(allMessages(loaded), statisticsOfNothing(pathOf("a.wrl")));
  EXPECT_NE(loaded.scene(), nullptr);
}

TEST_F(LoadFile, prints_no_statistics_when_told_not_to) {
  EXPECT_EQ(allMessages(load("Group { }", [](OpenLoader& loader) { loader.m_printStats = false; })), "");
}

TEST_F(LoadFile, says_when_a_file_holds_no_scene) {
  for (const char* world :
       {"", "WorldInfo { title \"nothing\" } Viewpoint { }", "Shape { }", "Anchor { children [ Anchor { } ] }"}) {
    SCOPED_TRACE(world);
    const Loaded loaded = load(world);
    EXPECT_EQ(loaded.scene(), nullptr);
    EXPECT_EQ(allMessages(loaded),
              statisticsOfNothing(pathOf("a.wrl")) + "2[sglLoadFile_wrl: file contained no scene\n]");
  }
}

TEST_F(LoadFile, reports_where_a_file_goes_wrong) {
  const struct {
    const char* name;
    const char* world;
    const char* place;
  } rows[] = {
      {"an unknown field", "\nShape {\n  geometry Box { radius 2 }\n}",
       "\tLine 4, at or about \"radius\"\n\t>>  geometry Box { radius 2 }\n"},
      {"the end of the file", "Group {", "\tLine 2, at or about \"\"\n\t>>Group {\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Loaded loaded = load(std::string(row.world));
    EXPECT_EQ(loaded.scene(), nullptr);
    ASSERT_EQ(loaded.messages.size(), 2U);
    EXPECT_EQ(loaded.messages[0].level, 2U);
    EXPECT_EQ(loaded.messages[0].text, "sglLoadFile_wrl: Error loading: " + pathOf("a.wrl") + "\n");
    EXPECT_EQ(loaded.messages[1].level, 2U);
    EXPECT_TRUE(loaded.messages[1].text.starts_with(std::string(row.place).substr(0, 6))) << loaded.messages[1].text;
  }
  EXPECT_EQ(load(rows[0].world).messages[1].text, rows[0].place);
}

TEST_F(LoadFile, reports_a_file_that_does_not_exist) {
  testing::internal::CaptureStderr();
  const Loaded loaded = loadPath("nofile.wrl");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open data file nofile.wrl\n");
  ASSERT_NE(loaded.database, nullptr);
  EXPECT_EQ(loaded.scene(), nullptr);
  EXPECT_EQ(allMessages(loaded),
            "2[sglLoadFile_wrl: Error loading: nofile.wrl\n]2[\tLine 0, at or about \"\"\n\t>>\n]");
}

TEST_F(LoadFile, looks_once_more_where_the_host_finds_the_file) {
  writeWorld(shape("texture ImageTexture { url \"dot.img\" }"), "library/part.wrl");
  write("library/dot.img", "");
  embedded::loaderSettings().searchFolders = {pathOf("library")};
  static std::string readPath;
  embedded::loaderSettings().imageReader = [](const std::string& path, sglTexture2D* texture) {
    readPath = path;
    return texture->setImage(1, 1, sglTexture::FORMAT_RGB, {1, 2, 3});
  };
  testing::internal::CaptureStderr();
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  const std::unique_ptr<CVekDBRoot> database(loader.loadFile("elsewhere/part.wrl", 0));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open data file elsewhere/part.wrl\n");
  EXPECT_EQ(importtest::dump(database->GetSglRoot()), "Transform(Geode{0 1 2})");
  EXPECT_EQ(loader.m_modelDir, pathOf("library"));
  EXPECT_EQ(recorder.messages()[0].text, "-- Statistics for: elsewhere/part.wrl ---\n");
  EXPECT_EQ(readPath, pathOf("library/dot.img"));
}

TEST_F(LoadFile, takes_nothing_of_a_broken_file_when_another_is_found) {
  const std::string broken = writeWorld(
      "DEF x Group { children [ LOD { } " + shape("material Material { }", "Cone { }") + "nonsense", "a.wrl");
  writeWorld(triangleShape() + "USE x", "library/a.wrl");
  embedded::loaderSettings().searchFolders = {pathOf("library")};
  const Loaded loaded = loadPath(broken);
  EXPECT_EQ(loaded.text(), "Transform(Geode{0 1 2})");
  EXPECT_EQ(loaded.statistic("Num Materials"), 0);
  EXPECT_EQ(loaded.messages[0].text, "-- Statistics for: " + broken + " ---\n");
  EXPECT_EQ(loaded.report(), "");
}

TEST_F(LoadFile, searches_textures_beside_the_file_that_loaded) {
  const std::string path = writeWorld(triangleShape(), "sub/dir/a.wrl");
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  const std::unique_ptr<CVekDBRoot> database(loader.loadFile(path, 0));
  EXPECT_EQ(loader.m_modelDir, pathOf("sub/dir"));
}

TEST_F(LoadFile, reports_the_error_of_the_last_file_that_it_tried) {
  const std::string broken = writeWorld("Group {\n\n\nnonsense", "broken.wrl");
  writeWorld("\n\nnonsense", "library/broken.wrl");
  embedded::loaderSettings().searchFolders = {pathOf("library")};
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  const std::unique_ptr<CVekDBRoot> database(loader.loadFile(broken, 0));
  EXPECT_EQ(database->GetSglRoot(), nullptr);
  ASSERT_EQ(recorder.messages().size(), 2U);
  EXPECT_EQ(recorder.messages()[0].text, "sglLoadFile_wrl: Error loading: " + broken + "\n");
  EXPECT_EQ(recorder.messages()[1].text, "\tLine 4, at or about \"nonsense\"\n\t>>nonsense\n");
  EXPECT_EQ(loader.m_modelDir, pathOf(".").substr(0, pathOf(".").size() - 2));
}

/// A compressed file as the hosts of these tests have them: gzip's mark, and each byte one too high.
std::string packed(std::string text) {
  for (char& byte : text) ++byte;
  return "\x1F\x8B" + text;
}

bool unpack(std::string_view packed, std::string& plain) {
  plain = packed.substr(2);
  for (char& byte : plain) --byte;
  return !plain.ends_with("#damaged\n");
}

TEST_F(LoadFile, reads_compressed_files_where_the_host_unpacks_them) {
  const std::string header = "#VRML V2.0 utf8\n";
  write("part.wrl", packed(header + shape("", "Box { }")));
  const std::string world = write("packed.wrl", packed(header + "Inline { url \"part.wrl\" }\n"));
  const std::string wrong = write("wrong.wrl", packed(header + "\nGroup { x }\n"));
  const std::string damaged = write("damaged.wrl", packed(header + "Group { }\n#damaged\n"));
  const std::string refused = "2[sglLoadFile_wrl: Error loading: ";
  {
    const Loaded loaded = loadPath(world);
    EXPECT_EQ(loaded.scene(), nullptr);
    EXPECT_TRUE(loaded.report().starts_with(refused + world)) << loaded.report();
  }
  embedded::loaderSettings().unpacker = unpack;
  const Loaded loaded = loadPath(world);
  EXPECT_NE(dynamic_cast<const sglCube*>(loaded.drawable()), nullptr);
  EXPECT_EQ(loaded.report(), "");
  EXPECT_EQ(loadPath(wrong).report(), refused + wrong + "\n]2[\tLine 3, at or about \"x\"\n\t>>Group { x }\n]");
  EXPECT_TRUE(loadPath(damaged).report().starts_with(refused + damaged));
  // The reader itself unpacks nothing once the load is over.
  EXPECT_EQ(vrml::setUnpacker(nullptr), nullptr);
}

TEST_F(LoadFile, flags_change_nothing) {
  const std::string path = writeWorld("Group { children " + triangleShape() + " }");
  const Loaded plain = loadPath(path, 0);
  for (const unsigned flags : {1U, 0x80000000U, 0xFFFFFFFFU}) {
    const Loaded flagged = loadPath(path, flags);
    EXPECT_EQ(flagged.text(), plain.text());
    EXPECT_EQ(allMessages(flagged), allMessages(plain));
  }
}

std::string progressText;

TEST_F(LoadFile, tells_the_progress_hook_what_it_loads) {
  embedded::loaderSettings().progress = [](float fraction, const char* text) {
    progressText += std::to_string(fraction) + " " + text + "; ";
  };
  progressText.clear();
  load("Group { }");
  EXPECT_EQ(progressText, "0.000000 Loading a.wrl; ");
}

TEST_F(LoadFile, merges_the_scene_when_the_host_wants_one_object) {
  embedded::loaderSettings().mergeInOneActor = true;
  const Loaded loaded = load("Group { children [ " + triangleShape() + " Transform { translation 1 0 0 children " +
                             triangleShape() + " } ] }");
  ASSERT_NE(loaded.scene(), nullptr);
  EXPECT_EQ(loaded.scene()->getName(), "");
  EXPECT_EQ(dynamic_cast<const sglTransform<float>*>(loaded.scene()), nullptr);
  EXPECT_NE(loaded.drawable(0), nullptr);
}

TEST_F(LoadFile, merges_also_when_there_is_no_scene) {
  embedded::loaderSettings().mergeInOneActor = true;
  EXPECT_EQ(load("").scene(), nullptr);
  const Loaded broken = load("nonsense");
  ASSERT_NE(broken.database, nullptr);
  EXPECT_EQ(broken.scene(), nullptr);
}

TEST_F(LoadFile, sizes_of_textures_are_estimated_in_single_and_double_precision) {
  const struct {
    std::int32_t rgb;
    std::int32_t other;
    const char* lines;
  } rows[] = {
      {2, 0,
       "2[   Texture Size MB: 5.72205e-06 (32bpp) 2.86102e-06 (16bpp) \n]"
       "2[    Mipped        : 7.62749e-06 (32bpp) 3.81374e-06 (16bpp) \n]2[   S3TC Cmp+Mipped: 0\n]"},
      {0, 16,
       "2[   Texture Size MB: 6.10352e-05 (32bpp) 3.05176e-05 (16bpp) \n]"
       "2[    Mipped        : 8.13599e-05 (32bpp) 4.06799e-05 (16bpp) \n]2[   S3TC Cmp+Mipped: 2.03445e-05\n]"},
      {1048576, 0,
       "2[   Texture Size MB: 3 (32bpp) 1.5 (16bpp) \n]"
       "2[    Mipped        : 3.999 (32bpp) 1.9995 (16bpp) \n]2[   S3TC Cmp+Mipped: 0.66665\n]"},
      {2147483647, 2147483647,
       "2[   Texture Size MB: 14336 (32bpp) 7168 (16bpp) \n]"
       "2[    Mipped        : 19109.9 (32bpp) 9554.94 (16bpp) \n]2[   S3TC Cmp+Mipped: 4095.9\n]"},
  };
  for (const auto& row : rows) {
    embedded::MessageRecorder recorder(false);
    OpenLoader loader;
    loader.m_texelsRGB = row.rgb;
    loader.m_texelsOther = row.other;
    loader.printStatistics("p");
    const auto& messages = recorder.messages();
    ASSERT_EQ(messages.size(), 12U);
    EXPECT_EQ(allMessages({nullptr, {messages.end() - 3, messages.end()}}), row.lines);
  }
}

TEST_F(LoadFile, lengths_of_strips_are_shown_when_there_are_any) {
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  loader.m_numStrips = 3;
  loader.m_minStripLength = 3;
  loader.m_maxStripLength = 7;
  loader.m_sumStripLength = 14;
  loader.printStatistics("p");
  ASSERT_EQ(recorder.messages().size(), 13U);
  EXPECT_EQ(recorder.messages()[6].text, "   Num Strips     : 3\n");
  EXPECT_EQ(recorder.messages()[7].text, "    Length Stats  : Min: 3 Max: 7 Avg: 4\n");
}

TEST_F(LoadFile, numbers_look_the_same_under_any_locale) {
  // A locale with a comma and grouped digits, as a host may have set for the whole process.
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale previous = std::locale::global(std::locale(std::locale(), new Comma));
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  loader.m_numSTris = 1234567;
  loader.m_texelsRGB = 1048576;
  loader.printStatistics("p");
  std::locale::global(previous);
  EXPECT_EQ(recorder.messages()[1].text, "   Num S.Tris     : 1234567\n");
  EXPECT_EQ(recorder.messages()[9].text, "   Texture Size MB: 3 (32bpp) 1.5 (16bpp) \n");
}

TEST_F(LoadFile, what_a_hook_throws_ends_the_load_and_no_more) {
  struct Thrower {
    int calls = 0;
    int throwing = 0;
    static bool hear(sglNode*, void*, const std::string&, void* userData) {
      auto& self = *static_cast<Thrower*>(userData);
      if (++self.calls == self.throwing) throw std::bad_alloc();
      return true;
    }
  };
  const std::string world = "Group { children [ LOD { level " + triangleShape() + " } Transform { children " +
                            shape("material Material { }", "Box { }") + " } ] }";
  Thrower thrower;
  embedded::loaderSettings().hooks["wrl"] = {&Thrower::hear, &thrower};
  EXPECT_NE(load(world).scene(), nullptr);
  const int calls = thrower.calls;
  EXPECT_EQ(calls, 10);
  for (thrower.throwing = 1; thrower.throwing <= calls; ++thrower.throwing) {
    SCOPED_TRACE(thrower.throwing);
    thrower.calls = 0;
    const Loaded loaded = load(world);
    ASSERT_NE(loaded.database, nullptr);
    EXPECT_EQ(loaded.scene(), nullptr);
    EXPECT_EQ(allMessages(loaded),
              "2[sglLoadFile_wrl: Error loading: " + pathOf("a.wrl") + "\n]2[\tLine 0, at or about \"\"\n\t>>\n]");
  }
}

/// Transforms inside one another, one a line.
std::string nested(int depth) {
  std::string world;
  for (int i = 0; i < depth; ++i) world += "Transform { children [\n";
  world += "Group { }\n";
  for (int i = 0; i < depth; ++i) world += "] }";
  return world;
}

TEST_F(LoadFile, deep_worlds_load_and_deeper_ones_are_refused) {
  const Loaded deep = load(nested(4000));
  int depth = 0;
  for (const sglGroup* group = deep.scene(); group != nullptr; ++depth)
    group = dynamic_cast<const sglGroup*>(group->getChild(group->getNumChildren() - 1));
  EXPECT_EQ(depth, 4002);  // the root, the transforms, the group

  const Loaded tooDeep = load(nested(5000));
  EXPECT_EQ(tooDeep.scene(), nullptr);
  ASSERT_EQ(tooDeep.messages.size(), 2U);
  EXPECT_EQ(tooDeep.messages[1].text, "\tLine 4098, at or about \"Transform\"\n\t>>Transform { children [\n");
}

TEST_F(LoadFile, a_hook_may_load_another_file) {
  struct Nested {
    std::string path;
    std::string scenes;
    static bool hear(sglNode*, void*, const std::string& event, void* userData) {
      auto& self = *static_cast<Nested*>(userData);
      if (event != "onParse:LOD") return true;
      OpenLoader loader;
      const std::unique_ptr<CVekDBRoot> database(loader.loadFile(self.path, 0));
      self.scenes += importtest::dump(database->GetSglRoot()) + " ";
      return true;
    }
  };
  Nested nested{writeWorld("DEF g Group { children [ " + triangleShape() + " USE n ] }", "inner.wrl"), ""};
  embedded::loaderSettings().hooks["wrl"] = {&Nested::hear, &nested};
  const Loaded loaded = load("DEF n Switch { } LOD { level " + triangleShape() + " } LOD { } USE n");
  EXPECT_EQ(loaded.text(), "Transform(Switch:n<-2>() LOD<0 1e+07>(Geode{0 1 2}) LOD<0 1e+07>() Switch:n<-2>())");
  EXPECT_EQ(nested.scenes, "Transform(Group:g(Geode:g{0 1 2})) Transform(Group:g(Geode:g{0 1 2})) ");
}

TEST_F(LoadFile, one_load_leaves_nothing_behind_for_the_next) {
  const std::string world = shape("material Material { }");
  load("Group { children [ DEF x Transform {");
  const Loaded first = load(world);
  load("nonsense");
  const Loaded second = load(world);
  EXPECT_EQ(allMessages(first), allMessages(second));
  EXPECT_EQ(first.text(), second.text());
}

}  // namespace
