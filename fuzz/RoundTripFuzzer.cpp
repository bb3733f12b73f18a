// What is written of a file that loads is read again, and written as the same bytes; with the post-load pass and
// without. A file that the wide rules took may be written so that the exact ones take it, which pass over some bytes of
// names: then what came of that is the file.

#include <sstream>

#include "fuzz/Harness.h"
#include "vrml/reader/SceneGraph.h"

namespace {

struct Written {
  std::string text;  // "" when the file is refused
  bool readWide = false;
};

Written written(const std::string& file, bool resolve) {
  vrml::SceneGraph scene;
  scene.load(file, resolve);
  if (!scene.succeeded()) return {};
  std::ostringstream out;
  scene.write(out);
  return {std::move(out).str(), scene.writesEscapes()};
}

Written writtenAgain(const Written& before, bool resolve) {
  return written(fuzz::writeScratch("again.wrl", before.text), resolve);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const bool resolve : {false, true}) {
    Written first = written(fuzz::writeScratch("world.wrl", fuzz::textOf(data, size)), resolve);
    if (first.text.empty()) continue;
    Written second = writtenAgain(first, resolve);
    if (first.readWide && !second.readWide && !second.text.empty()) {
      first = second;
      second = writtenAgain(first, resolve);
    }
    if (second.text != first.text)
      fuzz::fail(second.text.empty() ? "what is written is refused" : "written differently", first.text, second.text);
  }
  return 0;
}
