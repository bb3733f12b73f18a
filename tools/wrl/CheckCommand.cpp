// wrl check: whether files can be read, and what of them an import leaves out.

#include <VekSGdb/sglDataLoader.h>

#include <chrono>
#include <iostream>

#include "embedded/images/ImageFile.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/CheckReport.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Echo.h"
#include "tools/wrl/FileCount.h"
#include "tools/wrl/FileKind.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/HostSetUp.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/InputFiles.h"
#include "tools/wrl/Listing.h"
#include "tools/wrl/Output.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

namespace {

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
    addListing(app, m_listing);
    app.add_flag("--strict", m_strict, "Exit with 1 also when a file has notes");
    addHostOptions(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl check garden.wrl", "whether it can be read, and what an import drops"},
        {"wrl check --textures *.wrl", "the same where the host reads texture images"},
        {"wrl check -q --strict worlds", "what is wrong with any world in a folder"},
        {"wrl check --json worlds", "one JSON document a line"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const HostSetUp host(m_options);
    const InputFiles input = findInputFiles(m_files);
    Output output("");
    Tally tally;
    FileCount count(input.files.size());
    for (const std::string& file : input.files) {
      count.begin(file);
      const CheckReport report = checkFile(file);
      count.wipe();
      write(output.stream(), report);
      // Whoever reads along sees each file's lines when they are known.
      output.stream().flush();
      ++(report.isRead() ? tally.ok : tally.failed);
      if (report.isRead() && !report.notes.empty()) ++tally.withNotes;
    }
    if (m_listing.summary || input.hasFolder) writeTally(output.stream(), tally, m_listing);
    const bool delivered = output.finishOrReport();
    const bool isClean = tally.failed == 0 && (!m_strict || tally.withNotes == 0);
    return delivered && isClean ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  CheckReport checkFile(const std::string& file) const {
    CheckReport report;
    report.file = file;
    const InputPath input = inputPath(file);
    if (!input.error.empty()) {
      report.state = CheckReport::State::unreadable;
      report.reason = input.error;
      return report;
    }
    using Clock = std::chrono::steady_clock;
    vrml::SceneGraph scene;
    const Clock::time_point start = Clock::now();
    const std::string path = readEchoing(scene, input.path);
    if (m_options.verbose) tellReading(path, std::chrono::duration<double>(Clock::now() - start).count());
    describeReading(report, scene);
    if (!report.isRead()) report.kind = foreignKind(path);
    if (report.state == CheckReport::State::unreadable) report.reason = unreadableLine(file, path);
    const std::string folder = sglDataLoader::extractDirectoryFromPath(path);
    AuditOptions options;
    if (m_options.textures) {
      options.readsImage = [&folder](const std::string& url, const std::string& inlinedFile) {
        return readsImage(url, folder, inlinedFile);
      };
    }
    if (report.isRead()) describeNotes(report, scene, options);
    return report;
  }

  static std::string unreadableLine(const std::string& file, const std::string& path) {
    const std::string error = openingError(path);
    return error.empty() ? "" : file + ": error: " + error;
  }

  std::string readEchoing(vrml::SceneGraph& scene, const std::string& path) const {
    const EchoToStandardError echo(m_options.quiet);
    return readFileOrSearch(scene, path);
  }

  void write(std::ostream& out, const CheckReport& report) const {
    if (m_listing.json) {
      writeJson(out, report);
    } else {
      const bool wantsNotes = !m_options.quiet || m_strict;
      writeText(out, report, !m_options.quiet, wantsNotes);
    }
  }

  std::vector<std::string> m_files;
  ListingOptions m_listing;
  bool m_strict = false;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeCheckCommand() { return std::make_unique<CheckCommand>(); }

}  // namespace wrl
