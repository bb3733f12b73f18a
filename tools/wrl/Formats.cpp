// Two tables and a search. There are few rows, and one look-up a run.

#include "tools/wrl/Formats.h"

#include <algorithm>
#include <array>

#include "embedded/Paths.h"
#include "embedded/pages/PageTemplate.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/MeshInput.h"
#include "tools/wrl/MeshOutput.h"
#include "tools/wrl/PageOutput.h"
#include "tools/wrl/PictureOutput.h"
#include "tools/wrl/StageOutput.h"

namespace wrl {

namespace {

constexpr std::string_view kWorld = "wrl";

constexpr std::array kReaders = {
    ReaderFormat{kWorld, "VRML97 world", readWorld},
    ReaderFormat{"json", "stage document", readStageByOptions, false},
    ReaderFormat{"glb", "binary glTF model", readMesh},
    ReaderFormat{"gltf", "glTF model", readMesh},
    ReaderFormat{"obj", "OBJ model", readMesh},
    ReaderFormat{"stl", "STL model", readMesh},
    ReaderFormat{"ply", "PLY model", readMesh},
    ReaderFormat{"dae", "COLLADA model", readMesh},
    ReaderFormat{"wrz", "compressed VRML97 world", readWorld},
    ReaderFormat{"gz", "compressed VRML97 world", readWorld},
};

// HTML pages are the last row, which a build without their viewer leaves out.
constexpr std::array kWriters = {
    WriterFormat{kWorld, "VRML97 world", writeWorld},   WriterFormat{"json", "stage document", writeStage, true},
    WriterFormat{"glb", "binary glTF model", writeGlb}, WriterFormat{"obj", "OBJ model", writeObj},
    WriterFormat{"stl", "STL model", writeStl},         WriterFormat{"ply", "PLY model", writePly},
    WriterFormat{"png", "picture", writePicture},       WriterFormat{"html", "HTML page with the model", writePage},
};

// What stands behind the last full stop of a file's name, in small letters.
std::string extensionOf(const std::string& file) {
  const std::string_view name = embedded::fileNameOf(file);
  const std::size_t stop = name.rfind('.');
  std::string extension(stop == std::string_view::npos ? "" : name.substr(stop + 1));
  for (char& letter : extension) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return extension;
}

template <class Format>
const Format* find(std::span<const Format> table, std::string_view extension) {
  const auto row = std::find_if(table.begin(), table.end(), [&](const auto& r) { return r.extension == extension; });
  return row == table.end() ? nullptr : &*row;
}

template <class Format>
std::string listed(std::span<const Format> table) {
  std::string text;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (i > 0) text += i + 1 == table.size() ? " and " : ", ";
    text.append(".").append(table[i].extension);
  }
  return text;
}

}  // namespace

const ReaderFormat* readerOf(const std::string& file) {
  return isStandardInput(file) ? find(readerFormats(), kWorld) : find(readerFormats(), extensionOf(file));
}

const WriterFormat* writerOf(const std::string& file) { return find(writerFormats(), extensionOf(file)); }

std::span<const ReaderFormat> readerFormats() { return kReaders; }

std::span<const WriterFormat> writerFormats() {
  static const bool kHasPages = !embedded::pageTemplate().empty();
  return std::span(kWriters).first(kHasPages ? kWriters.size() : kWriters.size() - 1);
}

std::string optionError(const std::string& file, const HostOptions& options) {
  const ReaderFormat* const format = readerOf(file);
  if (format == nullptr || format->hasUpAxis || !options.up) return "";
  return "--up: error: a " + std::string(format->name) + " has its own axes";
}

const WriterFormat& worldFormat() { return *find(writerFormats(), kWorld); }

std::string knownReaders() { return listed(readerFormats()); }

std::string knownWriters() { return listed(writerFormats()); }

}  // namespace wrl
