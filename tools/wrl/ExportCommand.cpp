// wrl export: a stage document through the module's writer.

#include <VekKernel/CVekSceneManager.h>

#include <cerrno>
#include <iostream>
#include <system_error>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Descriptors.h"
#include "tools/wrl/Module.h"
#include "tools/wrl/StageInput.h"

namespace wrl {

namespace {

// Writes the stager's assembly through the module; why it failed, or "".
std::string writeWorld(const embedded::ModuleLoader& module, const std::string& path, CVekStager& stager) {
  if (stager.GetSceneManager()->GetAssyRoot() == nullptr) return "there is no assembly to write";
  if (!module.canWrite()) return "the module cannot write";
  const StandardOutputAside aside;
  // The module's promise: zero when the whole file is written.
  errno = 0;
  module.writeModel(path, &stager);
  return errno == 0 ? "" : std::generic_category().message(errno);
}

class ExportCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addPath(app, "STAGE.json", m_stage, "The stage document to read; - is standard input")->required();
    addPath(app, "OUT.wrl", m_output, "The file to write; textures go into the folder Textures beside it")->required();
  }

  ExitStatus run() override {
    const LoadedStage stage = readStage(m_stage);
    embedded::ModuleLoader module;
    if (stage.failed || !openModule(module)) return ExitStatus::failed;
    const std::string error = writeWorld(module, m_output, *stage.stager);
    if (error.empty()) return ExitStatus::done;
    std::cerr << m_output << ": error: " << error << '\n';
    return ExitStatus::failed;
  }

 private:
  std::string m_stage;
  std::string m_output;
};

}  // namespace

std::unique_ptr<Command> makeExportCommand() { return std::make_unique<ExportCommand>(); }

}  // namespace wrl
