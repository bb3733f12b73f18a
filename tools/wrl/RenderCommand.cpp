// wrl render: a picture of any readable input. A world is shown as the module gave it, with its levels of detail and
// its billboards; everything else as the assembly that the host holds of it.

#include <iostream>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/PictureOutput.h"
#include "tools/wrl/SceneLoad.h"
#include "tools/wrl/StageInput.h"

namespace wrl {

namespace {

class RenderCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFile(app, m_file);
    addPath(app, "OUT.png", m_output, "The picture to write; - is standard output")->required();
    addPictureOptions(app, m_picture);
    addHostOptions(app, m_host, TextureDefault::read);
    addUpAxis(app, m_host);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl render garden.wrl garden.png", "a picture of all of it"},
        {"wrl render --size 320x240 --view top garden.wrl garden.png", "a small one from above"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const std::string error = optionError(m_file, m_host);
    if (!error.empty()) {
      std::cerr << error << '\n';
      return ExitStatus::usage;
    }
    const ReaderFormat* const format = readerOf(m_file);
    return format == nullptr || format->read == readWorld ? renderWorld() : renderStage();
  }

 private:
  ExitStatus renderWorld() const {
    const std::optional<LoadedScene> loaded = loadScene(m_file, m_host);
    if (!loaded || loaded->failed) return ExitStatus::failed;
    PictureSource source;
    source.name = m_file;
    source.subject.scene = loaded->database->GetSglRoot();
    source.subject.sceneUp = m_host.up.value_or(embedded::UpAxis::Y);
    return deliverPicture(source, m_picture, m_output);
  }

  ExitStatus renderStage() const {
    const LoadedStage loaded = loadStage(m_file, m_host);
    if (loaded.stager == nullptr || loaded.failed) return ExitStatus::failed;
    PictureSource source;
    source.name = m_file;
    source.subject.assembly = loaded.stager->GetSceneManager()->GetAssyRoot();
    source.stager = loaded.stager.get();
    source.readsImages = m_host.textures;
    return deliverPicture(source, m_picture, m_output);
  }

  std::string m_file;
  std::string m_output;
  PictureOptions m_picture;
  HostOptions m_host;
};

}  // namespace

std::unique_ptr<Command> makeRenderCommand() { return std::make_unique<RenderCommand>(); }

}  // namespace wrl
