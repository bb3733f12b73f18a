// assimp reads the file. It would choose the format itself, by the content too, so that it is given the one reader that
// the extension stands for and no other: nothing but the module reads worlds.

#include "embedded/meshes/MeshReader.h"

#include <assimp/BaseImporter.h>
#include <assimp/config.h>
#include <assimp/importerdesc.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <assimp/Importer.hpp>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>

#include "embedded/Paths.h"
#include "embedded/meshes/DeepStack.h"
#include "embedded/meshes/ReaderLog.h"
#include "embedded/meshes/SceneToAssembly.h"
#include "embedded/meshes/TrialRun.h"

namespace embedded {
namespace {

struct Format {
  std::string_view extension;
  UpAxis up;
  bool isLinear;  // colours are amounts of light
};

// COLLADA has y up here because assimp turns it there.
constexpr std::array kFormats = {
    Format{"glb", UpAxis::Y, true},  Format{"gltf", UpAxis::Y, true}, Format{"obj", UpAxis::Y, false},
    Format{"stl", UpAxis::Z, false}, Format{"ply", UpAxis::Z, false}, Format{"dae", UpAxis::Y, false},
};

const Format* formatOf(std::string_view extension) {
  const auto* found = std::find_if(kFormats.begin(), kFormats.end(),
                                   [extension](const Format& format) { return format.extension == extension; });
  return found == kFormats.end() ? nullptr : found;
}

std::string smallLetters(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return text;
}

// Takes every reader away that is not for this extension.
void keepReadersOf(std::string_view extension, Assimp::Importer& importer) {
  for (std::size_t i = importer.GetImporterCount(); i-- > 0;) {
    Assimp::BaseImporter* reader = importer.GetImporter(i);
    std::set<std::string> extensions;
    reader->GetExtensionList(extensions);
    if (extensions.contains(std::string(extension))) continue;
    if (importer.UnregisterLoader(reader) == aiReturn_SUCCESS) delete reader;
  }
}

// The text of an error without line ends.
std::string oneLine(const char* text) {
  std::string line(text);
  std::replace(line.begin(), line.end(), '\n', ' ');
  while (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

// assimp calls itself for each level of a file and for each node below a node; a level takes at least a byte there and
// a kilobyte of stack here.
std::size_t stackFor(const std::filesystem::path& file) {
  constexpr std::uintmax_t kLeast = 64U << 20U;
  constexpr std::uintmax_t kMost = std::uintmax_t{8} << 30U;
  std::error_code error;
  const std::uintmax_t bytes = std::filesystem::file_size(file, error);
  return static_cast<std::size_t>(error ? kLeast : std::min(kMost, kLeast + std::min(bytes, kMost) * 1024));
}

// Whether a PLY file's header ends. assimp would look for the end of one that does not for ever.
bool hasHeaderEnd(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("end_header")) return true;
  }
  return false;
}

const aiScene* readScene(Assimp::Importer& importer, const std::filesystem::path& file, const Format& format,
                         const MeshReadOptions& options) {
  keepReadersOf(format.extension, importer);
  importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE);
  importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_USE_COLLADA_NAMES, true);
  // Whoever says which axis is up speaks of the numbers in the file.
  importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_IGNORE_UP_DIRECTION, options.up.has_value());
  return importer.ReadFile(file.string(),
                           aiProcess_ValidateDataStructure | aiProcess_Triangulate | aiProcess_SortByPType);
}

std::unique_ptr<CVekAssyRoot> read(const std::filesystem::path& file, const Format& format,
                                   const MeshReadOptions& options, MeshNotes& notes, std::string& error) {
  std::error_code problem;
  if (format.extension == "ply" && std::filesystem::is_regular_file(file, problem) && !hasHeaderEnd(file)) {
    error = "the header of the PLY file has no end";
    return nullptr;
  }
  // Some damaged files bring assimp down, and all of the process with it.
  const auto trial = [&] {
    Assimp::Importer importer;
    readScene(importer, file, format, options);
  };
  if (!survivesTrial(trial)) {
    error = "the file is damaged in a way that its reader breaks down on";
    return nullptr;
  }
  const ReaderLog log;
  Assimp::Importer importer;
  const aiScene* scene = readScene(importer, file, format, options);
  if (scene == nullptr || scene->mRootNode == nullptr) {
    error = oneLine(importer.GetErrorString());
    if (error.empty()) error = "there is no scene in it";
    return nullptr;
  }
  for (const std::string& line : log.lines) notes.add(line);
  const UpAxis up = options.up.value_or(format.up);
  return assemblyOf(*scene, {file.string(), up, format.isLinear, options.textureFolder}, notes);
}

}  // namespace

bool isReadableMesh(std::string_view extension) { return formatOf(extension) != nullptr; }

std::unique_ptr<CVekAssyRoot> readMeshFile(const std::string& path, const MeshReadOptions& options, MeshNotes& notes,
                                           std::string& error) {
  const std::filesystem::path file(nativePath(path));
  const std::string extension = smallLetters(file.extension().string());
  const Format* format = extension.empty() ? nullptr : formatOf(extension.substr(1));
  if (format == nullptr) {
    error = "no mesh format has the extension \"" + extension + "\"";
    return nullptr;
  }
  std::unique_ptr<CVekAssyRoot> assembly;
  runOnDeepStack(stackFor(file), [&] { assembly = read(file, *format, options, notes, error); });
  return assembly;
}

}  // namespace embedded
