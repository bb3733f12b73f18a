// wrl convert: from any format that is read to any that is written, by the extensions of the two names, or of many
// files to one format.

#include <filesystem>
#include <iostream>
#include <set>

#include "embedded/JsonWriter.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/InputFiles.h"
#include "tools/wrl/Listing.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/StageOutput.h"

namespace wrl {

namespace {

// A file's name with another extension; that of a compressed world has two.
std::string withExtension(const std::string& file, std::string_view extension) {
  std::filesystem::path path(file);
  if (path.extension() == ".gz") path.replace_extension();
  return path.replace_extension(extension).string();
}

class ConvertCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addPath(app, "IN", m_input, "The file to read: " + knownReaders() + "; - is a world on standard input")->required();
    addPath(app, "OUT", m_output, "The file to write: " + knownWriters());
    addMore(app, "MORE", m_more, "With --to, OUT and these are files to read, too");
    addPath(app, "--to", m_extension,
            "Read every file, and every world in a folder, and write each beside itself with this extension")
        ->type_name("EXT");
    addListing(app, m_listing);
    addHostOptions(app, m_options, TextureDefault::read);
    addUpAxis(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl convert garden.wrl clean.wrl", "a world through import and export"},
        {"wrl convert garden.wrl garden.json", "a world as a stage document"},
        {"wrl convert -q --to glb worlds", "every world in a folder as binary glTF, beside itself"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const std::string error = m_extension.empty() ? usageError(m_input, m_output) : batchError();
    if (!error.empty()) {
      std::cerr << error << '\n';
      return ExitStatus::usage;
    }
    if (m_extension.empty()) return convert(m_input, m_output) ? ExitStatus::done : ExitStatus::failed;
    return convertAll();
  }

 private:
  [[nodiscard]] std::string usageError(const std::string& in, const std::string& out) const {
    if (out.empty()) return "OUT is required\nRun with --help for more information.";
    if (!m_more.empty()) return m_more.front() + ": error: more than two files want --to";
    return fileError(in, out);
  }

  [[nodiscard]] std::string fileError(const std::string& in, const std::string& out) const {
    if (readerOf(in) == nullptr) return in + ": error: no format that is read; known are " + knownReaders();
    if (writerOf(out) == nullptr) return out + ": error: no format that is written; known are " + knownWriters();
    return optionError(in, m_options);
  }

  [[nodiscard]] std::string batchError() const {
    if (writerOf(withExtension("x", m_extension)) != nullptr) return "";
    return "--to: error: no format that is written; known are " + knownWriters();
  }

  bool convert(const std::string& in, const std::string& out) {
    const WriterFormat* const writer = writerOf(out);
    if (writer->namesImages) m_options.unpackFolder = unpackFolderBeside(out);
    const LoadedStage stage = readerOf(in)->read(in, m_options);
    return !stage.failed && deliverStage(*writer, out, *stage.stager);
  }

  ExitStatus convertAll() {
    std::vector<std::string> arguments = {m_input};
    if (!m_output.empty()) arguments.push_back(m_output);
    arguments.insert(arguments.end(), m_more.begin(), m_more.end());
    const InputFiles input = findInputFiles(arguments);
    m_sources.insert(input.files.begin(), input.files.end());
    Output output("");
    Tally tally;
    for (const std::string& file : input.files) {
      const std::string target = withExtension(file, m_extension);
      const bool isDone = convertOne(file, target);
      ++(isDone ? tally.ok : tally.failed);
      if (!isDone || !m_options.quiet || m_listing.json) writeConverted(output.stream(), file, isDone ? target : "");
      output.stream().flush();
    }
    if (m_listing.summary || input.hasFolder) writeTally(output.stream(), tally, m_listing);
    return output.finishOrReport() && tally.failed == 0 ? ExitStatus::done : ExitStatus::failed;
  }

  // One of several files, none of which may take the place of another.
  bool convertOne(const std::string& file, const std::string& target) {
    std::string error = isStandardInput(file) ? "standard input has no name to be written under" : "";
    if (error.empty()) error = fileError(file, target);
    if (error.empty() && m_sources.contains(target)) error = target + ": error: is one of the files to read";
    if (error.empty() && !m_targets.insert(target).second) error = target + ": error: written before, for another file";
    if (!error.empty()) std::cerr << error << '\n';
    return error.empty() && convert(file, target);
  }

  void writeConverted(std::ostream& out, const std::string& file, const std::string& target) const {
    if (!m_listing.json) {
      out << file << (target.empty() ? ": failed" : ": " + target) << '\n';
      return;
    }
    {
      embedded::JsonWriter json(out);
      json.beginObject();
      json.key("file");
      json.text(file);
      json.key("status");
      json.text(target.empty() ? "failed" : "ok");
      if (!target.empty()) json.key("output"), json.text(target);
      json.endObject();
    }
    out << '\n';
  }

  std::string m_input;
  std::string m_output;
  std::vector<std::string> m_more;
  std::string m_extension;
  std::set<std::string> m_sources;  // what is to be read
  std::set<std::string> m_targets;  // what has been written
  ListingOptions m_listing;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeConvertCommand() { return std::make_unique<ConvertCommand>(); }

}  // namespace wrl
