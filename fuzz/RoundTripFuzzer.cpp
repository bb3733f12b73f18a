// What is written of a file that loads is read again, and written as the same bytes; with the post-load pass and
// without.

#include <sstream>

#include "fuzz/Harness.h"
#include "vrml/reader/SceneGraph.h"

namespace {

// What loading a file and writing it gives; "" when it is refused.
std::string written(const std::string& file, bool resolve) {
  vrml::SceneGraph scene;
  scene.load(file, resolve);
  if (!scene.succeeded()) return {};
  std::ostringstream out;
  scene.write(out);
  return std::move(out).str();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const bool resolve : {false, true}) {
    const std::string first = written(fuzz::writeScratch("world.wrl", fuzz::textOf(data, size)), resolve);
    if (first.empty()) continue;
    const std::string second = written(fuzz::writeScratch("again.wrl", first), resolve);
    if (second != first)
      fuzz::fail(second.empty() ? "what is written is refused" : "written differently", first, second);
  }
  return 0;
}
