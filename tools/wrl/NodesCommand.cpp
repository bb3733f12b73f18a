// wrl nodes: the parsed tree as VRML97 text again.

#include <iostream>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Echo.h"
#include "tools/wrl/FileKind.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/Output.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

namespace {

class NodesCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFile(app, m_file);
    addOutput(app, m_output);
    app.add_flag("--no-resolve", m_keepReferences, "Skip the pass that resolves references and loads Inline files");
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl nodes garden.wrl -o clean.wrl", "the world, written anew"},
        {"wrl nodes --no-resolve garden.wrl", "with its USE references kept"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const std::optional<std::string> path = inputPathOrReport(m_file);
    if (!path) return ExitStatus::failed;
    vrml::SceneGraph scene;
    {
      const EchoToStandardError echo;
      readFile(scene, *path, !m_keepReferences);
    }
    if (isUnopened(scene)) return ExitStatus::failed;
    if (!scene.succeeded()) std::cerr << errorLine(m_file, scene) << '\n' << foreignKindLine(m_file, *path);
    Output output(m_output);
    scene.write(output.stream());
    const bool delivered = output.finishOrReport();
    return delivered && scene.succeeded() ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_file;
  std::string m_output;
  bool m_keepReferences = false;
};

}  // namespace

std::unique_ptr<Command> makeNodesCommand() { return std::make_unique<NodesCommand>(); }

}  // namespace wrl
