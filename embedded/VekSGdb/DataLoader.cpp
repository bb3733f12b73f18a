// The search for files: folder after folder, in each first the whole name and then the file name alone, since files
// that came from another machine name folders that do not exist here.

#include <VekSGdb/sglDataLoader.h>

#include <filesystem>

#include "embedded/LoaderSettings.h"
#include "embedded/Paths.h"

namespace {

// Whether there is something to open that is no folder.
bool isFile(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string join(const std::string& folder, const std::string& name) {
  const std::string native = embedded::nativePath(folder);
  if (native.empty()) return "./" + name;
  return native.back() == '/' ? native + name : native + "/" + name;
}

// One search: the name that was asked for, and the answer once there is one.
struct Search {
  const std::string& asked;
  std::string& found;

  // Whether the candidate is the answer.
  bool accept(const std::string& candidate) const {
    if (candidate == asked || !isFile(candidate)) return false;
    found = candidate;
    return true;
  }

  bool lookIn(const std::string& folder) const {
    const std::string whole = embedded::nativePath(asked);
    const std::string last(embedded::fileNameOf(asked));
    if (!embedded::isAbsolutePath(asked) && accept(join(folder, whole))) return true;
    return accept(join(folder, last));
  }
};

}  // namespace

std::string sglDataLoader::extractDirectoryFromPath(const std::string& path) {
  const std::size_t slash = embedded::lastSlash(path);
  if (slash == std::string::npos) return {};
  return path.substr(0, slash == 0 ? 1 : slash);
}

bool sglDataLoader::findFile(const std::string& name, const char* directory, std::string& found) {
  if (embedded::fileNameOf(name).empty() || name.find('\0') != std::string::npos) return false;
  // The caller may hand in one string as both, as in findFile(path, null, path).
  const std::string asked = name;
  const Search search{asked, found};
  if (directory != nullptr && search.lookIn(directory)) return true;
  for (const std::string& folder : embedded::loaderSettings().searchFolders) {
    if (search.lookIn(folder)) return true;
  }
  return embedded::isAbsolutePath(asked) && search.accept(embedded::nativePath(asked));
}

sglDataLoader::UnpackFn sglDataLoader::getUnpacker() { return embedded::loaderSettings().unpacker; }
