// The host's settings are the module's; of all options only those about the file's axes and images count here.

#include "tools/wrl/MeshInput.h"

#include <iostream>
#include <utility>

#include "embedded/AssemblyBuilder.h"
#include "embedded/meshes/MeshReader.h"
#include "tools/wrl/Descriptors.h"
#include "tools/wrl/TemporaryFolder.h"

namespace wrl {

LoadedStage readMesh(const std::string& file, const HostOptions& options) {
  const auto unpacked = options.unpackFolder ? nullptr : std::make_shared<const TemporaryFolder>();
  const std::string folder = options.unpackFolder ? *options.unpackFolder : unpacked->path();
  embedded::MeshNotes notes;
  std::string error;
  std::unique_ptr<CVekAssyRoot> assembly;
  {
    const StandardOutputAside aside;
    assembly = embedded::readMeshFile(file, {options.up, folder}, notes, error);
  }
  if (!options.quiet) {
    for (const std::string& note : notes.all()) std::cerr << file << ": note: " << note << '\n';
  }
  if (assembly == nullptr) {
    std::cerr << file << ": error: " << error << '\n';
    return {nullptr, true, nullptr};
  }
  return {embedded::makeStager(std::move(assembly)), false, unpacked, notes.all()};
}

}  // namespace wrl
