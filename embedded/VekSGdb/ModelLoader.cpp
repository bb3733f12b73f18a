// What a loader asks the host for, answered from the process's loader settings.

#include <VekSGdb/sglModelLoader.h>

#include "embedded/LoaderSettings.h"
#include "embedded/Paths.h"

using embedded::loaderSettings;

float sglModelLoader::GetIORefinement() { return loaderSettings().refinement; }

sglModelLoader::CallbackFn sglModelLoader::getCallback(const char* extension, void** userData) {
  embedded::Hook hook;
  if (extension != nullptr) {
    const auto found = loaderSettings().hooks.find(extension);
    if (found != loaderSettings().hooks.end()) hook = found->second;
  }
  if (userData != nullptr) *userData = hook.userData;
  return hook.function;
}

std::string sglModelLoader::getOptionString(const char* extension) {
  if (extension == nullptr) return {};
  const auto found = loaderSettings().options.find(extension);
  return found == loaderSettings().options.end() ? std::string() : found->second;
}

std::string sglModelLoader::GetFileName(const char* path) {
  return path == nullptr ? std::string() : std::string(embedded::fileNameOf(path));
}

sglModelLoader::CallbackProgressFn sglModelLoader::GetCallbackProgress() { return loaderSettings().progress; }

bool sglModelLoader::GetIOMergeFileInOneActor() { return loaderSettings().mergeInOneActor; }

sglModelLoader::ImageReaderFn sglModelLoader::getImageReader() { return loaderSettings().imageReader; }
