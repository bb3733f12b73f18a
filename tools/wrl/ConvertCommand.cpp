// wrl convert: from any format that is read to any that is written, by the extensions of the two names, or of many
// files to one format.

#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/StageOutput.h"
#include "tools/wrl/WritingCommand.h"

namespace wrl {

namespace {

class ConvertCommand : public WritingCommand {
 public:
  void addOptions(CLI::App& app) override {
    addWriting(app, {"IN", "The file to read: " + knownReaders() + "; - is a world on standard input", "OUT",
                     "The file to write: " + knownWriters() + "; - is a world on standard output"});
    addHostOptions(app, m_options, TextureDefault::read);
    addUpAxis(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl convert garden.wrl clean.wrl", "a world through import and export"},
        {"wrl convert garden.wrl garden.json", "a world as a stage document"},
        {"wrl convert garden.wrl garden.html", "a page that shows it in any browser, with no network"},
        {"wrl convert -q --to glb worlds", "every world in a folder as binary glTF, beside itself"},
    };
    return kExamples;
  }

 protected:
  [[nodiscard]] std::string inputError(const std::string& file) const override {
    if (readerOf(file) == nullptr) return file + ": error: no format that is read; known are " + knownReaders();
    return optionError(file, m_options);
  }

  [[nodiscard]] std::string outputError(const std::string& file) const override {
    if (writerFor(file) != nullptr) return "";
    return file + ": error: no format that is written; known are " + knownWriters();
  }

  ExitStatus write(const std::string& input, const std::string& output) override {
    const WriterFormat* const writer = writerFor(output);
    if (writer->namesImages) m_options.unpackFolder = unpackFolderBeside(output);
    const LoadedStage stage = readerOf(input)->read(input, m_options);
    const JobSource source{input, stage.messages, m_options};
    const bool isDone = !stage.failed && deliverStage(*writer, output, *stage.stager, &source);
    return isDone ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  // What goes to standard output is a world unless --to says otherwise, as what comes from standard input.
  [[nodiscard]] const WriterFormat* writerFor(const std::string& output) const {
    const std::string name = nameForFormat(output);
    return name.empty() ? &worldFormat() : writerOf(name);
  }
};

}  // namespace

std::unique_ptr<Command> makeConvertCommand() { return std::make_unique<ConvertCommand>(); }

}  // namespace wrl
