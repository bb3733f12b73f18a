// What stands in a folder after a subcommand that writes there, when the disk is full, when something is in the way,
// and when a texture is not what it should be.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "embedded/images/ImageFile.h"
#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

namespace fs = std::filesystem;

// Lets no file grow beyond a size for as long as it lives, as a disk would that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t maxBytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &m_saved);
    const rlimit limit = {maxBytes, m_saved.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &m_saved);
    std::signal(SIGXFSZ, m_handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_saved{};
  void (*m_handler)(int);
};

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// A stage document of one triangle for each texture.
std::string stageWith(const std::vector<std::string>& textures) {
  std::string text = R"({"assembly": {"type": "root", "children": [)";
  for (const std::string& texture : textures) {
    text += text.ends_with('[') ? "" : ",";
    text += R"({"type": "mesh", "mapPath": ")" + texture + R"(", "texture": {}, "geode": {"geometries": [
      {"type": "sglIndexedTriangleSet", "numPrims": 1, "coords": [0,0,0, 1,0,0, 0,1,0], "coordIndex": [0,1,2],
       "states": [{"type": "sglMaterial"}]}]}})";
  }
  return text + "]}}";
}

// An image that compresses badly.
void writeNoise(const std::string& path, unsigned size) {
  embedded::Raster raster;
  raster.width = raster.height = size;
  raster.channels = 3;
  unsigned random = 1;
  for (unsigned i = 0; i < size * size * 3; ++i) {
    random = random * 1664525U + 1013904223U;
    raster.bytes.push_back(static_cast<std::uint8_t>(random >> 24U));
  }
  ASSERT_TRUE(embedded::writeImageFile(path, raster));
}

// A PNG header that claims 60000 times 60000 pixels, its checksum included, and nothing behind it.
std::string hugePng() {
  const char bytes[] =
      "\x89PNG\r\n\x1A\n\x00\x00\x00\x0DIHDR\x00\x00\xEA\x60\x00\x00\xEA\x60\x08\x02\x00\x00\x00\x0F\xB0\xE2\x15";
  return {bytes, sizeof bytes - 1};
}

std::string manyTriangles() {
  std::string text = "#VRML V2.0 utf8\nShape { geometry IndexedFaceSet { coord Coordinate { point [\n";
  for (int i = 0; i < 900; ++i) text += std::to_string(i) + " 0 " + std::to_string(i * i % 7) + ",\n";
  text += "] } coordIndex [\n";
  for (int i = 0; i < 300; ++i) {
    text += std::to_string(i) + " " + std::to_string(i + 300) + " " + std::to_string(i + 601 - i % 2) + " -1\n";
  }
  return text + "] } }\n";
}

TEST(SafeWriting, leaves_no_half_file_on_a_full_disk) {
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", manyTriangles());
  ASSERT_EQ(runToolWith({"stage", world, "-o", folder.path("a.json")}).status, ExitStatus::done);
  const std::vector<std::string> commandLines[] = {
      {"convert", "--no-stats", world, folder.path("out.wrl")},
      {"convert", "--no-stats", world, folder.path("out.json")},
      {"export", folder.path("a.json"), folder.path("out.wrl")},
      {"stage", "--no-stats", world, "-o", folder.path("out.json")},
      {"scene", "--no-stats", world, "-o", folder.path("out.json")},
      {"nodes", world, "-o", folder.path("out.wrl")},
      {"tokens", world, "-o", folder.path("out.txt")},
  };
  for (const std::vector<std::string>& words : commandLines) {
    SCOPED_TRACE(words.front());
    const std::string& out = words.back();
    for (const char* old : {"", "old"}) {
      if (*old != '\0') std::ofstream(out) << old;
      const std::ptrdiff_t count = folder.entryCount();
      ToolResult result{};
      {
        const FullDisk disk(4096);
        result = runToolWith(words);
      }
      EXPECT_EQ(result.status, ExitStatus::failed);
      EXPECT_EQ(result.err, out + ": error: File too large\n");
      EXPECT_EQ(folder.entryCount(), count);
      EXPECT_EQ(folder.read(fs::path(out).filename().string()), old);
    }
    fs::remove(out);
  }
}

TEST(SafeWriting, writes_onto_the_file_that_it_reads) {
  const fixtures::TempFolder folder;
  const std::string world = folder.write("a.wrl", manyTriangles());
  const std::vector<std::string> words = {"convert", "--no-stats", world, world};
  {
    const FullDisk disk(4096);
    EXPECT_EQ(runToolWith(words).status, ExitStatus::failed);
  }
  EXPECT_EQ(folder.read("a.wrl"), manyTriangles());
  EXPECT_EQ(runToolWith(words).status, ExitStatus::done);
  EXPECT_TRUE(holds(folder.read("a.wrl"), "DEF browns Background"));
  EXPECT_TRUE(holds(runToolWith({"info", "--no-stats", world}).out, "  triangles     300\n"));
}

TEST(SafeWriting, leaves_no_half_texture_on_a_full_disk) {
  const fixtures::TempFolder folder;
  writeNoise(folder.path("noise.png"), 64);
  writeNoise(folder.path("copied.jpg"), 64);
  fs::create_directory(folder.path("out"));
  folder.write("out/a.wrl", "old");
  for (const std::string name : {"noise.png", "copied.jpg"}) {
    SCOPED_TRACE(name);
    const std::string stage = folder.write("a.json", stageWith({name}));
    ToolResult result{};
    {
      const FullDisk disk(2048);
      result = runToolWith({"export", stage, folder.path("out/a.wrl")});
    }
    const std::string texture = "Textures/" + fs::path(name).stem().string() + ".jpg";
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_EQ(result.err, folder.path("out/a.wrl") + ": error: " + texture + ": File too large\n");
    EXPECT_EQ(folder.read("out/a.wrl"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("out")), {}), 1);
    // With room there is nothing wrong with it.
    EXPECT_EQ(runToolWith({"export", stage, folder.path("fine/a.wrl")}).status, ExitStatus::failed);
    fs::create_directory(folder.path("fine"));
    EXPECT_EQ(runToolWith({"export", stage, folder.path("fine/a.wrl")}).status, ExitStatus::done);
    EXPECT_TRUE(fs::exists(folder.path("fine/" + texture)));
    fs::remove_all(folder.path("fine"));
  }
}

TEST(SafeWriting, converts_textures_again_but_keeps_copies) {
  const fixtures::TempFolder folder;
  writeNoise(folder.path("noise.png"), 4);
  folder.write("copied.jpg", "first");
  const std::string stage = folder.write("a.json", stageWith({"noise.png", "copied.jpg"}));
  fs::create_directory(folder.path("out"));
  const std::vector<std::string> words = {"export", stage, folder.path("out/a.wrl")};
  ASSERT_EQ(runToolWith(words).status, ExitStatus::done);
  const std::string converted = folder.read("out/Textures/noise.jpg");
  EXPECT_EQ(folder.read("out/Textures/copied.jpg"), "first");
  folder.write("copied.jpg", "second");
  folder.write("out/Textures/noise.jpg", "to be converted again");
  folder.write("out/Textures/other.jpg", "somebody else's");
  folder.write("out/Textures/empty.jpg", "");
  const ToolResult result = runToolWith(words);
  EXPECT_EQ(result.status, ExitStatus::done);
  EXPECT_EQ(result.err, folder.path("out/a.wrl") + ": note: Textures/noise.jpg takes the place of another file\n");
  EXPECT_EQ(folder.read("out/Textures/copied.jpg"), "first");
  EXPECT_EQ(folder.read("out/Textures/noise.jpg"), converted);
  EXPECT_EQ(folder.read("out/Textures/other.jpg"), "somebody else's");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("out/Textures")), {}), 4);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("out")), {}), 2);
}

TEST(SafeWriting, refuses_a_file_in_the_place_of_the_texture_folder) {
  const fixtures::TempFolder folder;
  writeNoise(folder.path("noise.png"), 4);
  const std::string stage = folder.write("a.json", stageWith({"noise.png"}));
  fs::create_directory(folder.path("out"));
  folder.write("out/Textures", "a file");
  folder.write("out/a.wrl", "old");
  for (const char* command : {"export", "convert"}) {
    const ToolResult result = runToolWith({command, stage, folder.path("out/a.wrl")});
    EXPECT_EQ(result.status, ExitStatus::failed);
    EXPECT_EQ(result.err, folder.path("out/a.wrl") + ": error: Textures: Not a directory\n");
    EXPECT_EQ(folder.read("out/Textures"), "a file");
    EXPECT_EQ(folder.read("out/a.wrl"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("out")), {}), 2);
  }
}

TEST(SafeWriting, refuses_places_that_no_file_can_take) {
  const fixtures::TempFolder folder;
  const std::string stage = folder.write("a.json", stageWith({"none.jpg"}));
  folder.write("file", "old");
  fs::create_directory(folder.path("folder.wrl"));
  struct Row {
    const char* place;
    const char* reason;
  };
  const Row rows[] = {
      {"folder.wrl", "Is a directory"}, {"file/a.wrl", "Not a directory"}, {"none/a.wrl", "No such file or directory"}};
  for (const Row& row : rows) {
    for (const char* command : {"export", "convert"}) {
      const ToolResult result = runToolWith({command, stage, folder.path(row.place)});
      EXPECT_EQ(result.status, ExitStatus::failed);
      EXPECT_EQ(result.err, folder.path(row.place) + ": error: " + row.reason + "\n");
      EXPECT_EQ(folder.entryCount(), 3);
    }
  }
  EXPECT_EQ(folder.read("file"), "old");
  EXPECT_TRUE(fs::is_empty(folder.path("folder.wrl")));
}

TEST(SafeWriting, names_a_texture_that_is_missing_and_writes_the_rest) {
  const fixtures::TempFolder folder;
  folder.write("broken.png", "\x89PNG\r\n\x1A\nand no more");
  folder.write("text.png", "no image");
  folder.write("huge.png", hugePng());
  fs::create_directory(folder.path("folder.png"));
  fs::create_directory(folder.path("folder.jpg"));
  struct Row {
    const char* texture;
    const char* complaint;
  };
  const Row rows[] = {
      {"missing.jpg", "cannot be read"},
      {"missing.png", "holds no image that can be read"},
      {"broken.png", "holds no image that can be read"},
      {"text.png", "holds no image that can be read"},
      {"huge.png", "holds no image that can be read"},
      {"folder.png", "holds no image that can be read"},
      {"folder.jpg", "cannot be read"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.texture);
    const std::string stage = folder.write("a.json", stageWith({row.texture, row.texture}));
    fs::create_directories(folder.path("out/Textures"));
    const std::string stem = fs::path(row.texture).stem().string();
    const std::string out = folder.path("out/a.wrl");
    const std::string note = out + ": note: texture " + folder.path(row.texture) + " " + row.complaint + "\n";
    const ToolResult result = runToolWith({"export", stage, out});
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.err, note);
    EXPECT_TRUE(holds(folder.read("out/a.wrl"), "url [ \"Textures\\" + stem + ".jpg\"]"));
    EXPECT_TRUE(holds(folder.read("out/a.wrl"), "}DEF browns Background"));
    EXPECT_TRUE(fs::is_empty(folder.path("out/Textures")));
    // A picture that is there already is not lost for it.
    folder.write("out/Textures/" + stem + ".jpg", "old");
    EXPECT_EQ(runToolWith({"export", stage, out}).status, ExitStatus::done);
    EXPECT_EQ(folder.read("out/Textures/" + stem + ".jpg"), "old");
    fs::remove_all(folder.path("out"));
  }
}

TEST(SafeWriting, finds_textures_from_another_folder) {
  const fixtures::TempFolder folder;
  fs::create_directory(folder.path("in"));
  fs::create_directory(folder.path("out"));
  writeNoise(folder.path("in/noise.png"), 4);
  folder.write("in/a.json", stageWith({"noise.png"}));
  const fs::path here = fs::current_path();
  fs::current_path(folder.path(""));
  const ToolResult results[] = {
      runToolWith({"stage", "in/a.json", "-o", "out/b.json"}),
      runToolWith({"stage", "in/a.json", "-o", "in/b.json"}),
      runToolWith({"convert", "in/a.json", "out/c.json"}),
      runToolWith({"convert", "out/b.json", "in/c.json"}),
  };
  const std::string printed = runToolWith({"stage", "in/a.json"}).out;
  const ToolResult exported = runToolWith({"export", "out/b.json", "d.wrl"});
  fs::current_path(here);
  for (const ToolResult& result : results) EXPECT_EQ(result.status, ExitStatus::done) << result.err;
  EXPECT_TRUE(holds(folder.read("in/b.json"), R"("mapPath":"noise.png")"));
  EXPECT_TRUE(holds(folder.read("out/b.json"), "\"mapPath\":\"" + folder.path("in/noise.png") + "\""));
  EXPECT_EQ(folder.read("out/b.json"), folder.read("out/c.json"));
  EXPECT_TRUE(holds(printed, R"("mapPath":"in/noise.png")"));
  EXPECT_EQ(exported.err, "");
  EXPECT_TRUE(fs::exists(folder.path("Textures/noise.jpg")));
}

}  // namespace
}  // namespace wrl
