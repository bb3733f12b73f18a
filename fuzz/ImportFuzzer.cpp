// A file goes through the module's own entry into the embedded host. The input's size chooses the host's settings.

#include "embedded/LoaderSettings.h"
#include "embedded/MessageSink.h"
#include "embedded/ModuleLoader.h"
#include "fuzz/Harness.h"

namespace {

const embedded::ModuleLoader& module() {
  static embedded::ModuleLoader loader;
  static const bool isOpen = loader.open(embedded::ModuleLoader::pathBesideHost());
  if (!isOpen) fuzz::fail("no module", loader.errorText());
  return loader;
}

// Refuses every other event.
bool vetoSome(sglNode* /*created*/, void* /*vrmlNode*/, const std::string& /*event*/, void* count) {
  return ++*static_cast<unsigned*>(count) % 2 != 0;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string file = fuzz::writeScratch("world.wrl", fuzz::textOf(data, size));
  unsigned events = 0;
  embedded::setMessageSink([](unsigned, std::string_view) {});
  embedded::resetLoaderSettings();
  embedded::loaderSettings().mergeInOneActor = size % 2 == 1;
  if (size % 4 >= 2) embedded::loaderSettings().hooks["wrl"] = {&vetoSome, &events};
  if (!module().loadModel(file)) fuzz::fail("no database");
  return 0;
}
