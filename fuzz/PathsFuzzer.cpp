// Paths that a world or a stage document names: the input's lines are the url of an Inline, the url of a texture, and
// the path of a texture that is exported. Nothing but regular files is opened for reading, nothing for writing but the
// file that is exported and what stands in the folder Textures beside it.

#include <sys/stat.h>

#include <filesystem>

#include "embedded/LoaderSettings.h"
#include "embedded/MessageSink.h"
#include "embedded/ModuleLoader.h"
#include "embedded/StageDocument.h"
#include "embedded/images/ImageFile.h"
#include "fuzz/Harness.h"
#include "fuzz/OpenWatch.h"

namespace {

const embedded::ModuleLoader& module() {
  static embedded::ModuleLoader loader;
  static const bool isOpen = loader.open(embedded::ModuleLoader::pathBesideHost());
  if (!isOpen || !loader.canWrite()) fuzz::fail("no module", loader.errorText());
  return loader;
}

constexpr std::string_view kWorld = "#VRML V2.0 utf8\nShape { geometry Box { } }\n";
// A GIF of one pixel.
constexpr char kImage[] = "GIF89a\1\0\1\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\1\0\1\0\0\2\2D\1\0;";

// What the paths may lead to: worlds and images beside the model and elsewhere, a pipe and a folder.
std::string makeFiles() {
  for (const char* const folder : {"models", "search", "elsewhere"}) {
    fuzz::writeScratch(std::string(folder) + "/part.wrl", kWorld);
    fuzz::writeScratch(std::string(folder) + "/image.gif", {kImage, sizeof kImage - 1});
    fuzz::writeScratch(std::string(folder) + "/image.jpg", "no image");
  }
  const std::string folder = fuzz::scratchFolder();
  mkfifo((folder + "/models/pipe").c_str(), 0600);
  mkfifo((folder + "/search/pipe.jpg").c_str(), 0600);
  std::filesystem::create_directories(folder + "/models/folder.jpg");
  std::filesystem::create_directories(folder + "/out");
  return folder;
}

std::string nextLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
  return std::string(line);
}

// As the text of a JSON string: what cannot stand there is left out.
std::string quoted(const std::string& text) {
  std::string quote = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quote += '\\';
    if (static_cast<unsigned char>(c) >= 0x20) quote += c;
  }
  return quote + '"';
}

// `file` is the one that must be among them, or else the watch is blind.
void checkOpened(const std::string& file, const std::string& writable) {
  bool isSeen = false;
  for (const fuzz::Opened& opened : fuzz::endOpenWatch()) {
    isSeen = isSeen || opened.path == file;
    const std::string path = std::filesystem::path(opened.path).lexically_normal().string();
    if (opened.forWriting && !path.starts_with(writable)) fuzz::fail("opened for writing", opened.path);
    if (!opened.forWriting && !opened.isRegular) fuzz::fail("opened for reading, and is no regular file", opened.path);
  }
  if (!isSeen) fuzz::fail("not seen that it is opened", file);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string folder = makeFiles();
  std::string_view lines = fuzz::textOf(data, size);
  const std::string inlined = nextLine(lines);
  const std::string texture = nextLine(lines);
  const std::string exported = nextLine(lines);
  embedded::setMessageSink([](unsigned, std::string_view) {});
  embedded::loaderSettings().searchFolders = {folder + "/search"};
  embedded::loaderSettings().imageReader = &embedded::readTextureImage;

  const std::string world =
      fuzz::writeScratch("models/world.wrl", "#VRML V2.0 utf8\nInline { url \"" + inlined +
                                                 "\" }\nShape { geometry IndexedFaceSet { } "
                                                 "appearance Appearance { texture ImageTexture { url \"" +
                                                 texture + "\" } } }\n");
  embedded::StageError error;
  const auto stager = embedded::readStageDocument(
      R"({ "assembly": { "type": "root", "children": [ { "type": "mesh", "mapPath": )" + quoted(exported) +
          R"(, "geode": { "geometries": [ { "type": "sglTriangleSet", "numPrims": 1, "states": [],
          "coords": [ 0, 0, 0, 1, 0, 0, 1, 1, 0 ] } ] } } ] } })",
      folder + "/models", error);
  const auto& loader = module();

  fuzz::startOpenWatch();
  static_cast<void>(loader.loadModel(world));
  checkOpened(world, "nothing");
  if (!stager) return 0;
  fuzz::startOpenWatch();
  loader.writeModel(folder + "/out/world.wrl", stager.get());
  checkOpened(folder + "/out/world.wrl", folder + "/out/");
  return 0;
}
