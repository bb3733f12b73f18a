// wrl tokens: how the scanner sees a file.

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Echo.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/Output.h"
#include "vrml/reader/TokenLister.h"

namespace wrl {

namespace {

class TokensCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFile(app, m_file);
    addOutput(app, m_output);
    app.add_flag("--wide", m_wide, "List by the wide rules of the second reading");
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl tokens garden.wrl", "the tokens, one a line"},
        {"wrl tokens --wide garden.wrl", "the same by the rules of the second reading"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const std::optional<std::string> path = inputPathOrReport(m_file);
    if (!path) return ExitStatus::failed;
    Output output(m_output);
    const EchoToStandardError echo;
    // An input that cannot be opened leaves no empty result behind.
    if (!vrml::listTokens(*path, m_wide, output.stream())) return ExitStatus::failed;
    return output.finishOrReport() ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_file;
  std::string m_output;
  bool m_wide = false;
};

}  // namespace

std::unique_ptr<Command> makeTokensCommand() { return std::make_unique<TokensCommand>(); }

}  // namespace wrl
