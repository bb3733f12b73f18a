// The variable is for trying another build of the module under this host.

#include "tools/wrl/Module.h"

#include <cstdlib>
#include <iostream>

namespace wrl {

namespace {

constexpr const char* kModuleVariable = "WRL_MODULE";

std::string modulePath() {
  const char* const given = std::getenv(kModuleVariable);
  return given != nullptr && *given != '\0' ? given : embedded::ModuleLoader::pathBesideHost();
}

}  // namespace

bool openModule(embedded::ModuleLoader& module) {
  if (module.open(modulePath())) return true;
  std::cerr << "wrl: error: the module cannot be opened: " << module.errorText() << '\n';
  return false;
}

}  // namespace wrl
