// A file is read with its post-load pass, and saved, whatever came of it.

#include "fuzz/Harness.h"
#include "vrml/reader/SceneGraph.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string file = fuzz::writeScratch("world.wrl", fuzz::textOf(data, size));
  vrml::SceneGraph scene;
  scene.load(file, true);
  if (!scene.succeeded() && scene.getErrorLine() < 1) fuzz::fail("a refusal without a line");
  if (vrml::Parser::currentParser() != nullptr) fuzz::fail("a parser is left behind");
  if (!scene.save(fuzz::scratchFolder() + "/saved.wrl")) fuzz::fail("not saved");
  return 0;
}
