// Without an option that needs it there is no hook: a host that nobody has set up has none either.

#include "tools/wrl/HostSetUp.h"

#include <algorithm>
#include <cstdio>

#include "embedded/Gzip.h"
#include "embedded/LoaderSettings.h"
#include "embedded/images/ImageFile.h"

namespace wrl {

HostSetUp::HostSetUp(const HostOptions& options) : m_options(options) {
  embedded::LoaderSettings& settings = embedded::loaderSettings();
  settings.refinement = options.refinement;
  settings.mergeInOneActor = options.merge;
  settings.searchFolders = options.searchFolders;
  settings.unpacker = embedded::unpackFile;
  if (options.textures) settings.imageReader = embedded::readTextureImage;
  if (options.trace || !options.vetoes.empty()) settings.hooks["wrl"] = {answerHook, this};
}

HostSetUp::~HostSetUp() { embedded::resetLoaderSettings(); }

bool HostSetUp::answerHook(sglNode* /*node*/, void* /*fileNode*/, const std::string& event, void* self) {
  const HostOptions& options = static_cast<const HostSetUp*>(self)->m_options;
  if (options.trace) {
    const std::string line = event + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
  }
  return std::find(options.vetoes.begin(), options.vetoes.end(), event) == options.vetoes.end();
}

}  // namespace wrl
