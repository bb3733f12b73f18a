// Every file is made in memory and goes where the job says; further files, in their folders, beside it.

#include "tools/wrl/MeshOutput.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <vector>

#include "embedded/Paths.h"
#include "embedded/meshes/FlatWriter.h"
#include "embedded/meshes/GlbWriter.h"
#include "tools/wrl/Output.h"

namespace wrl {

namespace {

const CVekAssyRoot* assemblyOf(const WriteJob& job) { return job.stager.GetSceneManager()->GetAssyRoot(); }

// Writes one file, and makes the folder that it is in; why it could not, or "".
std::string writeFile(const std::string& path, const std::string& bytes) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  std::error_code error;
  if (!folder.empty()) std::filesystem::create_directories(folder, error);
  Output output(path);
  output.stream().write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return output.finish() ? "" : output.reason();
}

std::string writeFlat(const WriteJob& job, std::string_view extension) {
  if (assemblyOf(job) == nullptr) return kNoAssembly;
  std::vector<embedded::MeshFile> files;
  embedded::MeshNotes notes;
  std::string error;
  const std::string name(embedded::fileNameOf(job.path));
  if (!embedded::writeFlatMesh(*assemblyOf(job), extension, name, files, notes, error)) return error;
  for (const embedded::MeshFile& file : files) {
    // The first one is the job's own, which need not be a regular file.
    const bool isOwn = &file == files.data();
    error = writeFile(isOwn ? job.path : embedded::folderOf(job.path) + file.name, file.bytes);
    if (!error.empty()) return isOwn ? error : file.name + ": " + error;
  }
  reportNotes(notes, job);
  return "";
}

}  // namespace

void reportNotes(const embedded::MeshNotes& notes, const WriteJob& job) {
  for (const std::string& note : notes.all()) {
    std::cerr << job.folder << embedded::fileNameOf(job.path) << ": note: " << note << '\n';
  }
}

std::string writeGlb(const WriteJob& job) {
  if (assemblyOf(job) == nullptr) return kNoAssembly;
  Output output(job.path);
  embedded::MeshNotes notes;
  std::string error;
  if (!embedded::writeGlb(*assemblyOf(job), output.stream(), notes, error)) return error;
  if (!output.finish()) return output.reason();
  reportNotes(notes, job);
  return "";
}

std::string writeObj(const WriteJob& job) { return writeFlat(job, "obj"); }

std::string writeStl(const WriteJob& job) { return writeFlat(job, "stl"); }

std::string writePly(const WriteJob& job) { return writeFlat(job, "ply"); }

}  // namespace wrl
