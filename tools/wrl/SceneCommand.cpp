// wrl scene: the scene graph that the module returned, and what it said meanwhile, as one JSON document.

#include "embedded/SceneDocument.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/SceneLoad.h"

namespace wrl {

namespace {

class SceneCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFile(app, m_file);
    addOutput(app, m_output);
    addHostOptions(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl scene garden.wrl -o scene.json", "the host's scene graph and the messages of the load"},
        {"wrl scene --textures --search images garden.wrl", "with images from the folder images"},
        {"wrl scene --veto onParse:Shape garden.wrl", "as when the host's hook refuses every shape"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const std::optional<LoadedScene> loaded = loadScene(m_file, m_options);
    if (!loaded) return ExitStatus::failed;
    Output output(m_output);
    embedded::writeSceneDocument(output.stream(), loaded->database->GetSglRoot(), loaded->messages);
    const bool delivered = output.finishOrReport();
    return delivered && !loaded->failed ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_file;
  std::string m_output;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeSceneCommand() { return std::make_unique<SceneCommand>(); }

}  // namespace wrl
