// wrl check: whether files can be read, and what of them an import leaves out.

#include <VekSGdb/sglDataLoader.h>

#include <iostream>

#include "embedded/images/ImageFile.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Echo.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/HostSetUp.h"
#include "tools/wrl/ImportAudit.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/Output.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

namespace {

std::string withLine(const vrml::Note& note) {
  std::string text = vrml::noteText(note);
  const std::string place = note.file.empty() ? "" : " of " + note.file;
  if (note.line > 0) text += " (line " + std::to_string(note.line) + place + ")";
  return text;
}

// Whether the host can read the file of a texture that a model in that folder names, perhaps in a file that it inlines.
// Finds it as the import does.
bool readsImage(const std::string& url, const std::string& folder, const std::string& inlinedFile) {
  std::string found;
  bool isFound = sglDataLoader::findFile(url, nullptr, found) || sglDataLoader::findFile(url, folder.c_str(), found);
  const std::string inlineFolder = sglDataLoader::extractDirectoryFromPath(inlinedFile);
  if (!isFound && !inlineFolder.empty()) isFound = sglDataLoader::findFile(url, inlineFolder.c_str(), found);
  embedded::Raster raster;
  return isFound && embedded::readImageFile(found, raster);
}

class CheckCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFiles(app, m_files);
    addHostOptions(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl check garden.wrl", "whether it can be read, and what an import drops"},
        {"wrl check --textures *.wrl", "the same where the host reads texture images"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const HostSetUp host(m_options);
    Output output("");
    bool allRead = true;
    for (const std::string& file : m_files) {
      allRead = checkFile(file, output.stream()) && allRead;
      // Whoever reads along sees each file's lines when they are known.
      output.stream().flush();
    }
    const bool delivered = output.finishOrReport();
    return delivered && allRead ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  bool checkFile(const std::string& file, std::ostream& out) const {
    const InputPath input = inputPath(file);
    if (!input.error.empty()) {
      out << input.error << '\n';
      return false;
    }
    vrml::SceneGraph scene;
    const std::string path = readEchoing(scene, input.path);
    if (scene.succeeded()) {
      out << file << ": ok\n";
      writeNotes(out, file + ": note: ", scene, sglDataLoader::extractDirectoryFromPath(path));
    } else if (isUnopened(scene)) {
      out << file << ": error: cannot be opened\n";
    } else {
      out << errorLine(file, scene) << '\n';
    }
    return scene.succeeded();
  }

  static std::string readEchoing(vrml::SceneGraph& scene, const std::string& path) {
    const EchoToStandardError echo;
    return readFileOrSearch(scene, path);
  }

  void writeNotes(std::ostream& out, const std::string& head, const vrml::SceneGraph& scene,
                  const std::string& folder) const {
    AuditOptions options;
    if (m_options.textures) {
      options.readsImage = [&folder](const std::string& url, const std::string& inlinedFile) {
        return readsImage(url, folder, inlinedFile);
      };
    }
    for (const vrml::Note& note : scene.notes()) out << head << withLine(note) << '\n';
    for (const AuditNote& note : auditImport(scene, options)) out << head << auditText(note) << '\n';
  }

  std::vector<std::string> m_files;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeCheckCommand() { return std::make_unique<CheckCommand>(); }

}  // namespace wrl
