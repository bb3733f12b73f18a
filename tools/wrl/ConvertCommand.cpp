// wrl convert: from any format that is read to any that is written, by the extensions of the two names.

#include <iostream>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/StageOutput.h"

namespace wrl {

namespace {

class ConvertCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addPath(app, "IN", m_input, "The file to read: " + knownReaders() + "; - is a world on standard input")->required();
    addPath(app, "OUT", m_output, "The file to write: " + knownWriters())->required();
    addHostOptions(app, m_options, TextureDefault::read);
    addUpAxis(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl convert garden.wrl clean.wrl", "a world through import and export"},
        {"wrl convert garden.wrl garden.json", "a world as a stage document"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const ReaderFormat* const reader = readerOf(m_input);
    const WriterFormat* const writer = writerOf(m_output);
    const std::string error = usageError(reader, writer);
    if (!error.empty()) {
      std::cerr << error << '\n';
      return ExitStatus::usage;
    }
    if (writer->namesImages) m_options.unpackFolder = unpackFolderBeside(m_output);
    const LoadedStage stage = reader->read(m_input, m_options);
    if (stage.failed) return ExitStatus::failed;
    return deliverStage(*writer, m_output, *stage.stager) ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  [[nodiscard]] std::string usageError(const ReaderFormat* reader, const WriterFormat* writer) const {
    if (reader == nullptr) return m_input + ": error: no format that is read; known are " + knownReaders();
    if (writer == nullptr) return m_output + ": error: no format that is written; known are " + knownWriters();
    return optionError(m_input, m_options);
  }

  std::string m_input;
  std::string m_output;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeConvertCommand() { return std::make_unique<ConvertCommand>(); }

}  // namespace wrl
