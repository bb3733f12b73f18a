// Paths of either slash.

#include "embedded/Paths.h"

#include <algorithm>

namespace embedded {

std::string nativePath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

std::size_t lastSlash(std::string_view path) { return path.find_last_of("/\\"); }

std::string_view fileNameOf(std::string_view path) {
  const std::size_t slash = lastSlash(path);
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string folderOf(std::string_view path) { return std::string(path.substr(0, lastSlash(path) + 1)); }

bool isAbsolutePath(std::string_view path) {
  if (path.empty()) return false;
  if (path[0] == '/' || path[0] == '\\') return true;
  const bool letter = (path[0] >= 'a' && path[0] <= 'z') || (path[0] >= 'A' && path[0] <= 'Z');
  return letter && path.size() > 1 && path[1] == ':';
}

}  // namespace embedded
