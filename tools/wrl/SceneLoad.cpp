// The host's settings are the process's, so they are set for the one load and put back behind it.

#include "tools/wrl/SceneLoad.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <new>

#include "embedded/LoaderSettings.h"
#include "tools/wrl/Descriptors.h"
#include "tools/wrl/FileKind.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/HostSetUp.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/Module.h"
#include "tools/wrl/Progress.h"
#include "tools/wrl/StatisticsFilter.h"

namespace wrl {

namespace {

constexpr std::string_view kErrorReport = "sglLoadFile_wrl: Error loading: ";

void writeToStandardError(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

// The progress that the host's hook reports to, which has no room for an argument.
Progress* shownProgress = nullptr;

// Lets the host's progress hook report to `progress` for as long as this lives.
class ProgressHook {
 public:
  explicit ProgressHook(Progress& progress) {
    if (!progress.isShown()) return;
    shownProgress = &progress;
    embedded::loaderSettings().progress = [](float, const char* text) { shownProgress->show(text); };
  }
  ~ProgressHook() { embedded::loaderSettings().progress = nullptr; }
  ProgressHook(const ProgressHook&) = delete;
  ProgressHook& operator=(const ProgressHook&) = delete;
};

// Shows the host's messages and keeps them, for as long as this lives.
class MessageLog {
 public:
  explicit MessageLog(const HostOptions& options) {
    embedded::setMessageSink([this, &options](unsigned level, std::string_view text) {
      const bool isStatistics = m_filter.isStatistics(text);
      if (isStatistics && !options.showStatistics) return;
      hasErrorReport = hasErrorReport || text.starts_with(kErrorReport);  // first: there may be no memory to keep it
      Progress::wipe();
      if (hasErrorReport || !options.quiet) writeToStandardError(text);
      messages.push_back({level, std::string(text)});
    });
  }
  ~MessageLog() { embedded::setMessageSink({}); }
  MessageLog(const MessageLog&) = delete;
  MessageLog& operator=(const MessageLog&) = delete;

  std::vector<embedded::Message> messages;
  bool hasErrorReport = false;

 private:
  StatisticsFilter m_filter;
};

LoadedScene loadWith(const embedded::ModuleLoader& module, const std::string& path, const HostOptions& options) {
  using Clock = std::chrono::steady_clock;
  Progress progress;
  const HostSetUp host(options);
  const ProgressHook hook(progress);
  MessageLog log(options);
  const StandardOutputAside aside(options.quiet);
  LoadedScene loaded;
  const Clock::time_point start = Clock::now();
  loaded.database = module.loadModel(path);
  if (loaded.database == nullptr) throw std::bad_alloc();  // the module gives none only for want of memory
  loaded.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  loaded.messages = std::move(log.messages);
  loaded.failed = log.hasErrorReport;
  return loaded;
}

}  // namespace

std::optional<LoadedScene> loadScene(const std::string& file, const HostOptions& options) {
  const std::optional<std::string> path = inputPathOrReport(file);
  if (!path) return std::nullopt;
  embedded::ModuleLoader module;
  if (!openModule(module)) return std::nullopt;
  LoadedScene loaded = loadWith(module, *path, options);
  if (loaded.failed) std::cerr << foreignKindLine(file, *path);
  if (options.verbose) tellReading(file, loaded.seconds);
  return loaded;
}

}  // namespace wrl
