// Measures a load, by the stage at which it stops:
//
//   bench_load read FILE             into the node tree: scan, parse, resolve
//   bench_load import FILE MODULE    the whole import, as a host calls it: opens the module, calls loadModelWRL
//
// Each prints its stages; the process ends without taking the tree apart, as the yardstick does. Giving the tree back
// is a stage of its own with the word `free` behind the arguments.

#include <VekSG/sglNode.h>
#include <VekSGdb/CVekDBRoot.h>
#include <dlfcn.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/StageTimer.h"
#include "embedded/MessageSink.h"
#include "vrml/reader/SceneGraph.h"

namespace {

using LoadFunction = CVekDBRoot*(const std::string&, std::uint32_t);

[[noreturn]] void finish() {
  std::fflush(stdout);
  _exit(0);
}

bool measureRead(const std::string& path, bool frees) {
  bench::StageTimer timer;
  auto scene = std::make_unique<vrml::SceneGraph>();
  scene->load(path, true, nullptr, nullptr);
  timer.endStage("read");
  std::printf("RESULT succeeded=%d nodes=%d\n", scene->succeeded() ? 1 : 0, scene->getNodeCount());
  if (!scene->succeeded()) return false;
  if (!frees) {
    static_cast<void>(scene.release());  // not taken apart before the process ends
    finish();
  }
  scene.reset();
  timer.endStage("free");
  return true;
}

bool measureImport(const std::string& path, const std::string& modulePath, bool frees) {
  void* const module = dlopen(modulePath.c_str(), RTLD_NOW);
  void* const symbol = module == nullptr ? nullptr : dlsym(module, "loadModelWRL");
  if (symbol == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return false;
  }
  auto* const load = reinterpret_cast<LoadFunction*>(symbol);
  embedded::setMessageSink([](unsigned, std::string_view) {});

  bench::StageTimer timer;
  std::unique_ptr<CVekDBRoot> database(load(path, 0));
  timer.endStage("import");
  const bool holdsScene = database != nullptr && database->GetSglRoot() != nullptr;
  std::printf("RESULT scene=%d\n", holdsScene ? 1 : 0);
  if (!holdsScene) return false;
  if (!frees) {
    static_cast<void>(database.release());  // not taken apart before the process ends
    finish();
  }
  database.reset();
  timer.endStage("free");
  return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  std::vector<std::string> words(arguments + 1, arguments + argumentCount);
  const bool frees = !words.empty() && words.back() == "free";
  if (frees) words.pop_back();
  if (words.size() == 2 && words[0] == "read") return measureRead(words[1], frees) ? 0 : 1;
  if (words.size() == 3 && words[0] == "import") return measureImport(words[1], words[2], frees) ? 0 : 1;
  std::fputs("usage: bench_load read FILE [free] | import FILE MODULE [free]\n", stderr);
  return 2;
}
