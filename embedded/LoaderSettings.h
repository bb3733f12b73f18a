#pragma once

// The settings behind sglModelLoader and sglDataLoader.

#include <VekSGdb/sglDataLoader.h>
#include <VekSGdb/sglModelLoader.h>

#include <map>
#include <string>
#include <vector>

namespace embedded {

// A hook and what is handed back to it.
struct Hook {
  sglModelLoader::CallbackFn function = nullptr;
  void* userData = nullptr;
};

// A value of this struct as it is made is the default of every setting.
struct LoaderSettings {
  float refinement = 1.0F;                                  // how finely curved surfaces are cut
  bool mergeInOneActor = false;                             // make one object of a file
  std::vector<std::string> searchFolders;                   // in the order in which they are searched
  std::map<std::string, Hook, std::less<>> hooks;           // by extension without full stop
  std::map<std::string, std::string, std::less<>> options;  // option strings by extension
  sglModelLoader::CallbackProgressFn progress = nullptr;    // hears of progress
  sglModelLoader::ImageReaderFn imageReader = nullptr;      // reads the files of textures
  sglDataLoader::UnpackFn unpacker = nullptr;               // unpacks compressed models
};

// The process's settings, to be read and changed.
LoaderSettings& loaderSettings();

// Puts every setting back to its default.
void resetLoaderSettings();

}  // namespace embedded
