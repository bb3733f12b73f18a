// The names are sorted as bytes, so that a list is the same on every machine and in every locale.

#include "tools/wrl/InputFiles.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "tools/wrl/Input.h"

namespace wrl {

namespace {

namespace fs = std::filesystem;

// Whether the name ends so, in either case, behind at least one character.
bool endsLike(std::string_view name, std::string_view ending) {
  const auto isSame = [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); };
  return name.size() > ending.size() &&
         std::equal(name.end() - static_cast<std::ptrdiff_t>(ending.size()), name.end(), ending.begin(), isSame);
}

bool isWorldName(std::string_view name) {
  return !name.starts_with('.') && (endsLike(name, ".wrl") || endsLike(name, ".wrz") || endsLike(name, ".wrl.gz"));
}

// The worlds below a folder; an error when the folder itself cannot be listed, or the listing breaks off.
std::vector<std::string> listWorlds(const std::string& folder, std::error_code& error) {
  std::vector<std::string> worlds;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
  for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    std::error_code ignored;
    if (isWorldName(entry->path().filename().native()) && !entry->is_directory(ignored)) {
      worlds.push_back(entry->path().string());
    }
  }
  std::sort(worlds.begin(), worlds.end());
  return worlds;
}

}  // namespace

InputFiles findInputFiles(const std::vector<std::string>& arguments) {
  InputFiles found;
  for (const std::string& argument : arguments) {
    std::error_code error;
    const bool isFolder = !isStandardInput(argument) && fs::is_directory(argument, error);
    const std::vector<std::string> worlds = isFolder ? listWorlds(argument, error) : std::vector<std::string>();
    if (isFolder && !error) {
      found.files.insert(found.files.end(), worlds.begin(), worlds.end());
      found.hasFolder = true;
    } else {
      found.files.push_back(argument);
    }
  }
  return found;
}

}  // namespace wrl
