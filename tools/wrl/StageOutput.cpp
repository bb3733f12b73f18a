// The module's way of writing is the plain function that a host application calls.

#include "tools/wrl/StageOutput.h"

#include <cerrno>
#include <fstream>
#include <iostream>
#include <system_error>

#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "tools/wrl/Descriptors.h"
#include "tools/wrl/Module.h"
#include "tools/wrl/Output.h"

namespace wrl {

namespace {

std::string folderOf(const std::string& path) {
  const std::size_t slash = embedded::lastSlash(path);
  return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

}  // namespace

std::string writeWorld(const WriteJob& job) {
  if (job.stager.GetSceneManager()->GetAssyRoot() == nullptr) return "there is no assembly to write";
  embedded::ModuleLoader module;
  if (!openModule(module)) return "there is no module to write it";
  if (!module.canWrite()) return "the module cannot write";
  const StandardOutputAside aside;
  // The module's promise: zero when the whole file is written.
  errno = 0;
  module.writeModel(job.path, &job.stager);
  return errno == 0 ? "" : std::generic_category().message(errno);
}

std::string writeStage(const WriteJob& job) {
  Output output(job.path);
  embedded::writeStageDocument(output.stream(), job.stager);
  return output.finish() ? "" : output.reason();
}

bool deliverStage(const WriterFormat& format, const std::string& path, CVekStager& stager) {
  const std::string error = format.write({stager, path, folderOf(path)});
  if (!error.empty()) std::cerr << path << ": error: " << error << '\n';
  return error.empty();
}

}  // namespace wrl
