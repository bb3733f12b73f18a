// wrl completion: the script for one shell.

#include <array>
#include <iostream>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Completion.h"
#include "tools/wrl/Output.h"

namespace wrl {

namespace {

struct Shell {
  const char* name;
  void (*write)(std::ostream& out, std::span<const CommandUsage> commands);
};

constexpr std::array kShells = {
    Shell{"bash", writeBashCompletion},
    Shell{"zsh", writeZshCompletion},
    Shell{"fish", writeFishCompletion},
};

class CompletionCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addPath(app, "SHELL", m_shell, "bash, zsh or fish")->required();
    addOutput(app, m_output);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"source <(wrl completion bash)", "in this bash, at once"},
        {"wrl completion fish -o ~/.config/fish/completions/wrl.fish", "in every fish from now on"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    for (const Shell& shell : kShells) {
      if (m_shell == shell.name) return write(shell);
    }
    std::cerr << "SHELL: error: bash, zsh or fish is expected, found " << m_shell << '\n';
    return ExitStatus::usage;
  }

 private:
  [[nodiscard]] ExitStatus write(const Shell& shell) const {
    Output output(m_output);
    shell.write(output.stream(), describeCommands());
    return output.finishOrReport() ? ExitStatus::done : ExitStatus::failed;
  }

  std::string m_shell;
  std::string m_output;
};

}  // namespace

std::unique_ptr<Command> makeCompletionCommand() { return std::make_unique<CompletionCommand>(); }

}  // namespace wrl
