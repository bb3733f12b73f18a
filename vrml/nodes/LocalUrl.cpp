// A url is told from a path by its scheme alone; what is no scheme is a path.

#include "vrml/nodes/LocalUrl.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {

namespace {

// A scheme is two letters or more in front of a colon; a single one is a drive.
bool hasScheme(std::string_view url) {
  const std::size_t colon = url.find(':');
  if (colon == std::string_view::npos || colon < 2) return false;
  return std::all_of(url.begin(), url.begin() + static_cast<std::ptrdiff_t>(colon), [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+' || c == '-' || c == '.';
  });
}

}  // namespace

std::string localPath(std::string_view url, std::string_view base) {
  constexpr std::string_view kFileScheme = "file:";
  if (url.starts_with(kFileScheme))
    url.remove_prefix(kFileScheme.size());
  else if (hasScheme(url))
    return {};
  if (url.empty()) return {};
  std::string path(url);
  std::replace(path.begin(), path.end(), '\\', '/');
  if (path.front() == '/') return path;
  const std::size_t slash = base.find_last_of("/\\");
  return slash == std::string_view::npos ? path : std::string(base.substr(0, slash + 1)) + path;
}

bool isRegularFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

std::string fileOfNode(const Node& node) {
  for (const Node* above = node.getParent(); above; above = above->getParent()) {
    if (above->isType(nodeType("Inline"))) return static_cast<const InlineNode*>(above)->getFile();
    if (above->isType(nodeType("Root"))) return static_cast<const RootNode*>(above)->getFile();
  }
  return {};
}

}  // namespace vrml
