// A stage document is exported through the module's own entry, and what was written is read back. It must be a world,
// unless the document holds what the export has no words for: a quote in a text, a number that is none, a drawable
// without a state, whose geometry stands there without its Shape, or no list of views, which leaves theirs open.

#include <cerrno>

#include "embedded/ModuleLoader.h"
#include "embedded/StageDocument.h"
#include "fuzz/Harness.h"
#include "vrml/reader/SceneGraph.h"

namespace {

const embedded::ModuleLoader& module() {
  static embedded::ModuleLoader loader;
  static const bool isOpen = loader.open(embedded::ModuleLoader::pathBesideHost());
  if (!isOpen || !loader.canWrite()) fuzz::fail("no module", loader.errorText());
  return loader;
}

std::size_t count(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) ++count;
  return count;
}

bool isSayable(std::string_view document, std::string_view world) {
  return count(document, "\\") + count(world, "nan") + count(world, "inf") == 0 &&
         count(world, "geometry IndexedFaceSet{") == count(world, "Shape{");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view document = fuzz::textOf(data, size);
  embedded::StageError error;
  const auto stager = embedded::readStageDocument(document, fuzz::scratchFolder(), error);
  if (!stager || stager->GetSceneManager()->GetAssyRoot() == nullptr) return 0;
  const std::string file = fuzz::scratchFolder() + "/out.wrl";
  if (!module().writeModel(file, stager.get()) || errno != 0) fuzz::fail("not written");
  vrml::SceneGraph scene;
  scene.load(file, true);
  const std::string world = fuzz::contentOf(file);
  const bool hasViews = stager->GetViewportManager()->GetViews() != nullptr;
  if (!scene.succeeded() && hasViews && isSayable(document, world)) fuzz::fail("what is written is refused", world);
  return 0;
}
