// wrl manual: the manual page, for the build to install and for whoever has no installed one.

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Manual.h"
#include "tools/wrl/Output.h"

namespace wrl {

namespace {

class ManualCommand : public Command {
 public:
  void addOptions(CLI::App& app) override { addOutput(app, m_output); }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {{"wrl manual | man -l -", "the page on the screen"}};
    return kExamples;
  }

  ExitStatus run() override {
    Output output(m_output);
    writeManual(output.stream(), describeCommands());
    return output.finishOrReport() ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_output;
};

}  // namespace

std::unique_ptr<Command> makeManualCommand() { return std::make_unique<ManualCommand>(); }

}  // namespace wrl
