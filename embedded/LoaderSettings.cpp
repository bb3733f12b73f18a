// The process's loader settings.

#include "embedded/LoaderSettings.h"

namespace embedded {

LoaderSettings& loaderSettings() {
  static LoaderSettings settings;
  return settings;
}

void resetLoaderSettings() { loaderSettings() = LoaderSettings{}; }

}  // namespace embedded
