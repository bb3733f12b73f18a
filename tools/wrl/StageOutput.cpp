// The module's way of writing is the plain function that a host application calls.

#include "tools/wrl/StageOutput.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <string_view>
#include <system_error>
#include <vector>

#include "embedded/FileErrors.h"
#include "embedded/FiniteNumbers.h"
#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "embedded/images/ImageFile.h"
#include "tools/wrl/Delivery.h"
#include "tools/wrl/Descriptors.h"
#include "tools/wrl/MeshOutput.h"
#include "tools/wrl/Module.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/PictureOutput.h"
#include "tools/wrl/TemporaryFolder.h"

namespace wrl {

namespace {

namespace fs = std::filesystem;

using embedded::folderOf;

constexpr const char* kTextures = "Textures";
constexpr const char* kStandardOutput = "standard output";

// The module copies a texture that is a JPEG file only where there is no file of that name yet. So the names of the
// files that stand at the output's place must be there where the module writes: as empty files, which go again unless
// the module wrote them.
class PlacedTextures {
 public:
  explicit PlacedTextures(const WriteJob& job) {
    const std::string folder = folderOf(job.path);
    if (folder == job.folder) return;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(job.folder + kTextures, error)) {
      if (!entry.is_regular_file(error)) continue;
      fs::create_directory(folder + kTextures, error);
      m_names.push_back(folder + kTextures + "/" + entry.path().filename().string());
      std::ofstream(m_names.back(), std::ios::binary);
    }
  }
  ~PlacedTextures() {
    std::error_code error;
    for (const std::string& name : m_names) {
      if (fs::is_empty(name, error)) fs::remove(name, error);
    }
  }
  PlacedTextures(const PlacedTextures&) = delete;
  PlacedTextures& operator=(const PlacedTextures&) = delete;

 private:
  std::vector<std::string> m_names;
};

// The first file beside the output that could not be written, and why; "" when there is none.
std::string writingError(const embedded::FileErrorLog& log, const std::string& folder) {
  for (const embedded::FileError& error : log.errors()) {
    if (!error.isWriting) continue;
    const bool isBeside = error.path.starts_with(folder);
    return error.path.substr(isBeside ? folder.size() : 0) + ": " + error.reason;
  }
  return "";
}

// Names each source once that is missing from what was written.
void reportMissing(const embedded::FileErrorLog& log, const std::string& path) {
  std::set<std::string_view> named;
  for (const embedded::FileError& error : log.errors()) {
    if (error.isWriting || !named.insert(error.path).second) continue;
    std::cerr << path << ": note: texture " << error.path << ' ' << error.reason << '\n';
  }
}

// A file for standard output, in a folder of its own until it is whole.
class StandardOutputFile {
 public:
  explicit StandardOutputFile(std::string_view extension)
      : m_path(m_folder.path() + "/output." + std::string(extension)) {}

  [[nodiscard]] std::string error() const { return m_folder.path().empty() ? "there is no temporary folder" : ""; }
  [[nodiscard]] const std::string& path() const { return m_path; }

  // Copies it; why that failed, or "".
  [[nodiscard]] std::string send() const {
    Output output("");
    std::ifstream in(m_path, std::ios::binary);
    if (in.peek() != std::ifstream::traits_type::eof()) output.stream() << in.rdbuf();
    return output.finish() ? "" : output.reason();
  }

  void reportTheRest() const {
    std::set<std::string> rest;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_folder.path(), error)) {
      if (!entry.is_directory(error) && entry.path() != m_path) {
        rest.insert(entry.path().string().substr(m_folder.path().size() + 1));
      }
    }
    for (const std::string& name : rest) std::cerr << kStandardOutput << ": note: " << name << " is left out\n";
  }

 private:
  TemporaryFolder m_folder;
  std::string m_path;
};

bool deliverToStandardOutput(const WriterFormat& format, CVekStager& stager, const JobSource* source) {
  const StandardOutputFile file(format.extension);
  const embedded::FileErrorLog log;
  std::string error = file.error();
  if (error.empty()) error = format.write({stager, file.path(), "", source});
  if (error.empty()) error = writingError(log, folderOf(file.path()));
  if (error.empty()) error = file.send();
  if (error.empty()) {
    reportMissing(log, kStandardOutput);
    file.reportTheRest();
  } else {
    std::cerr << kStandardOutput << ": error: " << error << '\n';
  }
  return error.empty();
}

}  // namespace

std::string writeWorld(const WriteJob& job) {
  if (job.stager.GetSceneManager()->GetAssyRoot() == nullptr) return kNoAssembly;
  embedded::ModuleLoader module;
  if (!openModule(module)) return "there is no module to write it";
  if (!module.canWrite()) return "the module cannot write";
  const PlacedTextures placed(job);
  const StandardOutputAside aside;
  // The module's promise: zero when the whole file is written.
  errno = 0;
  module.writeModel(job.path, &job.stager);
  if (errno != 0) return std::generic_category().message(errno);
  if (!embedded::hasOnlyFiniteNumbers(job.stager)) {
    std::cerr << job.folder << embedded::fileNameOf(job.path) << ": note: holds numbers that no reader takes\n";
  }
  return "";
}

std::string writeStage(const WriteJob& job) {
  Output output(job.path);
  embedded::writeStageDocument(output.stream(), job.stager, job.folder);
  return output.finish() ? "" : output.reason();
}

std::string unpackFolderBeside(const std::string& path) {
  return path.empty() || path == "-" ? "" : folderOf(path) + kTextures;
}

bool deliverStage(const WriterFormat& format, const std::string& path, CVekStager& stager, const JobSource* source) {
  if (path == "-") return deliverToStandardOutput(format, stager, source);
  Delivery delivery(path);
  const embedded::FileErrorLog log;
  std::string error = delivery.error();
  if (error.empty()) error = format.write({stager, delivery.path(), delivery.folder(), source});
  if (error.empty()) error = writingError(log, folderOf(delivery.path()));
  if (error.empty() && embedded::wasReadAsTexture(path)) error = kImageOfModel;
  if (error.empty()) error = delivery.finish();
  if (error.empty()) {
    reportMissing(log, path);
    for (const std::string& name : delivery.replaced()) {
      std::cerr << path << ": note: " << name << " takes the place of another file\n";
    }
  } else {
    std::cerr << path << ": error: " << error << '\n';
  }
  return error.empty();
}

}  // namespace wrl
