// wrl export: a stage document through the module's writer.

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/StageInput.h"
#include "tools/wrl/StageOutput.h"

namespace wrl {

namespace {

class ExportCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addPath(app, "STAGE.json", m_stage, "The stage document to read; - is standard input")->required();
    addPath(app, "OUT.wrl", m_output,
            "The file to write; textures go into the folder Textures beside it; - is standard output")
        ->required();
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl export garden.json garden.wrl", "a stage document as a world"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const LoadedStage stage = readStage(m_stage);
    if (stage.failed) return ExitStatus::failed;
    return deliverStage(worldFormat(), m_output, *stage.stager) ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_stage;
  std::string m_output;
};

}  // namespace

std::unique_ptr<Command> makeExportCommand() { return std::make_unique<ExportCommand>(); }

}  // namespace wrl
