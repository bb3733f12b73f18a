// wrl stage: any readable input as a stage document.

#include <iostream>

#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/StageInput.h"
#include "tools/wrl/StageOutput.h"

namespace wrl {

namespace {

class StageCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFile(app, m_file);
    addOutput(app, m_output);
    addHostOptions(app, m_options);
    addUpAxis(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl stage garden.wrl -o garden.json", "a stage document to look at, change and export"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const std::string error = optionError(m_file, m_options);
    if (!error.empty()) {
      std::cerr << error << '\n';
      return ExitStatus::usage;
    }
    m_options.unpackFolder = unpackFolderBeside(m_output);
    const LoadedStage stage = loadStage(m_file, m_options);
    if (stage.stager == nullptr) return ExitStatus::failed;
    Output output(m_output);
    embedded::writeStageDocument(output.stream(), *stage.stager, embedded::folderOf(m_output));
    const bool delivered = output.finishOrReport();
    return delivered && !stage.failed ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_file;
  std::string m_output;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeStageCommand() { return std::make_unique<StageCommand>(); }

}  // namespace wrl
