// wrl render: a picture of any readable input. A world is shown as the module gave it, with its levels of detail and
// its billboards; everything else as the assembly that the host holds of it.

#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/PictureOutput.h"
#include "tools/wrl/SceneLoad.h"
#include "tools/wrl/StageInput.h"
#include "tools/wrl/WritingCommand.h"

namespace wrl {

namespace {

class RenderCommand : public WritingCommand {
 public:
  void addOptions(CLI::App& app) override {
    addWriting(app, {"FILE", "The file to read; - is standard input", "OUT.png",
                     "The picture to write; - is standard output"});
    addPictureOptions(app, m_picture);
    addHostOptions(app, m_options, TextureDefault::read);
    addUpAxis(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl render garden.wrl garden.png", "a picture of all of it"},
        {"wrl render --size 320x240 --view top garden.wrl garden.png", "a small one from above"},
        {"wrl render -q --size 320x240 --to png worlds", "one of every world in a folder, beside it"},
    };
    return kExamples;
  }

 protected:
  [[nodiscard]] std::string inputError(const std::string& file) const override { return optionError(file, m_options); }

  // A name that is of no format is taken as it comes; that of a model is rather a second file to read.
  [[nodiscard]] std::string outputError(const std::string& file) const override {
    const std::string name = nameForFormat(file);
    const WriterFormat* const writer = writerOf(name);
    const bool isPicture = writer != nullptr && writer->write == writePicture;
    const bool isOfNoFormat = writer == nullptr && readerOf(name) == nullptr;
    if (isPicture || (isOfNoFormat && !writesMany())) return "";
    return file + ": error: a picture is written as .png; --to png takes several files to read";
  }

  ExitStatus write(const std::string& input, const std::string& output) override {
    const ReaderFormat* const format = readerOf(input);
    return format == nullptr || format->read == readWorld ? renderWorld(input, output) : renderStage(input, output);
  }

 private:
  [[nodiscard]] ExitStatus renderWorld(const std::string& input, const std::string& output) const {
    const std::optional<LoadedScene> loaded = loadScene(input, m_options);
    if (!loaded || loaded->failed) return ExitStatus::failed;
    PictureSource source;
    source.name = input;
    source.subject.scene = loaded->database->GetSglRoot();
    source.subject.sceneUp = m_options.up.value_or(embedded::UpAxis::Y);
    return deliverPicture(source, m_picture, output);
  }

  [[nodiscard]] ExitStatus renderStage(const std::string& input, const std::string& output) const {
    const LoadedStage loaded = loadStage(input, m_options);
    if (loaded.stager == nullptr || loaded.failed) return ExitStatus::failed;
    PictureSource source;
    source.name = input;
    source.subject.assembly = loaded.stager->GetSceneManager()->GetAssyRoot();
    source.stager = loaded.stager.get();
    source.readsImages = m_options.textures;
    return deliverPicture(source, m_picture, output);
  }

  PictureOptions m_picture;
};

}  // namespace

std::unique_ptr<Command> makeRenderCommand() { return std::make_unique<RenderCommand>(); }

}  // namespace wrl
